// Events for the tests of the list, at noon of 10 March 2026.
#pragma once

#include <gtest/gtest.h>

#include "Classes/App/ArchiveRegistration.h"
#include "Classes/Event/HHEvent.h"
#include "support/TestEnvironment.h"

namespace dayward {

inline TestEnvironment::Options listOptions(std::string locale = "en_US") {
    TestEnvironment::Options options;
    options.locale = std::move(locale);
    options.archiveClasses = allArchiveClasses();
    return options;
}

struct EventSpec {
    std::string key;
    std::string when = "2026-05-01";  ///< day, or day and time
    std::optional<std::string> name = {};
    double hours = 0;  ///< duration
};

inline std::shared_ptr<HHEvent> makeEvent(const TestEnvironment& environment, const EventSpec& spec) {
    auto event = std::make_shared<HHEvent>(spec.key);
    const Date date = environment.at(spec.when);
    const Calendar::Fields fields = (*environment.environment).calendar()->fields(date);
    event->setDate(date);
    event->setTimes({fields.hour * 60 + fields.minute});
    event->setName(spec.name);
    if (spec.hours > 0) {
        XDIDateInterval duration;
        duration.setValue(spec.hours, CalendarUnit::hour);
        event->setDuration(duration);
    }
    return event;
}

}  // namespace dayward
