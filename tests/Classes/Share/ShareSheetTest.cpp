#include <gmock/gmock.h>

#include <map>
#include <utility>

#include "Classes/App/ArchiveRegistration.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Share/HHShareToolbar.h"
#include "Classes/Share/ShareViewController.h"
#include "Classes/Share/SharedFile.h"
#include "platform/FileSystem.h"
#include "support/ScriptedPresenter.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;

TestEnvironment::Options options() {
    TestEnvironment::Options made;
    made.archiveClasses = allArchiveClasses();
    return made;
}

class ShareSheet : public ::testing::Test, public ShareServices {
protected:
    ShareSheet() {
        event->setName("Launch");
        event->setDate(environment.at("2026-03-20"));
        toolbar.setEvent(event);
    }
    std::string text(const std::string& path) const {
        const Data bytes = environment->files().readFile(path).value_or(Data());
        return {bytes.begin(), bytes.end()};
    }
    bool isOpen() const { return shell.navigation.panel(StackId::root) != nullptr; }

    void copyText(const std::string& copied) override { lines.push_back("copy " + copied); }
    void copyImage(Picture image) override { lines.push_back("copy " + std::to_string(image->width())); }
    void chooseSavePath(const std::string& suggestedName, std::function<void(const std::string&)> completion) override {
        lines.push_back("save " + suggestedName);
        pathChosen = std::move(completion);
        if (!savePath.empty()) pathChosen(savePath);
    }
    bool mailTakesFiles() const override { return hasMailCommand; }
    Result<> composeMail(const MailDraft& mail) override {
        draft = mail;
        return works;
    }
    Result<> openWith(const std::string& path) override {
        opened = path;
        return works;
    }
    void renderDetail(const EventDetailView& view, PixelSize size, double pixelsPerPoint,
                      std::function<void(Picture)> completion) override {
        lines.push_back("draw " + view.nameLabel() + " " + std::to_string(size.width) + "x" +
                        std::to_string(size.height) + " " +
                        std::to_string(static_cast<int>(size.width / pixelsPerPoint)));
        drawn = std::move(completion);
    }
    void finishDrawing(bool succeeds = true) {
        drawn(succeeds ? std::make_shared<const Image>(1, 1, Data{1, 2, 3, 255}) : nullptr);
    }

    TestEnvironment environment{options()};
    ScriptedPresenter shell;
    std::shared_ptr<HHEvent> event = std::make_shared<HHEvent>("a");
    HHShareToolbar toolbar{*this, [this](std::shared_ptr<ViewController> sheet) {
                               shell.navigation.presentPanel(*shell.navigation.topScreen(), std::move(sheet));
                           }};
    std::vector<std::string> lines;
    std::string savePath = environment.home + "/saved";
    std::function<void(const std::string&)> pathChosen;
    bool hasMailCommand = true;
    MailDraft draft;
    std::string opened;
    Result<> works;
    std::function<void(Picture)> drawn;
};

TEST_F(ShareSheet, ATextIsCopiedSavedMailedAndOpened) {
    const std::string sentence = "Launch - is coming in 10 Days!";
    toolbar.textAction();
    EXPECT_THAT(shell.rows(), ElementsAre(sentence, "--", "Copy", "Save…", "Mail", "Open with…"));
    shell.tap("copy");
    EXPECT_THAT(shell.take(), ElementsAre("panel Share", "notice Copied", "close Share"));
    toolbar.textAction();
    shell.tap("save");
    EXPECT_THAT(lines, ElementsAre("copy " + sentence, "save Countdown to Launch.txt"));
    EXPECT_EQ(text(savePath), sentence);
    toolbar.textAction();
    shell.tap("mail");
    EXPECT_EQ(draft.subject, "Countdown to Launch");
    EXPECT_EQ(draft.text, sentence);
    EXPECT_EQ(draft.attachmentPath, "");
    toolbar.textAction();
    shell.tap("openWith");
    EXPECT_THAT(opened, EndsWith("/Countdown to Launch.txt"));
    EXPECT_EQ(text(opened), sentence);
    EXPECT_FALSE(isOpen());
}

