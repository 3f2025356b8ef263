// Turns the background values of old categories and settings into templates.
#pragma once

#include <memory>

#include "Classes/Category/EventBackgroundTemplate.h"
#include "platform/Object.h"

namespace dayward {

/// A template as it is; a background or an older record as the template that gives the same
/// picture; null for anything else.
std::shared_ptr<EventBackgroundTemplate> backgroundTemplateFromObject(const Object& object);

}  // namespace dayward
