// The peer of reading and writing an event's archive: libplist's parser and writer, and the fields of the
// archive's root record taken from and put into its nodes.
#pragma once

#include <plist/plist.h>

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/Data.h"

namespace dayward::bench {

/// The fields of "general.t" of an event with a named icon and a colour as background.
struct PlistEvent {
    using Interval = std::array<std::optional<std::int64_t>, 7>;
    using Color = std::array<double, 4>;

    std::int64_t type = 0;
    std::string name, category, rrule, note, fontName, soundName, icon;
    double date = 0, version = 0;
    std::vector<std::int64_t> times;
    Interval duration;
    bool showAge = false, iconIsNull = false, backgroundIsNull = false;
    std::int64_t units = 0, textStyle = 0;
    std::vector<Interval> alerts;
    Color textColor{}, background{};
};

PlistEvent plistEventFrom(std::span<const std::uint8_t> archive);
/// The archive in malloc'ed memory, as libplist gives it.
std::pair<char*, std::uint32_t> plistArchive(const PlistEvent& event);

}  // namespace dayward::bench
