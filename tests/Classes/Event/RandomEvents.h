// Events with fields of any kind, also those that no editor makes.
#pragma once

#include <memory>
#include <random>
#include <string>

#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/ImageEventBackgroundPicture.h"
#include "Classes/Category/ImageEventIconPicture.h"
#include "Classes/Category/NamedEventBackgroundPicture.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Category/PictureTestSupport.h"
#include "Classes/Event/HHEvent.h"

namespace dayward {

class RandomEvents {
public:
    explicit RandomEvents(std::uint32_t seed) : random_(seed) {}

    std::shared_ptr<HHEvent> next() {
        auto event = std::make_shared<HHEvent>("event");
        event->setName(maybe(text()));
        event->setCategoryKey(text());
        event->setDate(Date::sinceReference(number() * 1e10));
        event->setTimes({whole(-100000, 100000), whole(0, 1439)});
        event->setRrule(maybe(text()));
        if (coin()) event->setDuration(interval());
        event->setShowAge(coin());
        event->setIntervalFormat({CalendarUnits::fromMask(whole(0, 65535)), static_cast<TextStyle>(whole(0, 3))});
        setAlerts(*event);
        event->appearance().fontName = maybe(text());
        event->appearance().textColor = maybe(color());
        event->setNote(maybe(text()));
        event->setVersion(CCSyncItemVersion(TimeInterval(number() * 1e10)));
        event->setSourceInfo(object(3));
        setPictures(*event);
        return event;
    }

private:
    void setAlerts(HHEvent& event) {
        event.alerts().soundName = maybe(text());
        if (coin()) return;
        event.alerts().list.emplace();
        for (auto left = whole(0, 3); left > 0; --left) event.alerts().list->push_back(interval());
    }
    void setPictures(HHEvent& event) {
        if (coin()) event.setIcon(std::make_shared<NamedEventIconPicture>(text()));
        if (coin()) event.setBackground(std::make_shared<ColorEventBackgroundPicture>(color()));
        if (coin()) event.setRandomBackground(std::make_shared<NamedEventBackgroundPicture>(text()));
    }

    bool coin() { return random_() % 2 == 0; }
    std::int64_t whole(std::int64_t least, std::int64_t most) {
        return std::uniform_int_distribution<std::int64_t>(least, most)(random_);
    }
    double share() { return std::uniform_real_distribution<double>(0, 1)(random_); }
    double number() { return std::uniform_real_distribution<double>(-1, 1)(random_); }
    /// An archive keeps components within 0 and 1.
    Color color() { return {share(), share(), share(), share()}; }
    std::string text() {
        static const char* const pieces[] = {"a", "Ж", "\n", "\"", "", "日本", "p001", "$null", "😀", "\\"};
        std::string made;
        for (auto left = whole(0, 5); left > 0; --left) made += pieces[whole(0, 9)];
        return made;
    }
    template <class T>
    std::optional<T> maybe(T value) {
        return coin() ? std::optional(std::move(value)) : std::nullopt;
    }
    XDIDateInterval interval() {
        XDIDateInterval made;
        for (const auto unit : {CalendarUnit::year, CalendarUnit::week, CalendarUnit::hour, CalendarUnit::second}) {
            if (coin()) made.setValue(static_cast<double>(whole(-1000000, 1000000)), unit);
        }
        return made;
    }
    Object object(int depth) {
        switch (whole(0, depth > 0 ? 7 : 5)) {
            case 0: return Object();
            case 1: return coin();
            case 2: return whole(INT64_MIN, INT64_MAX);
            case 3: return text();
            case 4: return coin() ? Object(Date::sinceReference(number())) : Object(number());
            case 5: return dataOf(text());
            case 6: return Array{object(depth - 1), object(depth - 1)};
            default: return Dictionary{{"archive" + text(), object(depth - 1)}, {text(), object(depth - 1)}};
        }
    }

    std::mt19937 random_;
};

}  // namespace dayward
