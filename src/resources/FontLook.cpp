#include "resources/FontLook.h"

#include <algorithm>

#include "platform/Environment.h"
#include "resources/JSONResource.h"

namespace dayward {
namespace {

std::vector<FontLook> readLooks() {
    std::vector<FontLook> looks;
    for (const auto& entry : elementsOfResource("fontData")) {
        if (textIn(entry, "name").empty()) continue;
        looks.push_back({textIn(entry, "name"), textIn(entry, "title"), textIn(entry, "family"), valueIn(entry, "weight", 400),
                         valueIn(entry, "italic", false), valueIn(entry, "smallCaps", false), textIn(entry, "fallback"),
                         textIn(entry, "package")});
    }
    return looks;
}

struct FontLooks {
    explicit FontLooks(Environment&) {}
    const std::vector<FontLook> all = readLooks();
};

}  // namespace

const std::vector<FontLook>& FontLook::all() { return Environment::current().shared<FontLooks>().all; }

std::optional<FontLook> FontLook::named(std::string_view name) {
    const auto found = std::ranges::find(all(), name, &FontLook::name);
    return found == all().end() ? std::nullopt : std::optional(*found);
}

std::string FontLook::titleOf(std::string_view name) {
    const auto look = named(name);
    return look && !look->title.empty() ? look->title : std::string(name);
}

}  // namespace dayward
