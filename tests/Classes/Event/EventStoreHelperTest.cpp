#include "Classes/Event/EventStoreHelper.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Classes/Category/ImageEventBackgroundPicture.h"
#include "Classes/Category/ImageEventIconPicture.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Event/EventJSON.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/EventTestSupport.h"
#include "Classes/Event/HHGeneralEventDocumentData.h"
#include "Classes/Event/LoadEventBackgroundPicture.h"
#include "Classes/Event/LoadEventIconPicture.h"
#include "Classes/Event/RandomEvents.h"

namespace dayward {
namespace {

class EventStoreHelperTest : public testing::Test {
protected:
    [[nodiscard]] std::string path(const std::string& name) const { return joinPath(documents_, name); }
    static std::string errorOf(const std::string& package, const char* key) {
        const auto event = EventStoreHelper::readEvent(package);
        if (event) return "no error";
        const auto& error = event.error();
        return error.domain + ": " + (error.userInfo.contains(key) ? error.userInfo.at(key) : "");
    }

    TestEnvironment environment_{eventOptions()};
    const std::string documents_ = [this] {
        const auto& directory = environment_->paths().documents;
        EXPECT_TRUE(environment_->files().createDirectories(directory));
        return directory;
    }();
};

TEST_F(EventStoreHelperTest, RandomEventsComeBackAsTheyWere) {
    for (std::uint32_t seed = 1; seed <= 100; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const auto event = RandomEvents(seed).next();
        ASSERT_TRUE(EventStoreHelper::writeEvent(*event, path("event.evn")));
        const auto back = EventStoreHelper::readEvent(path("event.evn"));
        ASSERT_TRUE(back) << back.error().description();
        EXPECT_EQ(eventJSON(**back), eventJSON(*event));
        EXPECT_EQ((*back)->sourceInfo(), event->sourceInfo());

        const auto copy = rewritten(event);
        ASSERT_TRUE(copy);
        EXPECT_EQ(eventJSON(*copy), eventJSON(*event));
    }
}

TEST_F(EventStoreHelperTest, TheKeyIsTheNameWithoutExtension) {
    EXPECT_EQ(EventStoreHelper::itemKeyForFileURL("/a/b/key.evn"), "key");
    EXPECT_EQ(EventStoreHelper::itemKeyForFileURL("/a/b/key.evn/"), "key");
    EXPECT_EQ(EventStoreHelper::itemKeyForFileURL("/a/b.c/1.2.evn"), "1.2");
    EXPECT_EQ(EventStoreHelper::itemKeyForFileURL("key"), "key");
}

TEST_F(EventStoreHelperTest, FailuresSayWhatIsWrong) {
    const auto general = storedArchive("empty");
    writePackage(path("sound.evn"), {{"general.t", general}});
    writePackage(path("empty.evn"), {});
    writePackage(path("broken.evn"), {{"general.t", dataOf("bplist00")}});
    writePackage(path("other.evn"), {{"general.t", storedArchive("no-event")}});
    ASSERT_TRUE(environment_->files().createDirectories(path("nested.evn/general.t")));
    ASSERT_TRUE(writeFileAtomically(environment_->files(), path("file.evn"), general));
    EXPECT_EQ(errorOf(path("sound.evn"), "file"), "no error");
    for (const char* name : {"empty.evn", "broken.evn", "other.evn", "nested.evn", "absent.evn"}) {
        EXPECT_EQ(errorOf(path(name), "file"), std::string("Нет данных info: ") + name);
    }
    EXPECT_EQ(errorOf(path("file.evn"), "fileName"), "Нет fileWrappers: file.evn");
}

TEST_F(EventStoreHelperTest, ACutArchiveNeverCrashes) {
    const auto whole = storedArchive("full");
    for (std::size_t length = 0; length < whole.size(); length += 7) {
        const Data part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        writePackage(path("cut.evn"), {{"general.t", part}});
        EXPECT_EQ(errorOf(path("cut.evn"), "file"), "Нет данных info: cut.evn") << length;
    }
}

TEST_F(EventStoreHelperTest, UnchangedImagesAndForeignFilesStayByteForByte) {
    const auto package = writePackage(path("k.evn"), {{"general.t", storedArchive("empty")},
                                                      {"icon.i", dataOf("any bytes")},
                                                      {"background.i", dataOf("others")},
                                                      {"notes.txt", dataOf("foreign")}});
    const auto event = *EventStoreHelper::readEvent(package);
    ASSERT_TRUE(event->icon()->isEqual(LoadEventIconPicture("k")));
    event->setName("renamed");
    ASSERT_TRUE(EventStoreHelper::writeEvent(*event, package));
    EXPECT_EQ((*EventStoreHelper::readEvent(package))->name(), "renamed");
    EXPECT_EQ(textOf(fileOf(package, "icon.i")), "any bytes");
    EXPECT_EQ(textOf(fileOf(package, "background.i")), "others");
    EXPECT_EQ(textOf(fileOf(package, "notes.txt")), "foreign");
}

TEST_F(EventStoreHelperTest, DirectoriesInsideAPackageStayAndWhatIsNeitherIsNotInTheWay) {
    const auto package = writePackage(path("k.evn"), {{"general.t", storedArchive("empty")}});
    ASSERT_TRUE(environment_->files().createDirectories(joinPath(package, "directory/inside")));
    writePackage(joinPath(package, "directory/notes"), {{"a.txt", dataOf("foreign")}});
    ASSERT_EQ(::symlink("..", joinPath(package, "directory/loop").c_str()), 0);
    ASSERT_EQ(::mkfifo(joinPath(package, "pipe").c_str(), 0600), 0);
    ASSERT_EQ(::symlink("/nowhere/at/all", joinPath(package, "link").c_str()), 0);
    const auto event = *EventStoreHelper::readEvent(package);
    event->setName("renamed");
    ASSERT_TRUE(EventStoreHelper::writeEvent(*event, package));
    EXPECT_EQ((*EventStoreHelper::readEvent(package))->name(), "renamed");
    EXPECT_EQ(textOf(fileOf(package, "directory/notes/a.txt")), "foreign");
    EXPECT_TRUE(environment_->files().isDirectory(joinPath(package, "directory/inside")));
    for (const char* dropped : {"pipe", "link", "directory/loop"}) {
        EXPECT_FALSE(environment_->files().exists(joinPath(package, dropped)));
        EXPECT_THAT(environment_.log->errors(), Contains(testing::HasSubstr(joinPath(package, dropped))));
    }
}

TEST_F(EventStoreHelperTest, OwnImagesGetFilesOfTheirOwn) {
    HHEvent event("k");
    event.setIcon(std::make_shared<ImageEventIconPicture>(testImage(), "me.png"));
    event.setBackground(std::make_shared<ImageEventBackgroundPicture>(testImage()));
    ASSERT_TRUE(EventStoreHelper::writeEvent(event, path("k.evn")));
    EXPECT_EQ(fileOf(path("k.evn"), "icon.i"), *testImage()->pngData());
    EXPECT_EQ(fileOf(path("k.evn"), "background.i"), *testImage()->jpegData(0.8));
    EXPECT_EQ((*EventStoreHelper::readIconImage(path("k.evn")))->rgba(), testImage()->rgba());
    EXPECT_TRUE(EventStoreHelper::readBackgroundImage(path("k.evn")));

    const auto back = *EventStoreHelper::readEvent(path("k.evn"));
    EXPECT_TRUE(std::dynamic_pointer_cast<LoadEventIconPicture>(back->icon()));
    EXPECT_TRUE(std::dynamic_pointer_cast<LoadEventBackgroundPicture>(back->background()));

    event.setIcon(std::make_shared<NamedEventIconPicture>("heart4.png"));
    event.setBackground(nullptr);
    ASSERT_TRUE(EventStoreHelper::writeEvent(event, path("k.evn")));
    EXPECT_FALSE(fileOf(path("k.evn"), "icon.i").empty());
    const auto dropped = *EventStoreHelper::readEvent(path("k.evn"));
    EXPECT_TRUE(dropped->icon()->isEqual(NamedEventIconPicture("heart4.png")));
    EXPECT_FALSE(dropped->background());
}

TEST_F(EventStoreHelperTest, AFailedWriteLeavesTheOldDocument) {
    HHEvent event("k");
    event.setName("old");
    ASSERT_TRUE(EventStoreHelper::writeEvent(event, path("k.evn")));
    event.setName("new");
    event.setIcon(std::make_shared<ImageEventIconPicture>(std::make_shared<const Image>()));
    EXPECT_FALSE(EventStoreHelper::writeEvent(event, path("k.evn")));
    EXPECT_EQ((*EventStoreHelper::readEvent(path("k.evn")))->name(), "old");
    EXPECT_FALSE(EventStoreHelper::writeEvent(HHEvent("x"), path("no/such/directory/x.evn")));

    ASSERT_TRUE(writeFileAtomically(environment_->files(), path("file.evn"), dataOf("a file")));
    const auto overFile = EventStoreHelper::writeEvent(HHEvent("file"), path("file.evn"));
    ASSERT_FALSE(overFile);
    EXPECT_EQ(overFile.error().domain, "Нет fileWrappers");
}

TEST_F(EventStoreHelperTest, ADocumentInMemoryIsTheSameEvent) {
    HHEvent event("k");
    event.setName("n");
    ASSERT_TRUE(EventStoreHelper::writeEvent(event, path("k.evn")));
    auto document = *EventStoreHelper::readEventDocument(path("k.evn"));
    EXPECT_EQ((*EventStoreHelper::getEventFromDocument(document))->identifier(), "k");
    ASSERT_TRUE(EventStoreHelper::writeEventDocument(document, path("l.evn")));
    EXPECT_EQ((*EventStoreHelper::readEvent(path("l.evn")))->name(), "n");
    document.fileWrappers().clear();
    EXPECT_EQ(EventStoreHelper::getEventFromDocument(document).error().domain, "Нет данных info");
    EXPECT_TRUE(EventStoreHelper::readEventDocument(path("absent.evn"))->fileWrappers().empty());
}

TEST_F(EventStoreHelperTest, LoadedImagesAreKeptUntilTheDocumentChanges) {
    HHEvent event("k");
    event.setIcon(std::make_shared<ImageEventIconPicture>(testImage(10)));
    ASSERT_TRUE(EventStoreHelper::writeEvent(event, path("k.evn")));
    const LoadEventIconPicture icon("k");
    const auto first = icon.getImage();
    EXPECT_EQ(first->rgba(), testImage(10)->rgba());
    EXPECT_EQ(icon.getImage(), first);

    event.setIcon(std::make_shared<ImageEventIconPicture>(testImage(20)));
    ASSERT_TRUE(EventStoreHelper::writeEvent(event, path("k.evn")));
    EXPECT_EQ(icon.getImage()->rgba(), testImage(20)->rgba());
    EXPECT_TRUE(LoadEventIconPicture("absent").getImage()->isEmpty());
    EXPECT_TRUE(LoadEventBackgroundPicture("k").getImage()->isEmpty());
}

TEST_F(EventStoreHelperTest, AnIconIsDeliveredOnTheMainQueueOnceItIsRead) {
    HHEvent event("k");
    event.setIcon(std::make_shared<ImageEventIconPicture>(testImage(10)));
    ASSERT_TRUE(EventStoreHelper::writeEvent(event, path("k.evn")));
    std::vector<int> widths;
    const auto deliver = [&](const std::shared_ptr<const Image>& image) { widths.push_back(image->width()); };
    LoadEventIconPicture("k").getImageWithCompletion(deliver);
    EXPECT_TRUE(widths.empty());
    environment_.queues->runAll();
    EXPECT_EQ(widths, std::vector<int>{2});
    LoadEventIconPicture("k").getImageWithCompletion(deliver);
    NamedEventIconPicture("remind").getImageWithCompletion(deliver);
    EXPECT_EQ(widths, (std::vector<int>{2, 2}));
    environment_.queues->runAll();
    NamedEventIconPicture("remind").getImageWithCompletion(deliver);
    EXPECT_EQ(widths, (std::vector<int>{2, 2, 1, 1}));
}

TEST_F(EventStoreHelperTest, TheWholeEventInOneArchiveHoldsItsImages) {
    HHEvent event("k");
    event.setIcon(std::make_shared<ImageEventIconPicture>(testImage(10)));
    event.setBackground(std::make_shared<ImageEventBackgroundPicture>(testImage(10)));
    ASSERT_TRUE(EventStoreHelper::writeEvent(event, path("k.evn")));
    const auto stored = *EventStoreHelper::readEvent(path("k.evn"));
    const auto copy = rewritten(stored);
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->identifier(), "k");
    EXPECT_TRUE(copy->icon()->isEqual(ImageEventIconPicture(testImage(10))));
    EXPECT_TRUE(std::dynamic_pointer_cast<ImageEventBackgroundPicture>(copy->background()));
}

TEST_F(EventStoreHelperTest, GeneralFilesOfADocument) {
    EventDocument document("/nowhere/k.evn");
    const Dictionary values{{"a", Array{1, 2.5, "x", true}}, {"d", Date::sinceReference(7)}, {"b", dataOf("bytes")}};
    ASSERT_TRUE(document.setPropertyList(values, "list"));
    EXPECT_EQ(document.propertyListForKey("list"), Object(values));
    EXPECT_FALSE(document.setPropertyList(Array{nullptr}, "no list"));
    document.setData(dataOf("<plist version='1.0'><array><date>2100-06-07T01:02:03Z</date><integer>-5</integer>"
                            "<integer>18446744073709551615</integer></array></plist>"),
                     "xml");
    EXPECT_EQ(document.propertyListForKey("xml"),
              Object(Array{Date::sinceReference(3137706123), -5, 18446744073709551615.0}));
    document.setValue(std::make_shared<NamedEventIconPicture>("n"), "value");
    EXPECT_TRUE(document.valueForKey("value").as<NamedEventIconPicture>());
    document.setData(dataOf("bplist00 and rubbish that is no list"), "broken");
    for (const char* key : {"broken", "absent"}) {
        EXPECT_TRUE(document.propertyListForKey(key).isNull());
        EXPECT_TRUE(document.valueForKey(key).isNull());
        EXPECT_FALSE(document.imageForKey(key));
    }
    ASSERT_TRUE(document.setImagePNG(*testImage(), "icon.i"));
    EXPECT_EQ(*document.imageForKey("icon.i"), *testImage());

    EventDocument copy("/nowhere/l.evn");
    ASSERT_TRUE(copy.loadFromContents(document.contentsForType(EventDocument::kFileType), EventDocument::kFileType));
    EXPECT_EQ(copy.fileWrappers(), document.fileWrappers());
    EXPECT_FALSE(copy.loadFromContents(FileWrapper::regularFile({}), EventDocument::kFileType));
    EXPECT_EQ(copy.fileWrappers(), document.fileWrappers());
}

}  // namespace
}  // namespace dayward