TEST_F(ShareSheet, APictureIsDrawnInItsShapeBeforeItIsShared) {
    toolbar.imageAction();
    environment.queues->runAll();
    EXPECT_FALSE(shell.row("copy").enabled);
    EXPECT_EQ(shell.row("preview").kind, RowKind::picture) << "the sheet has its height before the picture is there";
    shell.tap("copy");
    const auto first = drawn;
    shell.tap("square");
    environment.queues->runAll();
    EXPECT_THAT(lines, ElementsAre("draw Launch 1170x2532 390", "draw Launch 1080x1080 432"));
    first(std::make_shared<const Image>(7, 1, Data(28)));
    EXPECT_FALSE(shell.row("copy").enabled) << "the other shape is awaited";
    finishDrawing();
    EXPECT_THAT(shell.rows(), ElementsAre("Countdown to Launch", "--", "Phone", "Square *", "--", "Copy", "Save…",
                                          "Mail", "Open with…"));
    EXPECT_EQ(std::get<RowPicture>(shell.row("preview").content).load()->width(), 1);
    shell.tap("copy");
    EXPECT_EQ(lines.back(), "copy 1");
    toolbar.imageAction();
    environment.queues->runAll();
    finishDrawing();
    shell.tap("mail");
    EXPECT_TRUE(Image::decode(*environment->files().readFile(draft.attachmentPath)));
}

TEST_F(ShareSheet, APictureThatNoMailTakesIsSavedInstead) {
    hasMailCommand = false;
    toolbar.textAction();
    shell.tap("mail");
    EXPECT_EQ(std::exchange(draft, {}).subject, "Countdown to Launch") << "a text goes as it is";
    toolbar.imageAction();
    environment.queues->runAll();
    finishDrawing();
    shell.tap("mail");
    EXPECT_EQ(draft.subject, "");
    shell.answer("Save…");
    EXPECT_TRUE(Image::decode(*environment->files().readFile(savePath)));
}

TEST_F(ShareSheet, ASaveIsToldOfWhenTheSheetWasClosedMeanwhile) {
    const std::string place = std::exchange(savePath, {});
    toolbar.textAction();
    shell.tap("save");
    shell.back();
    ASSERT_FALSE(isOpen());
    pathChosen(environment.home + "/missing/folder/file");
    EXPECT_THAT(shell.alert.message, HasSubstr("missing"));
    pathChosen(place);
    EXPECT_EQ(text(place), "Launch - is coming in 10 Days!");
    EXPECT_EQ(shell.take().back(), "notice Saved");
}

TEST_F(ShareSheet, AFailureIsToldAndTheSheetStays) {
    works = failure("desktop", 0, {{"reason", "no program"}});
    toolbar.textAction();
    shell.tap("openWith");
    EXPECT_THAT(shell.alert.message, HasSubstr("no program"));
    savePath = environment.home + "/missing/folder/file";
    shell.tap("save");
    EXPECT_THAT(shell.alert.message, HasSubstr("missing"));
    EXPECT_TRUE(isOpen());
    shell.back();
    toolbar.imageAction();
    environment.queues->runAll();
    finishDrawing(false);
    EXPECT_EQ(shell.alert.title, "The picture could not be drawn.");
    EXPECT_FALSE(shell.row("save").enabled);
    const auto late = drawn;
    shell.back();
    late(nullptr);
    toolbar.setEvent(nullptr);
    toolbar.textAction();
    EXPECT_FALSE(isOpen());
}

TEST_F(ShareSheet, FileNamesAreTakenByAnyFileSystem) {
    const std::map<std::string, std::string> cases{
        {"Plain", "Plain.txt"},
        {"../a/b:c\n", "a b c.txt"},
        {" .hidden. ", "hidden.txt"},
        {"///", "Event.txt"},
        {std::string(109, 'x') + "é", std::string(109, 'x') + ".txt"},
    };
    for (const auto& [title, name] : cases) EXPECT_EQ(sharedFileName(title, "txt"), name);

    const std::string old = *writeTemporaryFile("old.txt", Data{1});
    environment.clock->set(environment->files().status(old).value()->modified + TimeInterval(86401));
    const std::string fresh = *writeTemporaryFile("fresh.txt", Data{2});
    EXPECT_FALSE(environment->files().exists(old));
    EXPECT_TRUE(environment->files().exists(fresh));
}

}  // namespace
}  // namespace dayward
