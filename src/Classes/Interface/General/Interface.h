// The texts and small pictures with which the rows of forms tell their values. Class operations in the
// current environment's locale and zone; units agree with their numbers. Main thread only.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Classes/Interface/Screens/TableRow.h"
#include "intervals/TextStyle.h"
#include "intervals/XDIDateInterval.h"
#include "platform/Date.h"

namespace dayward {

class EventBackgroundPicture;
class EventBackgroundTemplate;
class EventIconPicture;
class HHEventDateFormat;

class Interface {
public:
    /// The sound's name that means none.
    static constexpr const char* kSilentSound = "";
    /// Means the default sound, as no name at all and the platform's own name for it do.
    static constexpr const char* kDefaultSound = "Default";

    /// Minutes after midnight: "9:00 AM".
    static std::string descriptionTime(std::int64_t minutes);
    static std::string descriptionTimes(const std::vector<std::int64_t>& times);
    /// The day, with its time where there is one, with all of them below where there are more.
    static std::string descriptionDate(Date date, const std::vector<std::int64_t>& times);
    /// "None" without a duration.
    static std::string descriptionDuration(const std::optional<XDIDateInterval>& duration);
    /// "Never" without a rule and for one that does not repeat.
    static std::string descriptionRRule(const std::optional<std::string>& rrule);
    /// The units' names, and the style unless it is the full one: "Days, Hours (Symbol)".
    static std::string descriptionIntervalFormat(const HHEventDateFormat& format);
    /// "On Event" for an offset of 0.
    static std::string descriptionAlert(const XDIDateInterval& alert);
    /// "None" without alerts.
    static std::string descriptionAlerts(const std::vector<XDIDateInterval>& alerts);
    static std::string descriptionSound(const std::optional<std::string>& soundName);
    static bool isDefaultSound(const std::optional<std::string>& soundName);

    /// "Years" to "Seconds"; empty for any other unit.
    static std::string nameOfUnit(CalendarUnit unit);
    /// "Abbreviation", "Symbol" or "Full".
    static std::string nameOfTextStyle(TextStyle style);

    static RowPicture thumbnailViewForEventIcon(std::shared_ptr<const EventIconPicture> icon);
    static RowPicture thumbnailViewForEventBackground(std::shared_ptr<const EventBackgroundPicture> background);
    static RowPicture thumbnailViewForBackgroundTpl(std::shared_ptr<const EventBackgroundTemplate> tpl);
};

}  // namespace dayward
