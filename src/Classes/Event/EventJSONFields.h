// The fields of a JSON object, read one by one with errors that name them. Private to the JSON sources.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Classes/Event/EventJSONValue.h"
#include "platform/Color.h"
#include "platform/Result.h"

namespace dayward {

/// A null field counts as absent. A field of another type than asked for is an error.
class JSONFields {
public:
    /// `name` is what errors call the object; empty for the outermost one.
    static Result<JSONFields> of(const JSON& value, std::string name);

    [[nodiscard]] const std::string& name() const { return name_; }
    /// What errors call a field: "alerts.list".
    [[nodiscard]] std::string path(const char* field) const;
    /// Null where it is absent or null.
    [[nodiscard]] const JSON* value(const char* field) const;

    [[nodiscard]] Result<std::optional<std::string>> text(const char* field) const;
    [[nodiscard]] Result<std::optional<bool>> boolean(const char* field) const;
    /// Finite.
    [[nodiscard]] Result<std::optional<double>> number(const char* field) const;
    /// A number without a fraction, in the range of 64 bits.
    [[nodiscard]] Result<std::optional<std::int64_t>> integer(const char* field) const;
    [[nodiscard]] Result<std::optional<std::vector<std::int64_t>>> integers(const char* field) const;
    /// "#RRGGBB" or "#RRGGBBAA"; the four numbers of the second field win.
    [[nodiscard]] Result<std::optional<Color>> color(const char* field, const char* componentsField) const;

private:
    JSONFields(const JSON& value, std::string name) : value_(&value), name_(std::move(name)) {}

    const JSON* value_;
    std::string name_;
};

}  // namespace dayward
