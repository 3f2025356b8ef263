#include "Classes/Share/ShareViewController.h"

#include <utility>

#include "Classes/Interface/Screens/Presenter.h"
#include "Classes/Share/SharedFile.h"
#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "platform/Strings.h"
#include "platform/UUID.h"

namespace dayward {

ShareViewController::ShareViewController(std::string subject, ShareServices& services)
    : subject_(std::move(subject)), services_(services) {
    setTitle(localized("Share"));
    setBarButtons({{BarButton::Role::cancel, localized("Cancel"), [this] { presenter().dismissPanel(*this); }}});
}

std::vector<TableSection> ShareViewController::makeSections() {
    std::vector<TableSection> sections = contentSections();
    TableSection actions{"actions", {}, {}, {}};
    actions.rows.push_back(actionRow("copy", localized("Copy"), [this] { copyAction(); }));
    actions.rows.push_back(actionRow("save", localized("Save…"), [this] { saveAction(); }));
    actions.rows.push_back(actionRow("mail", localized("Mail"), [this] { mailAction(); }));
    actions.rows.push_back(actionRow("openWith", localized("Open with…"), [this] { openWithAction(); }));
    for (TableRow& row : actions.rows) row.enabled = isReady();
    sections.push_back(std::move(actions));
    return sections;
}

void ShareViewController::copyAction() {
    copy();
    finish(presenter(), {}, localized("Copied"));
}

// The sheet is held: what the user has asked to be saved is saved even if the sheet is closed meanwhile.
void ShareViewController::saveAction() {
    services_.chooseSavePath(fileName(),
                             [this, self = shared_from_this(), &surroundings = presenter()](const std::string& path) {
                                 finish(surroundings, write(path), localized("Saved"));
                             });
}

void ShareViewController::mailAction() {
    const Result<MailDraft> draft = mailDraft();
    if (draft && !draft->attachmentPath.empty() && !services_.mailTakesFiles()) return offerSaveInstead();
    finish(presenter(), draft ? services_.composeMail(*draft) : std::unexpected(draft.error()));
}

void ShareViewController::offerSaveInstead() {
    const auto save = [this, self = shared_from_this()] {
        if (isPresented()) saveAction();
    };
    presenter().alert(
        {localized("The picture cannot be put into a mail."),
         localized("Save it, and add it to the mail yourself."),
         {{localized("Save…"), AlertButton::Role::normal, save}, {localized("Cancel"), AlertButton::Role::cancel}}});
}

void ShareViewController::openWithAction() { finish(presenter(), openWith()); }

Result<> ShareViewController::openWith() const { return services_.openWith(TRY(temporaryFile())); }

Result<> ShareViewController::write(const std::string& path) const {
    const Data content = TRY(fileContent());
    return writeFileAtomically(Environment::current().files(), path, content);
}

Result<std::string> ShareViewController::temporaryFile() const {
    const Data content = TRY(fileContent());
    return writeTemporaryFile(fileName(), content);
}

std::string ShareViewController::fileName() const { return sharedFileName(subject_, fileExtension()); }

void ShareViewController::finish(Presenter& surroundings, const Result<>& done, const std::string& notice) {
    if (!done) {
        surroundings.alert({localized("That could not be done."),
                            done.error().description(),
                            {{localized("OK"), AlertButton::Role::cancel}}});
        return;
    }
    if (!notice.empty()) surroundings.showNotice({.text = notice});
    if (isPresented()) surroundings.dismissPanel(*this);
}

ShareTextViewController::ShareTextViewController(const TextActivitySource& source, ShareServices& services)
    : ShareViewController(source.subject(), services), text_(source.text()) {}

std::vector<TableSection> ShareTextViewController::contentSections() {
    return {{"preview", {}, {}, {textRow("preview", text_)}}};
}

ShareImageViewController::ShareImageViewController(std::shared_ptr<ImageActivitySource> source, ShareServices& services)
    : ShareViewController(source->subject(), services), source_(std::move(source)) {}

void ShareImageViewController::viewDidLoad() {
    ShareViewController::viewDidLoad();
    draw(shape_);
}

std::vector<TableSection> ShareImageViewController::contentSections() {
    return {{"preview", {}, {}, {previewRow()}},
            {"shape", {}, {}, {shapeRow(SharedPictureShape::phone), shapeRow(SharedPictureShape::square)}}};
}

TableRow ShareImageViewController::previewRow() const {
    TableRow row = textRow("preview", {});
    if (!isDrawing_ && !isReady()) return row;
    row.kind = RowKind::picture;
    row.label = isDrawing_ ? localized("Drawing the picture…") : subject();
    row.content = isDrawing_ ? RowPicture() : RowPicture{pictureKey_, [image = source_->image()] { return image; }};
    return row;
}

TableRow ShareImageViewController::shapeRow(SharedPictureShape shape) {
    const char* id = shape == SharedPictureShape::phone ? "phone" : "square";
    return checkRow(id, sharedPictureShapeLabel(shape), shape == shape_, [this, shape] { draw(shape); });
}

void ShareImageViewController::draw(SharedPictureShape shape) {
    shape_ = shape;
    isDrawing_ = true;
    reloadData();
    source_->getScreenshot(shape, services(), [this, weak = weak_from_this()] {
        if (const auto self = weak.lock()) didDraw();
    });
}

void ShareImageViewController::didDraw() {
    isDrawing_ = false;
    pictureKey_ = "share:" + newUUIDString();
    reloadData();
    if (source_->image() || !isPresented()) return;
    presenter().alert(
        {localized("The picture could not be drawn."), {}, {{localized("OK"), AlertButton::Role::cancel}}});
}

Result<MailDraft> ShareImageViewController::mailDraft() const {
    std::string path = TRY(temporaryFile());
    return MailDraft{subject(), {}, std::move(path)};
}

}  // namespace dayward
