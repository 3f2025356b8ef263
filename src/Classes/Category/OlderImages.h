// What the older picture records share: images that may be absent, and their data in archives.
#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "platform/Data.h"
#include "platform/Image.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/Object.h"

namespace dayward {

using OptionalImage = std::shared_ptr<const Image>;

inline OptionalImage imageFromData(const std::optional<Data>& data) {
    if (!data) return nullptr;
    auto image = Image::decode(*data);
    return image ? std::make_shared<const Image>(*std::move(image)) : nullptr;
}

/// PNG, which loses nothing when a record is saved again; null for no image.
inline Object dataOfImage(const OptionalImage& image) {
    if (!image) return nullptr;
    auto data = image->pngData();
    return data ? Object(*std::move(data)) : Object();
}

inline bool sameImage(const OptionalImage& left, const OptionalImage& right) {
    return left == right || (left && right && *left == *right);
}

}  // namespace dayward
