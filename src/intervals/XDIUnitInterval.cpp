#include "intervals/XDIUnitInterval.h"

#include "intervals/Truncation.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"

namespace dayward {

void XDIUnitInterval::encodeWithCoder(KeyedArchiver& coder) const {
    coder.encodeVersion(kArchiveVersion, kClassName);
    coder.encodeInteger(static_cast<std::int64_t>(unit), kUnitKey);
    coder.encodeInteger(truncated(value), kValueKey);
}

bool XDIUnitInterval::isEqual(const Archivable& other) const {
    const auto* interval = dynamic_cast<const XDIUnitInterval*>(&other);
    return interval != nullptr && *this == *interval;
}

std::shared_ptr<Archivable> XDIUnitInterval::read(KeyedUnarchiver& coder) {
    if (coder.decodeVersion(kClassName).value_or(kArchiveVersion) != kArchiveVersion) return nullptr;
    const auto unit = static_cast<CalendarUnit>(coder.decodeInteger(kUnitKey).value_or(0));
    return std::make_shared<XDIUnitInterval>(unit, static_cast<double>(coder.decodeInteger(kValueKey).value_or(0)));
}

}  // namespace dayward
