// One event as JSON text, both ways: what the command line prints and takes. Every field is there in
// both directions; the raw numbers "dateSeconds" and "version" are exact and win over texts.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Classes/Event/HHEvent.h"
#include "platform/Result.h"

namespace dayward {

struct EventJSONOptions {
    /// Adds what is worked out from the event now: "nextDate", "nextDateSeconds", "isComing", "title",
    /// "dateText", "countdown".
    bool computedFields = false;
};

/// A JSON object in one line. Dates are local times with their offset.
std::string eventJSON(const HHEvent& event, const EventJSONOptions& options = {});

/// The event of a JSON object. An absent field has a new event's default, an unknown one is ignored.
/// Text that is no JSON object, or a field of a wrong type or without meaning, is an error of the
/// domain "event json" whose "reason" names the field. An image's "file" is read.
Result<std::shared_ptr<HHEvent>> eventFromJSON(std::string_view text);

}  // namespace dayward
