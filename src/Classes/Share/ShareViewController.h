// The share sheet, a panel: what is shared, and what can be done with it.
//
// Sections "preview" (the text, or the picture once it is drawn), "shape" of a picture, and "actions": copy,
// save, mail, open with. An action closes the sheet when it is done; one that fails says why, and the sheet stays.
// Main thread only.
#pragma once

#include <memory>
#include <string>

#include "Classes/Interface/Screens/TableScreen.h"
#include "Classes/Share/ImageActivitySource.h"
#include "Classes/Share/TextActivitySource.h"

namespace dayward {

class ShareViewController : public TableScreen {
protected:
    /// The services are not owned.
    ShareViewController(std::string subject, ShareServices& services);

    std::vector<TableSection> makeSections() override;

    [[nodiscard]] ShareServices& services() const { return services_; }
    [[nodiscard]] const std::string& subject() const { return subject_; }
    /// The file where other programs may read it for a day.
    [[nodiscard]] Result<std::string> temporaryFile() const;

    [[nodiscard]] virtual std::vector<TableSection> contentSections() = 0;
    /// Whether there is something to share yet.
    [[nodiscard]] virtual bool isReady() const = 0;
    virtual void copy() = 0;
    [[nodiscard]] virtual Result<MailDraft> mailDraft() const = 0;
    [[nodiscard]] virtual const char* fileExtension() const = 0;
    [[nodiscard]] virtual Result<Data> fileContent() const = 0;

private:
    void copyAction();
    void saveAction();
    void mailAction();
    void offerSaveInstead();
    void openWithAction();
    Result<> openWith() const;
    Result<> write(const std::string& path) const;
    [[nodiscard]] std::string fileName() const;
    /// Closes the sheet, where it is still open, with a word in passing, or says what failed.
    void finish(Presenter& surroundings, const Result<>& done, const std::string& notice = {});

    const std::string subject_;
    ShareServices& services_;
};

class ShareTextViewController final : public ShareViewController {
public:
    ShareTextViewController(const TextActivitySource& source, ShareServices& services);

protected:
    std::vector<TableSection> contentSections() override;
    bool isReady() const override { return true; }
    void copy() override { services().copyText(text_); }
    Result<MailDraft> mailDraft() const override { return MailDraft{subject(), text_, {}}; }
    const char* fileExtension() const override { return "txt"; }
    Result<Data> fileContent() const override { return Data(text_.begin(), text_.end()); }

private:
    const std::string text_;  ///< as of the sheet's opening
};

class ShareImageViewController final : public ShareViewController {
public:
    ShareImageViewController(std::shared_ptr<ImageActivitySource> source, ShareServices& services);

    void viewDidLoad() override;

protected:
    std::vector<TableSection> contentSections() override;
    bool isReady() const override { return !isDrawing_ && source_->image() != nullptr; }
    void copy() override { services().copyImage(source_->image()); }
    Result<MailDraft> mailDraft() const override;
    const char* fileExtension() const override { return "png"; }
    Result<Data> fileContent() const override { return source_->image()->pngData(); }

private:
    [[nodiscard]] TableRow previewRow() const;
    [[nodiscard]] TableRow shapeRow(SharedPictureShape shape);
    void draw(SharedPictureShape shape);
    void didDraw();

    const std::shared_ptr<ImageActivitySource> source_;
    SharedPictureShape shape_ = SharedPictureShape::phone;
    bool isDrawing_ = false;
    std::string pictureKey_;  ///< of the present drawing
};

}  // namespace dayward
