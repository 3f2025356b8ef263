// A screen of things to choose from: choices of its own on top, then what was chosen last, then the
// catalogue. A tap commits and closes it. Main thread only.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Classes/Interface/Screens/TableScreen.h"

namespace dayward {

/// A choice beside the catalogue, such as "From the category".
struct GalleryChoice {
    std::string id;
    std::string label;
    bool selected = false;
    std::function<void()> choose;
};

class GalleryViewController : public TableScreen {
protected:
    /// One thing of a grid.
    struct Cell {
        GridItem item;
        std::function<void()> choose;
    };

    GalleryViewController(std::string title, std::vector<GalleryChoice> choices);

    std::vector<TableSection> makeSections() override;
    [[nodiscard]] virtual std::vector<TableSection> galleries() = 0;

    /// A section with one grid of the cells. Without cells it is empty.
    [[nodiscard]] static TableSection gridSection(const std::string& id, std::string header, std::vector<Cell> cells);
    /// Closes the screen after the commit.
    void finish(const std::function<void()>& commit);

private:
    std::vector<GalleryChoice> choices_;
};

/// The heading of what was chosen last.
std::string recentlyChosenHeader();

}  // namespace dayward
