// A file or a directory of files in memory. A copyable value.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <variant>

#include "platform/Data.h"

namespace dayward {

class FileWrapper {
public:
    using Children = std::map<std::string, FileWrapper, std::less<>>;

    static FileWrapper regularFile(Data contents) { return FileWrapper(std::move(contents)); }
    static FileWrapper directory(Children children) { return FileWrapper(std::move(children)); }

    /// Null for a directory.
    [[nodiscard]] const Data* regularFileContents() const { return std::get_if<Data>(&content_); }
    /// Null for a regular file.
    [[nodiscard]] const Children* fileWrappers() const { return std::get_if<Children>(&content_); }

    bool operator==(const FileWrapper&) const = default;

private:
    explicit FileWrapper(std::variant<Data, Children> content) : content_(std::move(content)) {}

    std::variant<Data, Children> content_;
};

}  // namespace dayward
