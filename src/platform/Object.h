// Any archivable value: what keyed archives, key storages, defaults and notifications carry.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/Data.h"
#include "platform/Date.h"

namespace dayward {

class Archivable;
class Object;

using Array = std::vector<Object>;
using Dictionary = std::map<std::string, Object, std::less<>>;

/// A value, or null. Copies are deep but for records, which are shared. Typed reads answer nothing
/// for another type; numbers read as each other (a real as an integer is truncated toward zero).
class Object {
public:
    using Value = std::variant<std::monostate, bool, std::int64_t, double, std::string, Data, Date, Array, Dictionary,
                               std::shared_ptr<Archivable>>;

    Object() = default;
    Object(std::nullptr_t) {}  // NOLINT: values convert, that is what the type is for
    Object(bool value) : value_(value) {}  // NOLINT
    Object(int value) : value_(static_cast<std::int64_t>(value)) {}  // NOLINT
    Object(std::int64_t value) : value_(value) {}  // NOLINT
    Object(double value) : value_(value) {}  // NOLINT
    Object(const char* text) : value_(std::string(text)) {}  // NOLINT
    Object(std::string_view text) : value_(std::string(text)) {}  // NOLINT
    Object(std::string text) : value_(std::move(text)) {}  // NOLINT
    Object(Data data) : value_(std::move(data)) {}  // NOLINT
    Object(Date date) : value_(date) {}  // NOLINT
    Object(Array array);  // NOLINT
    Object(Dictionary dictionary);  // NOLINT
    template <class T>
        requires std::derived_from<T, Archivable>
    Object(std::shared_ptr<T> record) {  // NOLINT
        if (record) value_ = std::shared_ptr<Archivable>(std::move(record));
    }
    /// An absent value is null.
    template <class T>
    Object(const std::optional<T>& value) {  // NOLINT
        if (value) *this = Object(*value);
    }

    [[nodiscard]] const Value& value() const { return value_; }
    [[nodiscard]] bool isNull() const { return std::holds_alternative<std::monostate>(value_); }

    [[nodiscard]] std::optional<bool> boolean() const;        ///< a boolean, or a number: is it not 0
    [[nodiscard]] std::optional<std::int64_t> integer() const;  ///< any number or boolean; a real out of range is the nearest end, NaN is nothing
    [[nodiscard]] std::optional<double> number() const;       ///< any number or boolean
    [[nodiscard]] const std::string* string() const { return std::get_if<std::string>(&value_); }
    [[nodiscard]] const Data* data() const { return std::get_if<Data>(&value_); }
    [[nodiscard]] std::optional<Date> date() const;
    [[nodiscard]] const Array* array() const { return std::get_if<Array>(&value_); }
    [[nodiscard]] const Dictionary* dictionary() const { return std::get_if<Dictionary>(&value_); }
    [[nodiscard]] std::shared_ptr<Archivable> record() const;
    /// The record where it is of that class, else null.
    template <class T>
    [[nodiscard]] std::shared_ptr<T> as() const {
        const auto* record = std::get_if<std::shared_ptr<Archivable>>(&value_);
        return record ? std::dynamic_pointer_cast<T>(*record) : nullptr;
    }
    [[nodiscard]] std::optional<std::string> stringValue() const;

    /// Same type and same value; records by Archivable::isEqual; 1 and 1.0 and true are equal numbers.
    bool operator==(const Object& other) const;

private:
    Value value_;
};

}  // namespace dayward
