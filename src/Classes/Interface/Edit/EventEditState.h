// The fields of an event while it is edited: copies, none of which touches the event. A plain value.
//
// Several times a day and a rule finer than daily exclude each other; the last change wins.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Classes/Category/EventBackgroundPicture.h"
#include "Classes/Category/EventIconPicture.h"
#include "Classes/Other/Date/HHEventDateFormat.h"
#include "intervals/XDIDateInterval.h"
#include "platform/Color.h"
#include "platform/Date.h"

namespace dayward {

class EventCategory;
class HHEvent;

class EventEditState {
public:
    /// All fields of the event; its category as the store has it, else the default one.
    explicit EventEditState(const HHEvent& event);
    /// Writes all fields through the event's setters; without any time midnight, for an event without
    /// times has no date.
    void writeTo(HHEvent& event) const;

    std::shared_ptr<EventIconPicture> icon;  ///< null means the category's
    std::optional<std::string> name;
    std::shared_ptr<EventCategory> category;
    Date date;
    std::optional<XDIDateInterval> duration;
    bool showAge = false;
    HHEventDateFormat intervalFormat;
    std::vector<XDIDateInterval> alerts;
    std::optional<std::string> soundName;
    std::shared_ptr<EventBackgroundPicture> background;  ///< null means the category's
    std::shared_ptr<EventBackgroundPicture> randomBackground;
    std::optional<std::string> fontName;
    std::optional<Color> textColor;
    std::optional<std::string> note;

    /// Minutes after midnight.
    [[nodiscard]] const std::vector<std::int64_t>& times() const { return times_; }
    /// With more than one a rule finer than daily becomes a daily one.
    void setTimes(std::vector<std::int64_t> times);
    [[nodiscard]] const std::optional<std::string>& rrule() const { return rrule_; }
    /// One finer than daily keeps the first time only.
    void setRrule(std::optional<std::string> rrule);

    /// Whether the rule is plainly yearly, so that the age can be shown.
    [[nodiscard]] bool repeatsYearly() const;

    /// Takes a category; where its background is random, one is picked unless there is one.
    void setCategory(std::shared_ptr<EventCategory> chosen);
    /// Takes the category's background; a random one is picked anew.
    void inheritBackground();

    // The look, as the category completes it.
    [[nodiscard]] std::shared_ptr<EventIconPicture> displayIcon() const;
    [[nodiscard]] std::shared_ptr<EventBackgroundPicture> displayBackground() const;
    [[nodiscard]] std::string displayFont() const;
    [[nodiscard]] Color displayTextColor() const;

private:
    [[nodiscard]] bool repeatsWithinADay() const;
    [[nodiscard]] bool isCategoryRandom() const;

    std::vector<std::int64_t> times_;
    std::optional<std::string> rrule_;
};

}  // namespace dayward
