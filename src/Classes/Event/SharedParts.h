// Lets many events hold once what they have in common: rules, categories, named pictures and colours. One thread.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <unordered_map>

#include "Classes/Event/SharedText.h"

namespace dayward {

class EventBackgroundPicture;
class EventIconPicture;
class HHEvent;

class SharedParts {
public:
    /// Replaces the event's parts by equal ones of earlier events. Nobody else may know the event yet.
    void share(HHEvent& event);

private:
    using Components = std::tuple<double, double, double, double>;

    void share(SharedText& text);

    std::unordered_map<std::string, SharedText> texts_;
    std::unordered_map<std::string, std::shared_ptr<EventIconPicture>> icons_;
    std::unordered_map<std::string, std::shared_ptr<EventBackgroundPicture>> backgrounds_;
    std::map<Components, std::shared_ptr<EventBackgroundPicture>> colors_;
};

}  // namespace dayward
