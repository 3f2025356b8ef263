// An event's document in memory: the files of its package, read whole and written whole.
//
// A package is a directory named by the event's identifier and the store's extension. It holds
// "general.t" (a keyed archive of HHGeneralEventDocumentData), and "icon.i" (PNG) and "background.i"
// (JPEG) where the event has images of its own. Files and directories that are none of these are kept; what
// is neither (a pipe, a link to a directory) is logged and left behind when the package is written. A
// document belongs to the one call that made it.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Classes/Event/FileWrapper.h"
#include "platform/FileSystem.h"
#include "platform/Image.h"
#include "platform/Object.h"
#include "platform/Result.h"

namespace dayward {

class EventDocument {
public:
    static constexpr const char* kGeneralFile = "general.t";
    static constexpr const char* kIconFile = "icon.i";
    static constexpr const char* kBackgroundFile = "background.i";
    static constexpr double kBackgroundQuality = 0.8;
    static constexpr const char* kFileType = "evn";
    /// The error domain for a path that is no package.
    static constexpr const char* kNoFilesDomain = "Нет fileWrappers";

    explicit EventDocument(std::string fileURL) : fileURL_(std::move(fileURL)) {}

    /// The package's path.
    [[nodiscard]] const std::string& fileURL() const { return fileURL_; }
    [[nodiscard]] const FileWrapper::Children& fileWrappers() const { return fileWrappers_; }
    [[nodiscard]] FileWrapper::Children& fileWrappers() { return fileWrappers_; }

    /// A directory of the document's files.
    [[nodiscard]] FileWrapper contentsForType(std::string_view type) const;
    /// Takes a directory's files in place of its own; fails, leaving them, where it is none.
    Result<> loadFromContents(const FileWrapper& contents, std::string_view ofType);

    /// Reads all files of the package. A path that is no directory or cannot be read is an error of
    /// the domain kNoFilesDomain with the last path component as "fileName"; the files stay as they were.
    Result<> readFromURL(const std::string& path);
    /// What a package of the document holds.
    [[nodiscard]] std::vector<PackageFile> packageFiles() const;
    /// Replaces the package whole and durably. On an error what was there stays.
    Result<> writeToURL(const std::string& path) const;

    /// Null where there is no such regular file.
    [[nodiscard]] const Data* dataForKey(std::string_view key) const;
    void setData(Data data, const std::string& forKey);

    /// The value of a file that is a property list; null where it is none.
    [[nodiscard]] Object propertyListForKey(std::string_view key) const;
    /// Only values that a property list can hold: no records, no null inside. False where it is none.
    bool setPropertyList(const Object& value, const std::string& forKey);
    /// The root of a file that is a keyed archive; null where it is none.
    [[nodiscard]] Object valueForKey(std::string_view key) const;
    void setValue(const Object& value, const std::string& forKey);

    /// Null where the file is missing or no image.
    [[nodiscard]] std::shared_ptr<const Image> imageForKey(std::string_view key) const;
    Result<> setImagePNG(const Image& image, const std::string& forKey);
    Result<> setImageJPEG(const Image& image, double compression, const std::string& forKey);

private:
    std::string fileURL_;
    FileWrapper::Children fileWrappers_;
};

}  // namespace dayward
