// Plain values as a binary property list, for the general files of a document. Private to the folder.
#pragma once

#include <optional>

#include "platform/Data.h"
#include "platform/Object.h"

namespace dayward {

/// Nothing where the value holds something that no property list can: a record, or null.
std::optional<Data> propertyListFromObject(const Object& value);
/// Null for bytes that are no property list, or one that is deeper or larger than any file of a
/// document: reading costs no more than a bounded multiple of the bytes.
Object objectFromPropertyList(const Data& bytes);

}  // namespace dayward
