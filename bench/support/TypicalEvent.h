// An event as users have them: its archive has 1.7 KB. And an environment without files or queues, which
// events need to be made and read in.
#pragma once

#include <memory>
#include <string>

#include "Classes/App/ArchiveRegistration.h"
#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Event/HHEvent.h"
#include "platform/Clock.h"
#include "platform/Environment.h"

namespace dayward::bench {

inline Environment& plainEnvironment() {
    static Environment environment([] {
        Environment::Services services;
        services.clock = std::make_shared<FixedClock>(Date::sinceReference(794836800));
        services.archiveClasses = allArchiveClasses();
        return services;
    }());
    static thread_local const EnvironmentScope scope(&environment);
    return environment;
}

/// `number` makes its identifier, name and date its own. An environment must be in scope.
inline HHEvent typicalEvent(int number = 0) {
    const auto interval = [](CalendarUnit unit, double value) { return XDIDateInterval(unit, value); };
    const std::string suffix = std::to_string(number);
    HHEvent event("5D3C5C54-9F0E-4B9F-9F43-" + std::string(12 - suffix.size(), '0') + suffix);
    event.setName("Summer holidays by the sea " + suffix);
    event.setCategoryKey("6A0C0F7E-3B7B-4C3B-8E3F-0F3C1B2A4D5E");
    event.setDate(Date::sinceReference(805000000.25 + 86400.0 * number));
    event.setTimes({540, 1080});
    event.setDuration(interval(CalendarUnit::day, 2));
    event.setRrule("FREQ=YEARLY;INTERVAL=1;UNTIL=20400101T000000Z");
    event.setShowAge(true);
    event.setIntervalFormat({CalendarUnit::day | CalendarUnit::hour, TextStyle::short_});
    event.alerts().list = {interval(CalendarUnit::day, 1), interval(CalendarUnit::hour, 2), XDIDateInterval()};
    event.alerts().soundName = "bell.mp3";
    event.appearance() = HHEventAppearance();
    event.appearance().fontName = "Papyrus";
    event.appearance().textColor = Color{1, 0, 0.5, 1};
    event.setNote(
        "Take the blue bag, the sun cream and the tickets; the train leaves from platform seven. Ask the "
        "neighbour for the flowers, and leave her the key.");
    event.setIcon(std::make_shared<NamedEventIconPicture>("heart4.png"));
    event.setBackground(std::make_shared<ColorEventBackgroundPicture>(Color{0, 1, 0, 0.25}));
    event.setVersion(CCSyncItemVersion(TimeInterval(1795221234.25 + number)));
    return event;
}

}  // namespace dayward::bench
