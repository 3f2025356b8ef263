#include "resources/JSONResource.h"

#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "resources/HHResources.h"

namespace dayward {

std::vector<nlohmann::json> elementsOfResource(std::string_view name) {
    const auto path = HHResources::pathForResource(name, "json");
    if (!path) return {};
    const auto bytes = Environment::current().files().readFile(*path);
    if (!bytes) return {};
    const auto json = nlohmann::json::parse(bytes->begin(), bytes->end(), nullptr, /*allow_exceptions=*/false);
    return json.is_array() ? json.get<std::vector<nlohmann::json>>() : std::vector<nlohmann::json>();
}

}  // namespace dayward
