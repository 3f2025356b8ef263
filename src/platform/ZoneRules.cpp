#include "platform/ZoneRules.h"

#include <algorithm>
#include <array>
#include <limits>

#include "platform/CivilDay.h"

namespace dayward {

namespace {

constexpr std::int64_t kDay = 86400;
constexpr std::int64_t kPeriod = 146097 * kDay;  // 400 years: the Gregorian calendar repeats, weekdays included
constexpr std::int64_t kFarthest = std::int64_t{1} << 60;
constexpr std::int32_t kGreatestSaneOffset = 26 * 3600;
constexpr std::size_t kHeaderSize = 44;
constexpr std::size_t kMostSegments = 65535;
/// A yearly rule takes over within these years, so that its 400 years lie in the table. A table that goes on for
/// longer needs none.
constexpr std::int64_t kFirstSaneYear = 1800, kLastSaneYear = 2100;

auto broken(std::string reason) { return failure("time zone", 0, {{"reason", std::move(reason)}}); }

class Bytes {
public:
    explicit Bytes(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    [[nodiscard]] std::size_t left() const { return bytes_.size(); }
    std::span<const std::uint8_t> take(std::size_t count) {
        const auto taken = bytes_.first(count);
        bytes_ = bytes_.subspan(count);
        return taken;
    }
    std::int64_t bigEndian(std::size_t size) {
        std::uint64_t value = 0;
        for (const std::uint8_t byte : take(size)) value = value << 8 | byte;
        return size == 4 ? static_cast<std::int32_t>(static_cast<std::uint32_t>(value))
                         : static_cast<std::int64_t>(value);
    }

private:
    std::span<const std::uint8_t> bytes_;
};

struct Header {
    int version = 1;
    std::size_t utcIndicators = 0, standardIndicators = 0, leapSeconds = 0, transitions = 0, types = 0, nameBytes = 0;

