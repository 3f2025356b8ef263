#include "platform/Object.h"

#include <cmath>
#include <limits>

#include "platform/Archivable.h"

namespace dayward {

namespace {

std::optional<std::int64_t> truncated(double value) {
    constexpr double kLimit = 9223372036854775808.0;
    if (std::isnan(value)) return std::nullopt;
    if (value >= kLimit) return std::numeric_limits<std::int64_t>::max();
    if (value < -kLimit) return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(value);
}

}  // namespace

Object::Object(Array array) : value_(std::move(array)) {}
Object::Object(Dictionary dictionary) : value_(std::move(dictionary)) {}

std::optional<bool> Object::boolean() const {
    if (const auto* truth = std::get_if<bool>(&value_)) return *truth;
    if (const auto* integer = std::get_if<std::int64_t>(&value_)) return *integer != 0;
    if (const auto* real = std::get_if<double>(&value_)) return *real != 0;
    return std::nullopt;
}

std::optional<std::int64_t> Object::integer() const {
    if (const auto* truth = std::get_if<bool>(&value_)) return *truth ? 1 : 0;
    if (const auto* integer = std::get_if<std::int64_t>(&value_)) return *integer;
    if (const auto* real = std::get_if<double>(&value_)) return truncated(*real);
    return std::nullopt;
}

std::optional<double> Object::number() const {
    if (const auto* real = std::get_if<double>(&value_)) return *real;
    if (const auto integer = this->integer()) return static_cast<double>(*integer);
    return std::nullopt;
}

std::optional<Date> Object::date() const {
    const auto* date = std::get_if<Date>(&value_);
    return date ? std::optional(*date) : std::nullopt;
}

std::shared_ptr<Archivable> Object::record() const {
    const auto* record = std::get_if<std::shared_ptr<Archivable>>(&value_);
    return record ? *record : nullptr;
}

std::optional<std::string> Object::stringValue() const {
    const auto* text = string();
    return text ? std::optional(*text) : std::nullopt;
}

bool Object::operator==(const Object& other) const {
    if (const auto own = number()) {
        const auto others = other.number();
        const bool areBothWhole =
            !std::holds_alternative<double>(value_) && !std::holds_alternative<double>(other.value_);
        return areBothWhole ? integer() == other.integer() : own == others;
    }
    const auto left = record();
    const auto right = other.record();
    if (left && right) return left == right || left->isEqual(*right);
    return value_ == other.value_;
}

}  // namespace dayward
