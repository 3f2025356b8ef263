// The directory that the programs of one application group share. A plain value; any thread.
#pragma once

#include <string>

namespace dayward {

class CCApplicationGroup {
public:
    enum class Create { no, yes };

    explicit CCApplicationGroup(std::string groupIdentifier) : identifier(std::move(groupIdentifier)) {}

    std::string identifier;

    /// The group's container, made if missing; where there can be none, the process stops.
    [[nodiscard]] std::string groupDirectory() const;
    /// A directory in it, made on request; where that fails the reason is logged.
    [[nodiscard]] std::string getSubDirectory(const std::string& name, Create create) const;
    [[nodiscard]] std::string documentDirectory() const;
    [[nodiscard]] std::string documentDirectory(const std::string& name) const;
    [[nodiscard]] std::string libraryDirectory() const;
    [[nodiscard]] std::string libraryDirectory(const std::string& name) const;
};

}  // namespace dayward
