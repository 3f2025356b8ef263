// An amount of one calendar unit. A plain value; its archive truncates the amount toward zero.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/Archivable.h"
#include "platform/CalendarUnit.h"

namespace dayward {

class XDIUnitInterval final : public Archivable {
public:
    static constexpr const char* kClassName = "XDIUnitInterval";
    static constexpr const char* kUnitKey = "unit";
    static constexpr const char* kValueKey = "value";
    static constexpr std::int64_t kArchiveVersion = 0;

    CalendarUnit unit{};  ///< any number may come from an archive
    double value = 0;

    XDIUnitInterval() = default;
    XDIUnitInterval(CalendarUnit ofUnit, double andValue) : unit(ofUnit), value(andValue) {}

    bool operator==(const XDIUnitInterval& other) const { return unit == other.unit && value == other.value; }

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kClassName}; }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    [[nodiscard]] bool isEqual(const Archivable& other) const override;
    /// Null for a version other than 0; a missing key reads as 0.
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);
};

}  // namespace dayward
