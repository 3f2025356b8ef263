// The program's own JSON files. Private to this folder.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

namespace dayward {

/// The elements of the array in the resource "NAME.json"; none where it is missing, broken or no array.
std::vector<nlohmann::json> elementsOfResource(std::string_view name);
/// The value under a key; `standard` where `entry` is no object or holds no such value.
template <class T>
T valueIn(const nlohmann::json& entry, const char* key, T standard) {
    const auto found = entry.find(key);
    if (found == entry.end()) return standard;
    try {
        return found->get<T>();
    } catch (const nlohmann::json::exception&) {
        return standard;
    }
}
inline std::string textIn(const nlohmann::json& entry, const char* key) { return valueIn(entry, key, std::string()); }

}  // namespace dayward
