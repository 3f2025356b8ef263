// The source tables of the catalogues: JSON files with groups of items, in the order of the gallery.
//
//   {"groups": [{"name": GROUP, "items": [{"file": FILE, "name": NAME, …how it is made…}, …]}, …], …}
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace dayward::generator {

using Json = nlohmann::ordered_json;

struct Catalogue {
    Json table;
    std::vector<Json> items;  ///< of all groups

    /// Throws std::exception where the file is no such table.
    static Catalogue read(const std::string& path);

    /// Calls `make` for each item, on all processors at once. The first failure ends it and is thrown
    /// on, with the item's file name.
    void forEach(const std::function<void(const Json& item)>& make) const;

    /// Writes what the program reads: the file names as `directory`/STEMData.json, and the groups with
    /// the names of their items as `directory`/STEMGroups.json.
    void writeIndex(const std::string& directory, const std::string& stem) const;
};

/// Replaces the file. Throws std::runtime_error with the path where it cannot be written.
void writeFile(const std::string& path, const void* bytes, std::size_t count);

/// The body of a generator's main: calls `run` with the arguments, or says how to call the program or
/// what went wrong.
int runGenerator(int count, char** arguments, const std::string& usage, std::size_t wanted,
                 const std::function<void(const std::vector<std::string>&)>& run);

}  // namespace dayward::generator
