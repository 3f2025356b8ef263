#include "resources/FavoriteData.h"

#include <algorithm>

#include "Submodules/CorpLibrary2/Foundation/ArchivedFile.h"
#include "Submodules/CorpLibrary2/Foundation/StandardPaths.h"
#include "platform/Environment.h"
#include "platform/Log.h"

namespace dayward {
namespace {

std::string favoritesPath() { return pathForPrivateFile("favoriteData.dat"); }

Dictionary dictionaryOf(const std::optional<Object>& root) {
    const Dictionary* const known = root ? root->dictionary() : nullptr;
    return known != nullptr ? *known : Dictionary();
}

Array arrayIn(const Dictionary& dictionary, const std::string& key) {
    const auto found = dictionary.find(key);
    const Array* const known = found == dictionary.end() ? nullptr : found->second.array();
    return known != nullptr ? *known : Array();
}

}  // namespace

void FavoriteData::addObject(const Object& object, const std::string& forKey) {
    const auto written = updateArchivedFile(Environment::current(), favoritesPath(), [&](const auto& root) {
        Dictionary favorites = dictionaryOf(root);
        Array objects = arrayIn(favorites, forKey);
        if (const auto known = std::ranges::find(objects, object); known != objects.end()) objects.erase(known);
        objects.insert(objects.begin(), object);
        if (objects.size() > kMost) objects.resize(kMost);
        favorites.insert_or_assign(forKey, std::move(objects));
        return Object(std::move(favorites));
    });
    if (!written) logError(favoritesPath() + ": " + written.error().description());
}

Array FavoriteData::getObjectsForKey(const std::string& key, std::size_t count) {
    const auto root = readArchivedFile(Environment::current(), favoritesPath());
    Array objects = arrayIn(dictionaryOf(root ? *root : std::nullopt), key);
    if (objects.size() > count) objects.resize(count);
    return objects;
}

}  // namespace dayward
