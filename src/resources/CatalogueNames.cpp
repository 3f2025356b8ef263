#include "resources/CatalogueNames.h"

#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"
#include "resources/HHResources.h"
#include "resources/JSONResource.h"

namespace dayward {

std::vector<std::string> existingNames(std::string_view catalogue, std::string_view complaint) {
    std::vector<std::string> names;
    for (const auto& entry : elementsOfResource(catalogue)) {
        if (!entry.is_string()) continue;
        auto name = entry.get<std::string>();
        if (HHResources::pathForResource(deletingPathExtension(name), pathExtension(name))) {
            names.push_back(std::move(name));
        } else {
            logError(std::string(complaint) + joinPath(Environment::current().paths().resources, name));
        }
    }
    return names;
}

}  // namespace dayward
