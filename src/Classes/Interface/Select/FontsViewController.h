// Chooses a font. Main thread only.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "Classes/Interface/Select/GalleryViewController.h"

namespace dayward {

class FontsViewController final : public GalleryViewController {
public:
    using Completion = std::function<void(const std::string&)>;

    FontsViewController(std::optional<std::string> selectedFont, std::vector<GalleryChoice> choices,
                        Completion completionBlock);

protected:
    std::vector<TableSection> galleries() override;

private:
    [[nodiscard]] TableSection section(const std::string& id, std::string header,
                                       const std::vector<std::string>& fonts);

    std::optional<std::string> selectedFont_;
    Completion completionBlock_;
};

}  // namespace dayward
