// The images of event documents that were read, shared by all pictures that load them. One for each
// environment; any thread.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/Image.h"

namespace dayward {

class DocumentImages {
public:
    using Load = std::function<std::shared_ptr<const Image>()>;

    /// The kept image, else what `load` gives, which is kept unless the key was forgotten meanwhile.
    /// Never null: the empty image, which is not kept, where `load` gives null.
    static std::shared_ptr<const Image> image(const std::string& key, const Load& load);
    /// Null where none is kept.
    static std::shared_ptr<const Image> cachedImage(const std::string& key);
    static void forget(const std::string& key);
    static void forgetAll();
};

}  // namespace dayward
