#include "platform/Strings.h"

#include <nlohmann/json.hpp>

#include "platform/Environment.h"
#include "platform/FileSystem.h"

namespace dayward {

namespace {

constexpr std::string_view kFallbackLanguage = "en";

using Table = std::map<std::string, std::string, std::less<>>;

/// A language is one plain path component; anything else has the fallback's tables.
bool isSoundLanguage(const std::string& language) {
    return !language.empty() && language.find_first_of("/.") == std::string::npos &&
           language.find('\0') == std::string::npos;
}

Result<Table> readTable(const FileSystem& files, const std::string& path) {
    const Data bytes = TRY(files.readFile(path));
    const auto json = nlohmann::json::parse(bytes, nullptr, /*allow_exceptions=*/false);
    if (!json.is_object()) return failure("strings", 0, {{"path", path}, {"reason", "no JSON object"}});
    Table table;
    for (const auto& [key, text] : json.items()) {
        if (!text.is_string()) return failure("strings", 0, {{"path", path}, {"key", key}, {"reason", "no text"}});
        table.emplace(key, text.get<std::string>());
    }
    return table;
}

}  // namespace

Result<std::shared_ptr<const Strings>> Strings::load(const FileSystem& files, const std::string& directory,
                                                     const std::string& language) {
    std::string tables = joinPath(directory, isSoundLanguage(language) ? language : kFallbackLanguage);
    if (!files.isDirectory(tables)) tables = joinPath(directory, kFallbackLanguage);
    auto strings = std::make_shared<Strings>();
    for (const std::string& name : TRY(files.listDirectory(tables))) {
        if (pathExtension(name) != "json") continue;
        auto table = TRY(readTable(files, joinPath(tables, name)));
        strings->tables_.emplace(deletingPathExtension(name), std::move(table));
    }
    return std::shared_ptr<const Strings>(std::move(strings));
}

std::string Strings::localized(const std::string& key, std::string_view table) const {
    const auto found = tables_.find(table);
    if (found == tables_.end()) return key;
    const auto text = found->second.find(key);
    return text == found->second.end() ? key : text->second;
}

bool Strings::contains(const std::string& key, std::string_view table) const {
    const auto found = tables_.find(table);
    return found != tables_.end() && found->second.contains(key);
}

std::string localized(const std::string& key) { return Environment::current().strings().localized(key); }

std::string localized(const std::string& key, std::string_view table) {
    return Environment::current().strings().localized(key, table);
}

}  // namespace dayward
