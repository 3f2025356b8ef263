// An event as a text to share.
#pragma once

#include <memory>
#include <string>

namespace dayward {

class HHEvent;

/// "Countdown to NAME", of a shared event whatever its form; "???" for an unnamed one.
std::string shareSubject(const HHEvent& event);

class TextActivitySource {
public:
    explicit TextActivitySource(std::shared_ptr<const HHEvent> event) : event_(std::move(event)) {}

    [[nodiscard]] const std::shared_ptr<const HHEvent>& event() const { return event_; }

    [[nodiscard]] std::string subject() const { return shareSubject(*event_); }
    /// How far away the event is, as of now; a second sentence tells the whole distance in each unit
    /// where the event counts in more than one.
    [[nodiscard]] std::string text() const;

private:
    std::shared_ptr<const HHEvent> event_;
};

}  // namespace dayward
