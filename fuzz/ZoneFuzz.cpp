// Zone files and POSIX zone texts: the first byte chooses. A table must be sound at every kind of instant.
#include "platform/ZoneRules.h"
#include "support/Fuzz.h"

namespace {

using dayward::ZoneRules;

constexpr std::int64_t kFarthest = (std::int64_t{1} << 62) - 100 * 3600;

void checkInstant(const ZoneRules& rules, std::int64_t instant) {
    const std::int64_t local = instant + rules.at(instant).offset;
    dayward::require(rules.offsetAt(instant) == rules.at(instant).offset, "an instant has one offset");
    const std::int64_t firstPass = local - rules.offsetOfLocal(local);
    dayward::require(firstPass <= instant, "a local time means its first pass");
    dayward::require(firstPass + rules.at(firstPass).offset == local,
                     "a local time that is shown leads to itself");
}

void walk(const ZoneRules& rules, std::int64_t from) {
    std::optional<std::int64_t> at = from;
    for (int left = 50; left > 0 && at; --left) {
        for (const std::int64_t distance : {-3600, -1, 0, 1, 3600}) checkInstant(rules, *at + distance);
        const auto next = rules.nextTransitionAfter(*at);
        if (!next) return;
        dayward::require(*next > *at, "changes come after the instant asked for");
        dayward::require(rules.at(*next).offset != rules.at(*next - 1).offset, "a change of offset is one");
        at = next;
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    dayward::FuzzInput input(bytes, size);
    const bool isText = input.number(1) % 2 != 0;
    const std::int64_t asked = input.number(8);
    const dayward::Data content = input.rest();
    const auto rules = isText ? ZoneRules::ofPosixText(dayward::textOf(content)) : ZoneRules::parse(content);
    if (!rules) {
        dayward::require(!rules.error().description().empty(), "an error says why");
        return 0;
    }
    for (const std::int64_t start :
         {-kFarthest, std::int64_t{-5364662400}, std::int64_t{0}, std::int64_t{17000000000},
          asked % (std::int64_t{1} << 40), asked % kFarthest, kFarthest})
        walk(*rules, start);
    return 0;
}
