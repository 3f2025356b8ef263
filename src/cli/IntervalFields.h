// An interval as JSON: only its set fields, by name.
#pragma once

#include "cli/Output.h"
#include "intervals/XDIDateInterval.h"

namespace dayward {

JSON intervalFieldsJSON(const XDIDateInterval& interval);

}  // namespace dayward
