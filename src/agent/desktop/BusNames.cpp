#include "agent/desktop/BusNames.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <filesystem>

#include "platform/Paths.h"

namespace dayward {

namespace {

/// FNV-1a: the same in every process and version.
std::uint64_t markOf(const std::string& text) {
    std::uint64_t mark = 0xcbf29ce484222325;
    for (const char letter : text) mark = (mark ^ static_cast<unsigned char>(letter)) * 0x100000001b3;
    return mark;
}

std::string nameIn(const BusHome& home, const std::string& name) {
    if (home.root.empty()) return name;
    std::array<char, 16> digits;
    const auto end = std::to_chars(digits.begin(), digits.end(), markOf(home.directory), 16).ptr;
    return name + ".h" + std::string(static_cast<std::size_t>(digits.end() - end), '0') +
           std::string(digits.begin(), end);
}

std::string absolute(const std::string& path) {
    std::error_code error;
    const auto whole = std::filesystem::weakly_canonical(std::filesystem::absolute(path, error), error);
    return error ? path : whole.string();
}

}  // namespace

BusHome BusHome::of(const std::string& option) {
    const char* const variable = std::getenv("DAYWARD_HOME");
    const std::string root = option.empty() && variable != nullptr ? variable : option;
    return {root.empty() ? root : absolute(root), absolute(Paths::resolve(root, {}).state)};
}

std::string agentBusName(const BusHome& home) { return nameIn(home, "org.dayward.Agent"); }

std::string applicationBusName(const BusHome& home) { return nameIn(home, "org.dayward.Dayward"); }

}  // namespace dayward
