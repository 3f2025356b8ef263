// Chooses a colour. Main thread only.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "Classes/Interface/Select/GalleryViewController.h"
#include "platform/Color.h"

namespace dayward {

class ColorsViewController final : public GalleryViewController {
public:
    using Completion = std::function<void(const Color&)>;

    ColorsViewController(std::string title, std::optional<Color> selectedColor, std::vector<GalleryChoice> choices,
                         Completion completionBlock);

protected:
    std::vector<TableSection> galleries() override;

private:
    [[nodiscard]] TableSection section(const std::string& id, std::string header, const std::vector<Color>& colors);

    std::optional<Color> selectedColor_;
    Completion completionBlock_;
};

}  // namespace dayward
