// What the widget's process stands on: clock, zone, language and the group's defaults, and nothing else of the
// home. It writes nothing. One thread.
//
// The clock stands at the moment that was set last, so that all that is shown is of one moment.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "alerts/AppWidget.h"
#include "platform/Environment.h"

namespace dayward {

class WidgetEvent;

class WidgetSession {
public:
    struct Options {
        std::string home;       ///< empty: $DAYWARD_HOME or the user's directories
        std::string resources;  ///< the program's own files
        std::string zone;       ///< empty: the device's
        std::string locale;     ///< empty: the one chosen in the application, else the user's
        std::string name;       ///< of the program, before its complaints
    };

    /// Nothing is read before reload().
    explicit WidgetSession(Options options);
    ~WidgetSession();

    /// Reads the copy anew, in the zone of now. Where something cannot be read there is one line on standard error,
    /// nothing is shown of it, and the answer is false.
    bool reload();

    void setNow(Date now) { clock_->set(now); }
    /// Of the last reload; that environment is the current one of this thread.
    [[nodiscard]] WidgetType type() const { return type_; }
    [[nodiscard]] const std::vector<std::shared_ptr<WidgetEvent>>& events() const { return events_; }
    /// The file of the group's defaults.
    [[nodiscard]] const std::string& path() const { return path_; }
    /// The zone is the device's and may change.
    [[nodiscard]] bool followsZone() const { return options_.zone.empty(); }

private:
    class Complaints;

    Environment::Services makeServices();

    const Options options_;
    const std::shared_ptr<FixedClock> clock_;
    const std::shared_ptr<Complaints> complaints_;
    const Paths paths_;
    const std::string path_;
    WidgetType type_ = WidgetType::todaysEvents;
    std::vector<std::shared_ptr<WidgetEvent>> events_;
    std::unique_ptr<Environment> environment_;
    std::unique_ptr<EnvironmentScope> scope_;
};

/// The group's defaults of a home.
std::string groupDefaultsPath(const Paths& paths);

}  // namespace dayward
