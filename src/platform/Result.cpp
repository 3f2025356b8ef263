#include "platform/Result.h"

namespace dayward {

std::string Error::description() const {
    std::string text = domain;
    if (code != 0) text += " (" + std::to_string(code) + ")";
    for (const auto& [key, value] : userInfo) text += ", " + key + ": " + value;
    return text;
}

}  // namespace dayward
