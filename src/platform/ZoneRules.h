// The compiled rules of one time zone: every change of offset as a sorted table, built from a TZif
// file (RFC 8536, versions 1 to 4, "fat" and "slim") and its footer.
//
// The footer's rule is unrolled for one 400-year period of the Gregorian calendar; what lies beyond
// is looked up one or more periods earlier. Instants and local times are whole seconds since 1970,
// within 2^62 of it. Immutable once compiled; any thread, no locks.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/PosixZone.h"
#include "platform/Result.h"

namespace dayward {

class ZoneRules {
public:
    struct Segment {
        std::int64_t start = 0;   ///< first second; the first segment has no start
        std::int32_t offset = 0;  ///< seconds east of UTC
        bool isDaylightSaving = false;
    };

    /// Fails with the domain "time zone" and a "reason" for anything but a sound TZif file.
    static Result<ZoneRules> parse(std::span<const std::uint8_t> bytes);
    static ZoneRules fixed(std::int32_t offset);
    /// The rules of a POSIX TZ text alone, for all times.
    static Result<ZoneRules> ofPosixText(std::string_view text);

    /// The segment around an instant.
    [[nodiscard]] const Segment& at(std::int64_t instant) const { return segments_[indexAt(intoTable(instant))]; }
    /// Seconds east of UTC at an instant.
    [[nodiscard]] std::int32_t offsetAt(std::int64_t instant) const {
        const std::int32_t offset = offsetIn(offsetsOfInstants_, instant);
        return offset != kUnknown ? offset : at(instant).offset;
    }
    /// The offset to subtract from a local time: the first pass of a repeated time, the offset
    /// before the gap for a skipped one.
    [[nodiscard]] std::int32_t offsetOfLocal(std::int64_t local) const {
        const std::int32_t offset = offsetIn(offsetsOfLocals_, local);
        return offset != kUnknown ? offset : searchedOffsetOfLocal(local);
    }
    [[nodiscard]] std::optional<std::int64_t> nextTransitionAfter(std::int64_t instant) const;

private:
    /// The offset over one bucket of the years that matter, so that a look at it is the whole lookup.
    struct Bucket {
        std::int64_t change;  ///< the first second of the offset after
        std::int32_t before, after;
    };
    static constexpr std::int32_t kUnknown = std::numeric_limits<std::int32_t>::min();  ///< search the table
    static constexpr int kBucketShift = 23;                                             ///< about 97 days
    static constexpr std::int64_t kBucketsStart = -2208988800;                          ///< 1900-01-01
    static constexpr std::int64_t kBuckets = 800;                                       ///< up to 2112

    static std::int32_t offsetIn(const std::vector<Bucket>& buckets, std::int64_t seconds) {
        const std::uint64_t index = static_cast<std::uint64_t>(seconds - kBucketsStart) >> kBucketShift;
        if (index >= static_cast<std::uint64_t>(kBuckets)) return kUnknown;
        const Bucket& bucket = buckets[index];
        return seconds < bucket.change ? bucket.before : bucket.after;
    }

    void append(std::int64_t start, std::int32_t offset, bool isDaylightSaving);
    void applyFooter(const PosixZone& footer, bool hasTransitions);
    void finish();
    [[nodiscard]] Bucket bucketOfInstants(std::int64_t start) const;
    [[nodiscard]] Bucket bucketOfLocals(std::int64_t start) const;
    [[nodiscard]] std::int32_t searchedOffsetOfLocal(std::int64_t local) const;
    [[nodiscard]] std::size_t indexAt(std::int64_t instant) const;
    /// Of a local time that is past when the segment begins.
    [[nodiscard]] std::int32_t offsetOfSkipped(std::int64_t local, std::size_t index) const;
    [[nodiscard]] std::int64_t intoTable(std::int64_t seconds) const;

    std::vector<Segment> segments_;
    std::vector<Bucket> offsetsOfInstants_, offsetsOfLocals_;
    std::int32_t greatestOffset_ = 0;
    std::int64_t periodStart_ = 0;   ///< with periodEnd_: the period that repeats
    std::int64_t periodEnd_ = 0;     ///< 0: nothing repeats
    bool repeatsBackwards_ = false;  ///< the rule holds for all times before, too
};

}  // namespace dayward
