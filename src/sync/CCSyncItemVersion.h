// The sync version of an item: the wall clock of the device at the moment of its last change, the one
// number by which two copies are compared. An immutable value; any thread.
//
// Archive class "_csy001": the double under "v", seconds since 1970-01-01 00:00:00 UTC, bit for bit.
#pragma once

#include <compare>
#include <memory>
#include <string>
#include <vector>

#include "platform/Archivable.h"
#include "platform/Date.h"

namespace dayward {

class CCSyncItemVersion final : public Archivable {
public:
    static constexpr const char* kArchiveClassName = "_csy001";
    static constexpr const char* kTimeIntervalKey = "v";

    /// A version is always made from a moment; there is no default one.
    CCSyncItemVersion() = delete;
    /// Seconds since 1970.
    explicit CCSyncItemVersion(TimeInterval timeInterval) : timeInterval_(timeInterval) {}
    explicit CCSyncItemVersion(Date date) : timeInterval_(date.secondsSince1970()) {}

    /// Older than anything that a device ever made.
    static CCSyncItemVersion zero() { return CCSyncItemVersion(TimeInterval(0)); }
    /// The present moment of the environment's clock. Not a counter: two calls may give the same.
    static CCSyncItemVersion next();

    /// Seconds since 1970, as stored.
    [[nodiscard]] TimeInterval timeInterval() const { return timeInterval_; }
    [[nodiscard]] Date date() const { return Date::since1970(timeInterval_.seconds()); }
    [[nodiscard]] std::string description() const;

    /// Newer is greater; the same number is the same version. A number that is none is unordered.
    std::partial_ordering operator<=>(const CCSyncItemVersion& other) const {
        return timeInterval_.seconds() <=> other.timeInterval_.seconds();
    }
    bool operator==(const CCSyncItemVersion& other) const {
        return timeInterval_.seconds() == other.timeInterval_.seconds();
    }

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kArchiveClassName}; }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    [[nodiscard]] bool isEqual(const Archivable& other) const override;
    /// An archive without the number reads as the zero version, as a missing double does.
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);

private:
    TimeInterval timeInterval_;
};

/// Makes "_csy001" known.
void registerSyncClasses(ArchiveClasses& classes);

}  // namespace dayward
