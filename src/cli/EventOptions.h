// The options of `add` and `edit`, and their application to an event.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Result.h"

namespace CLI {
class App;
}

namespace dayward {

class HHEvent;

/// What the user gave, as texts; what was not given stays nothing. In an edit the word "none" takes a
/// field away.
struct EventOptions {
    std::optional<std::string> name, date, repeat, duration, units, style, category, icon, background, font, textColor,
        note;
    std::vector<std::string> times, alerts;
    bool showAge = false;
    bool hideAge = false;

    void declare(CLI::App& command);
    /// Changes the event by what was given. On an error the event may be changed in part: apply to a copy.
    [[nodiscard]] Result<> apply(HHEvent& event) const;

private:
    [[nodiscard]] Result<> applyDates(HHEvent& event) const;
    [[nodiscard]] Result<> applyAlerts(HHEvent& event) const;
    [[nodiscard]] Result<> applyFormat(HHEvent& event) const;
    [[nodiscard]] Result<> applyCategory(HHEvent& event) const;
    [[nodiscard]] Result<> applyLook(HHEvent& event) const;
};

}  // namespace dayward