    [[nodiscard]] std::size_t blockSize(std::size_t timeSize) const {
        return transitions * (timeSize + 1) + types * 6 + nameBytes + leapSeconds * (timeSize + 4) +
               standardIndicators + utcIndicators;
    }
};

Result<Header> readHeader(Bytes& bytes, std::size_t timeSize) {
    if (bytes.left() < kHeaderSize) return broken("the header is cut short");
    const auto magic = bytes.take(4);
    if (!std::ranges::equal(magic, std::string_view("TZif"))) return broken("no TZif file");
    const int version = bytes.take(1)[0];
    if (version != 0 && (version < '2' || version > '9')) return broken("unknown version");
    bytes.take(15);
    Header header;
    header.version = version == 0 ? 1 : version - '0';
    for (std::size_t* count : {&header.utcIndicators, &header.standardIndicators, &header.leapSeconds,
                               &header.transitions, &header.types, &header.nameBytes}) {
        *count = static_cast<std::size_t>(static_cast<std::uint32_t>(bytes.bigEndian(4)));
    }
    if (header.types == 0 || header.types > 256) return broken("no local time types, or too many");
    if (header.blockSize(timeSize) > bytes.left()) return broken("the data are cut short");
    return header;
}

struct Block {
    std::vector<std::int64_t> transitions;
    std::vector<std::uint8_t> typeOfTransition;
    std::vector<ZoneRules::Segment> types;
};

Result<Block> readBlock(Bytes& bytes, const Header& header, std::size_t timeSize) {
    if (header.leapSeconds != 0) return broken("the file counts leap seconds");
    Block block;
    for (std::size_t i = 0; i < header.transitions; ++i) {
        const std::int64_t time = std::clamp(bytes.bigEndian(timeSize), -kFarthest, kFarthest);
        if (!block.transitions.empty() && time < block.transitions.back())
            return broken("the transitions are not sorted");
        block.transitions.push_back(time);
    }
    for (const std::uint8_t type : bytes.take(header.transitions)) {
        if (type >= header.types) return broken("a transition to an unknown type");
        block.typeOfTransition.push_back(type);
    }
    for (std::size_t i = 0; i < header.types; ++i) {
        const std::int64_t offset = bytes.bigEndian(4);
        const bool isDaylightSaving = bytes.take(2)[0] != 0;
        if (offset < -kGreatestSaneOffset || offset > kGreatestSaneOffset) return broken("an offset beyond 26 hours");
        block.types.push_back({0, static_cast<std::int32_t>(offset), isDaylightSaving});
    }
    bytes.take(header.nameBytes + header.standardIndicators + header.utcIndicators);
    return block;
}

Result<std::string> readFooter(Bytes& bytes) {
    const auto rest = bytes.take(bytes.left());
    const std::string text(rest.begin(), rest.end());
    const std::size_t end = text.find('\n', 1);
    if (text.empty() || text.front() != '\n' || end == std::string::npos) return broken("the footer is missing");
    return text.substr(1, end - 1);
}

}  // namespace

Result<ZoneRules> ZoneRules::parse(std::span<const std::uint8_t> content) {
    Bytes bytes(content);
    Header header = TRY(readHeader(bytes, 4));
    const std::size_t timeSize = header.version == 1 ? 4 : 8;
    if (header.version > 1) {
        bytes.take(header.blockSize(4));
        header = TRY(readHeader(bytes, 8));
    }
    const Block block = TRY(readBlock(bytes, header, timeSize));
    const std::string footer = header.version == 1 ? std::string() : TRY(readFooter(bytes));

    ZoneRules rules;
    rules.append(std::numeric_limits<std::int64_t>::min(), block.types[0].offset, block.types[0].isDaylightSaving);
    for (std::size_t i = 0; i < block.transitions.size(); ++i) {
        const Segment& type = block.types[block.typeOfTransition[i]];
        rules.append(block.transitions[i], type.offset, type.isDaylightSaving);
    }
    if (!footer.empty()) {
        const auto zone = PosixZone::parse(footer);
        if (!zone) return broken("the footer's rule cannot be read");
        rules.applyFooter(*zone, !block.transitions.empty());
    }
    if (rules.segments_.size() > kMostSegments) return broken("too many transitions");
    rules.finish();
    return rules;
}

ZoneRules ZoneRules::fixed(std::int32_t offset) {
    ZoneRules rules;
    rules.append(std::numeric_limits<std::int64_t>::min(), offset, false);
    rules.finish();
    return rules;
}

Result<ZoneRules> ZoneRules::ofPosixText(std::string_view text) {
    const auto zone = PosixZone::parse(text);
    if (!zone) return broken("no time zone text");
    ZoneRules rules;
    rules.append(std::numeric_limits<std::int64_t>::min(), zone->offset, false);
    rules.applyFooter(*zone, false);
    rules.finish();
    return rules;
}

void ZoneRules::append(std::int64_t start, std::int32_t offset, bool isDaylightSaving) {
    if (!segments_.empty() && segments_.back().start == start) segments_.pop_back();
    if (!segments_.empty() && segments_.back().offset == offset &&
        segments_.back().isDaylightSaving == isDaylightSaving) {
        return;
    }
    segments_.push_back({start, offset, isDaylightSaving});
}

void ZoneRules::applyFooter(const PosixZone& footer, bool hasTransitions) {
    if (!footer.daylightSaving) {
        // The file's last type says the same; where there are no transitions the footer speaks for all times.
        if (!hasTransitions) segments_.front() = {segments_.front().start, footer.offset, false};
        return;
    }
    const std::int64_t last = segments_.back().start;
    if (last >= dayNumberOf(kLastSaneYear + 1, 1, 1) * kDay) return;
    const std::int64_t lastYear = segments_.size() < 2 ? 1970 : civilDayOf(floorDivide(last, kDay)).year;
    const std::int64_t firstYear = std::clamp(lastYear, kFirstSaneYear, kLastSaneYear) - 1;
    const auto& saving = *footer.daylightSaving;
    std::vector<Segment> changes;
    for (std::int64_t year = firstYear; year <= firstYear + 406; ++year) {
        changes.push_back({saving.start.inYear(year) - footer.offset, saving.offset, true});
        changes.push_back({saving.end.inYear(year) - saving.offset, footer.offset, false});
    }
    // A year-round saving time ends when the next year's begins, and the beginning must win.
    std::ranges::sort(changes, [](const Segment& a, const Segment& b) {
        return a.start != b.start ? a.start < b.start : a.isDaylightSaving < b.isDaylightSaving;
    });
    // The last year's end has no beginning behind it that could win.
    const std::int64_t limit = dayNumberOf(firstYear + 405, 1, 1) * kDay;
    for (const Segment& change : changes) {
        const bool isNew = segments_.size() < 2 || change.start > last;
        if (isNew && change.start < limit) append(change.start, change.offset, change.isDaylightSaving);
    }
    periodStart_ = dayNumberOf(firstYear + 3, 1, 1) * kDay;
    periodEnd_ = periodStart_ + kPeriod;
    repeatsBackwards_ = !hasTransitions;
}

void ZoneRules::finish() {
    greatestOffset_ = std::ranges::max(segments_, {}, &Segment::offset).offset;
    for (std::int64_t index = 0; index < kBuckets; ++index) {
        const std::int64_t start = kBucketsStart + (index << kBucketShift);
        offsetsOfInstants_.push_back(bucketOfInstants(start));
        offsetsOfLocals_.push_back(bucketOfLocals(start));
    }
}

ZoneRules::Bucket ZoneRules::bucketOfInstants(std::int64_t start) const {
    constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();
    const std::int64_t end = start + (std::int64_t{1} << kBucketShift);
    const std::int64_t change = nextTransitionAfter(start).value_or(kNever);
    const std::int32_t before = at(start).offset;
    if (change >= end) return {kNever, before, before};
    if (nextTransitionAfter(change).value_or(kNever) < end) return {kNever, kUnknown, kUnknown};
    return {change, before, at(change).offset};
}

/// Clear where one change at most comes near the bucket: the clock shows the offset before it up to the
/// end of the gap or of the first pass.
ZoneRules::Bucket ZoneRules::bucketOfLocals(std::int64_t start) const {
    constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t kMargin = 2 * kDay;
    const std::int64_t end = start + (std::int64_t{1} << kBucketShift) + kMargin;
    const std::int64_t change = nextTransitionAfter(start - kMargin).value_or(kNever);
    const std::int32_t before = at(start - kMargin).offset;
    if (change >= end) return {kNever, before, before};
    if (nextTransitionAfter(change).value_or(kNever) < end) return {kNever, kUnknown, kUnknown};
    const std::int32_t after = at(change).offset;
    return {change + std::max(before, after), before, after};
}

std::size_t ZoneRules::indexAt(std::int64_t instant) const {
    const auto after = std::ranges::upper_bound(segments_, instant, {}, &Segment::start);
    return static_cast<std::size_t>(after - segments_.begin()) - (after == segments_.begin() ? 0 : 1);
}

std::int64_t ZoneRules::intoTable(std::int64_t seconds) const {
    if (periodEnd_ == 0 || (seconds < periodEnd_ && !(repeatsBackwards_ && seconds < periodStart_))) return seconds;
    return periodStart_ + floorModulo(seconds - periodStart_, kPeriod);
}

std::int32_t ZoneRules::searchedOffsetOfLocal(std::int64_t local) const {
    local = intoTable(local);
    std::size_t index = indexAt(local - greatestOffset_);
    // The first segment in which the clock shows this time is the first pass. Where the clock is
    // already past it when a segment begins, the time was skipped, unless the clock soon goes back again.
    for (; index + 1 < segments_.size(); ++index) {
        if (local - segments_[index].offset < segments_[index + 1].start) break;
    }
    const bool skipped = index > 0 && local - segments_[index].offset < segments_[index].start;
    return skipped ? offsetOfSkipped(local, index) : segments_[index].offset;
}

std::int32_t ZoneRules::offsetOfSkipped(std::int64_t local, std::size_t index) const {
    const std::int64_t latest = local + kGreatestSaneOffset;
    for (std::size_t later = index + 1; later < segments_.size() && segments_[later].start <= latest; ++later) {
        const std::int64_t instant = local - segments_[later].offset;
        const bool hasEnded = later + 1 < segments_.size() && instant >= segments_[later + 1].start;
        if (instant >= segments_[later].start && !hasEnded) return segments_[later].offset;
    }
    return segments_[index - 1].offset;
}

std::optional<std::int64_t> ZoneRules::nextTransitionAfter(std::int64_t instant) const {
    const std::int64_t inTable = intoTable(instant);
    for (std::size_t index = indexAt(inTable) + 1; index < segments_.size(); ++index) {
        if (segments_[index].offset == segments_[index - 1].offset) continue;
        const std::int64_t distance = segments_[index].start - inTable;
        if (distance > kPeriod) return std::nullopt;
        return instant + distance;
    }
    return std::nullopt;
}

}  // namespace dayward
