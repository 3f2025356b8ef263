// Short texts that a user, a command line, a catalogue or a folder's names give: moments, times of day,
// intervals, alerts, units, colours, numbers, formats, and names of conflict copies.
#include "cli/Arguments.h"
#include "intervals/ISODate.h"
#include "intervals/XDIFormatter.h"
#include "platform/Environment.h"
#include "platform/PercentFormat.h"
#include "support/Fuzz.h"
#include "support/TestEnvironment.h"
#include "sync/FileVersions.h"

namespace {

using namespace dayward;

/// Null for an error, which says something.
template <class T>
const T* valueOf(const Result<T>& result) {
    if (result) return &*result;
    require(!result.error().description().empty(), "an error says why");
    return nullptr;
}

void checkMoment(const std::string& text) {
    const auto date = dateFromISOText(text);
    const auto moment = parseMoment(text);
    (void)valueOf(moment);
    if (!date) return;
    require(moment && *moment == *date, "an ISO date is a moment", text);
    const auto again = dateFromISOText(isoText(*date));
    require(again && isoText(*again) == isoText(*date), "a written date is read", isoText(*date));
}

void checkInterval(const Result<XDIDateInterval>& parsed) {
    const auto* interval = valueOf(parsed);
    if (interval == nullptr) return;
    (void)interval->dateComponents();
    (void)interval->timeInterval();
    for (const TextStyle style : {TextStyle::number, TextStyle::full})
        require(interval->isSet() != XDIFormatter::stringForDateInterval(*interval, style).empty(),
                "a set interval has words");
}

void checkArguments(const std::string& text) {
    const auto time = parseTimeOfDay(text);
    if (const auto* minutes = valueOf(time))
        require(parseTimeOfDay(timeOfDayText(*minutes)) == *minutes, "a written time of day is read", text);
    const auto repeat = parseRepeat(text);
    if (const auto* rule = valueOf(repeat); rule != nullptr && *rule) {
        // Numbers are cut to 16 bits when they are written, which may bring them out of order once.
        const auto again = parseRepeat(parseRepeat(**rule).value().value());
        require(again && parseRepeat(**again).value() == *again, "a rule in its normal form stays", text);
    }
    const auto color = parseColor(text);
    if (const auto* value = valueOf(color))
        require(parseColor(value->hex())->hex() == value->hex(), "a written color is read");
    checkInterval(parseInterval(text));
    checkInterval(parseAlert(text));
    (void)valueOf(parseUnits(text));
    (void)valueOf(parseTextStyle(text));
    (void)valueOf(parseInteger(text, -100, INT64_MAX));
}

void checkConflictCopy(const std::string& name) {
    const std::string original = originalNameOfConflictCopy(name);
    require(original.size() < name.size() || original.empty(), "a conflict copy has a longer name", name);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const TestEnvironment environment({.zone = "America/New_York"});
    const std::string text = FuzzInput(bytes, size).text();
    checkMoment(text);
    checkArguments(text);
    checkConflictCopy(text);
    const std::string plain = formatText(text, {});
    require(plain.size() <= text.size(), "a format without arguments does not grow", text);
    (void)formatText(text, {"%1$@", "%@"});
    return 0;
}
