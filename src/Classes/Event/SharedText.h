// A text, or none, that equal holders may share: a copy shares it. Immutable; any thread.
#pragma once

#include <memory>
#include <optional>
#include <string>

namespace dayward {

class SharedText {
public:
    SharedText() = default;
    SharedText(std::optional<std::string> text) {  // NOLINT: a text is one
        if (text) text_ = std::make_shared<const std::optional<std::string>>(std::move(text));
    }

    [[nodiscard]] const std::optional<std::string>& value() const {
        static const std::optional<std::string> kNone;
        return text_ ? *text_ : kNone;
    }

private:
    std::shared_ptr<const std::optional<std::string>> text_;
};

}  // namespace dayward
