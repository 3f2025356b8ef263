// Events and pictures as JSON values, for sources that build larger documents of them. Private to
// sources that know the JSON library; others use EventJSON.h.
#pragma once

#include <memory>

#include <nlohmann/json.hpp>

#include "Classes/Event/EventJSON.h"
#include "Classes/Event/HHEvent.h"
#include "platform/Archivable.h"
#include "platform/Color.h"
#include "platform/Object.h"
#include "platform/Result.h"

namespace dayward {

using JSON = nlohmann::ordered_json;

JSON eventJSONValue(const HHEvent& event, const EventJSONOptions& options = {});
Result<std::shared_ptr<HHEvent>> eventFromJSONValue(const JSON& value);

/// An icon, a background or a template: {"kind": "named"|"color"|"image"|"document"|"random"|
/// "randomColor", …}; null for none.
JSON pictureJSONValue(const std::shared_ptr<Archivable>& picture);
/// The picture of a JSON value, null for null. `field` names it in errors, `itemKey` is the event whose
/// document is meant.
Result<std::shared_ptr<EventIconPicture>> iconFromJSONValue(const JSON& value, const std::string& field,
                                                            const std::string& itemKey);
Result<std::shared_ptr<EventBackgroundPicture>> backgroundFromJSONValue(const JSON& value, const std::string& field,
                                                                        const std::string& itemKey);

/// A colour's "#RRGGBBAA" does not tell every colour apart; this holds what is needed beside it: the four
/// components where they are no multiples of 1/255, else nothing.
std::optional<JSON> exactColorJSONValue(const Color& color);

/// Any archivable value: plain ones as they are, others as {"archive": base64 of a keyed archive}.
JSON objectJSONValue(const Object& object);
Result<Object> objectFromJSONValue(const JSON& value, const std::string& field);

/// The error of a field that cannot be taken.
std::unexpected<Error> jsonFault(const std::string& field, const std::string& reason);

}  // namespace dayward
