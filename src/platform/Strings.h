// The localised string tables: one JSON file per language and table, keys in English. A key that is
// not found is its own text. Immutable once loaded; any thread.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Result.h"

namespace dayward {

class FileSystem;

class Strings {
public:
    static constexpr std::string_view kMainTable = "Main";

    Strings() = default;  ///< no tables: every key is its own text
    /// Reads `directory`/LANGUAGE/TABLE.json for every table there. A language without a directory
    /// has the English tables. Fails with the file's path where one is no flat JSON object of texts.
    static Result<std::shared_ptr<const Strings>> load(const FileSystem& files, const std::string& directory,
                                                       const std::string& language);

    /// The text of a key in a table, or the key itself.
    [[nodiscard]] std::string localized(const std::string& key, std::string_view table = kMainTable) const;
    [[nodiscard]] bool contains(const std::string& key, std::string_view table = kMainTable) const;

private:
    std::map<std::string, std::map<std::string, std::string, std::less<>>, std::less<>> tables_;
};

/// The current environment's text for a key of the main table.
std::string localized(const std::string& key);
/// The same for a key of a named table.
std::string localized(const std::string& key, std::string_view table);

}  // namespace dayward
