#include "intervals/XDIDateInterval.h"

#include "intervals/Truncation.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"

namespace dayward {

namespace {

struct Field {
    CalendarUnit unit;
    double XDIDateInterval::*value;
    const char* key;
    double seconds;
};

// In the order of the archive, biggest first.
constexpr std::array kFields = {
    Field{CalendarUnit::year, &XDIDateInterval::year, XDIDateInterval::kYearKey, 31556926},
    Field{CalendarUnit::month, &XDIDateInterval::month, XDIDateInterval::kMonthKey, 2629743.83},
    Field{CalendarUnit::week, &XDIDateInterval::week, XDIDateInterval::kWeekKey, 604800},
    Field{CalendarUnit::day, &XDIDateInterval::day, XDIDateInterval::kDayKey, 86400},
    Field{CalendarUnit::hour, &XDIDateInterval::hour, XDIDateInterval::kHourKey, 3600},
    Field{CalendarUnit::minute, &XDIDateInterval::minute, XDIDateInterval::kMinuteKey, 60},
    Field{CalendarUnit::second, &XDIDateInterval::second, XDIDateInterval::kSecondKey, 1},
};

const Field* fieldOf(CalendarUnit unit) {
    for (const Field& field : kFields) {
        if (field.unit == unit) return &field;
    }
    return nullptr;
}

bool isSetValue(double value) { return value != XDIDateInterval::kUnset; }

const Field* firstSet(const XDIDateInterval& interval) {
    for (const Field& field : kFields) {
        if (isSetValue(interval.*field.value)) return &field;
    }
    return nullptr;
}

}  // namespace

XDIDateInterval::XDIDateInterval(const DateComponents& components) {
    for (const Field& field : kFields) {
        if (const auto& component = *components.field(field.unit)) this->*field.value = static_cast<double>(*component);
    }
}

double XDIDateInterval::valueForUnit(CalendarUnit unit) const {
    const Field* field = fieldOf(unit);
    return field == nullptr ? 0.0 : this->*field->value;
}

void XDIDateInterval::setValue(double value, CalendarUnit forUnit) {
    if (const Field* field = fieldOf(forUnit)) this->*field->value = value;
}

CalendarUnit XDIDateInterval::getSingleUnit() const {
    const Field* field = firstSet(*this);
    return field == nullptr ? CalendarUnit{} : field->unit;
}

double XDIDateInterval::getSingleValue() const {
    const Field* field = firstSet(*this);
    return field == nullptr ? 0.0 : this->*field->value;
}

CalendarUnits XDIDateInterval::getUnits() const {
    CalendarUnits units;
    for (const Field& field : kFields) {
        if (isSetValue(this->*field.value)) units |= field.unit;
    }
    return units;
}

DateComponents XDIDateInterval::dateComponentsWithMultiplier(double multiplier) const {
    DateComponents components;
    for (const Field& field : kFields) {
        const double value = this->*field.value;
        if (isSetValue(value)) *components.field(field.unit) = truncated(value * multiplier);
    }
    return components;
}

TimeInterval XDIDateInterval::timeInterval() const {
    double seconds = 0;
    for (const Field& field : kFields) {
        const double value = this->*field.value;
        if (isSetValue(value)) seconds += value * field.seconds;
    }
    return TimeInterval(seconds);
}

std::partial_ordering XDIDateInterval::compare(const XDIDateInterval& other) const {
    const auto orZero = [](double value) { return isSetValue(value) ? value : 0.0; };
    for (const Field& field : kFields) {
        const double mine = orZero(this->*field.value), others = orZero(other.*field.value);
        if (mine > others) return std::partial_ordering::greater;
        if (mine < others) return std::partial_ordering::less;
    }
    return std::partial_ordering::equivalent;
}

void XDIDateInterval::encodeWithCoder(KeyedArchiver& coder) const {
    coder.encodeVersion(kArchiveVersion, kClassName);
    for (const Field& field : kFields) {
        const double value = this->*field.value;
        if (isSetValue(value)) coder.encodeInteger(truncated(value), field.key);
    }
}

bool XDIDateInterval::isEqual(const Archivable& other) const {
    const auto* interval = dynamic_cast<const XDIDateInterval*>(&other);
    return interval != nullptr && *this == *interval;
}

std::shared_ptr<Archivable> XDIDateInterval::read(KeyedUnarchiver& coder) {
    if (coder.decodeVersion(kClassName).value_or(kArchiveVersion) != kArchiveVersion) return nullptr;
    auto interval = std::make_shared<XDIDateInterval>();
    for (const Field& field : kFields) {
        if (const auto value = coder.decodeInteger(field.key))
            interval.get()->*field.value = static_cast<double>(*value);
    }
    return interval;
}

}  // namespace dayward
