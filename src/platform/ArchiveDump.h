// The debugger of the keyed-archive format: any archive as JSON, class names and keys as stored.
#pragma once

#include <string>

#include "platform/Data.h"
#include "platform/Result.h"

namespace dayward {

/// Indented JSON text of the archive: each object is a JSON object with "$class" and its keys in
/// stored order; arrays, dictionaries and scalars in their natural form, dates as
/// {"$date": seconds}, data as {"$data": base64}; a circular reference is {"$ref": number of the
/// object in "$objects"}. Fails like KeyedUnarchiver.
Result<std::string> archiveAsJSON(const Data& archive);

}  // namespace dayward
