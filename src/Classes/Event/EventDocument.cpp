#include "Classes/Event/EventDocument.h"

#include "Classes/Event/PropertyListFile.h"
#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/Log.h"

namespace dayward {
namespace {

std::unexpected<Error> noFiles(const std::string& path, std::string reason) {
    return failure(EventDocument::kNoFilesDomain, 0,
                   {{"fileName", lastPathComponent(path)}, {"path", path}, {"reason", std::move(reason)}});
}

Result<FileWrapper::Children> readChildren(const FileSystem& files, const std::string& directory);

/// The entry's wrapper; nothing for what is no file and no directory, or a link to one or to nowhere: a package has
/// no use for it, and it must not stand in the way of reading the rest.
Result<std::optional<FileWrapper>> readWrapper(const FileSystem& files, const std::string& path) {
    const auto status = TRY(files.status(path));
    if (status && status->kind == FileStatus::Kind::file) return FileWrapper::regularFile(TRY(files.readFile(path)));
    if (status && status->kind == FileStatus::Kind::directory && !files.isLink(path))
        return FileWrapper::directory(TRY(readChildren(files, path)));
    logError(path + " is neither a file nor a directory: it goes when its package is written");
    return std::nullopt;
}

Result<FileWrapper::Children> readChildren(const FileSystem& files, const std::string& directory) {
    FileWrapper::Children children;
    for (const auto& name : TRY(files.listDirectory(directory))) {
        auto wrapper = TRY(readWrapper(files, joinPath(directory, name)));
        if (wrapper) children.emplace(name, *std::move(wrapper));
    }
    return children;
}

void appendFiles(const FileWrapper::Children& children, const std::string& prefix, std::vector<PackageFile>& files) {
    for (const auto& [name, wrapper] : children) {
        if (const Data* bytes = wrapper.regularFileContents()) {
            files.push_back({prefix + name, *bytes});
        } else {
            files.push_back({prefix + name + "/", {}});
            appendFiles(*wrapper.fileWrappers(), prefix + name + "/", files);
        }
    }
}

}  // namespace

FileWrapper EventDocument::contentsForType(std::string_view) const { return FileWrapper::directory(fileWrappers_); }

Result<> EventDocument::loadFromContents(const FileWrapper& contents, std::string_view) {
    const auto* children = contents.fileWrappers();
    if (!children) return noFiles(fileURL_, "no directory");
    fileWrappers_ = *children;
    return {};
}

Result<> EventDocument::readFromURL(const std::string& path) {
    auto children = readChildren(Environment::current().files(), path);
    if (!children) return noFiles(path, children.error().description());
    return loadFromContents(FileWrapper::directory(*std::move(children)), kFileType);
}

std::vector<PackageFile> EventDocument::packageFiles() const {
    std::vector<PackageFile> content;
    appendFiles(fileWrappers_, "", content);
    return content;
}

Result<> EventDocument::writeToURL(const std::string& path) const {
    return writePackageAtomically(Environment::current().files(), path, packageFiles());
}

const Data* EventDocument::dataForKey(std::string_view key) const {
    const auto found = fileWrappers_.find(key);
    return found == fileWrappers_.end() ? nullptr : found->second.regularFileContents();
}

void EventDocument::setData(Data data, const std::string& forKey) {
    fileWrappers_.insert_or_assign(forKey, FileWrapper::regularFile(std::move(data)));
}

Object EventDocument::propertyListForKey(std::string_view key) const {
    const Data* data = dataForKey(key);
    return data ? objectFromPropertyList(*data) : Object();
}

bool EventDocument::setPropertyList(const Object& value, const std::string& forKey) {
    auto data = propertyListFromObject(value);
    if (!data) return false;
    setData(*std::move(data), forKey);
    return true;
}

Object EventDocument::valueForKey(std::string_view key) const {
    const Data* data = dataForKey(key);
    if (!data) return nullptr;
    return KeyedUnarchiver::unarchiveObjectWithData(*data).value_or(Object());
}

void EventDocument::setValue(const Object& value, const std::string& forKey) {
    setData(KeyedArchiver::archivedDataWithRootObject(value), forKey);
}

std::shared_ptr<const Image> EventDocument::imageForKey(std::string_view key) const {
    const Data* data = dataForKey(key);
    if (!data) return nullptr;
    auto image = Image::decode(*data);
    return image ? std::make_shared<const Image>(*std::move(image)) : nullptr;
}

Result<> EventDocument::setImagePNG(const Image& image, const std::string& forKey) {
    setData(TRY(image.pngData()), forKey);
    return {};
}

Result<> EventDocument::setImageJPEG(const Image& image, double compression, const std::string& forKey) {
    setData(TRY(image.jpegData(compression)), forKey);
    return {};
}

}  // namespace dayward
