#include "Classes/Interface/Select/GalleryViewController.h"

#include "Classes/Interface/Screens/Presenter.h"
#include "platform/Strings.h"

namespace dayward {

std::string recentlyChosenHeader() { return localized("Recently chosen"); }

GalleryViewController::GalleryViewController(std::string title, std::vector<GalleryChoice> choices)
    : choices_(std::move(choices)) {
    setTitle(std::move(title));
}

std::vector<TableSection> GalleryViewController::makeSections() {
    TableSection own{"choices", {}, {}, {}};
    for (const GalleryChoice& choice : choices_) {
        own.rows.push_back(
            checkRow(choice.id, choice.label, choice.selected, [this, commit = choice.choose] { finish(commit); }));
    }
    std::vector<TableSection> sections{std::move(own)};
    for (TableSection& section : galleries()) sections.push_back(std::move(section));
    std::erase_if(sections, [](const TableSection& section) { return section.rows.empty(); });
    return sections;
}

TableSection GalleryViewController::gridSection(const std::string& id, std::string header, std::vector<Cell> cells) {
    TableSection section{id, std::move(header), {}, {}};
    if (cells.empty()) return section;
    GridContent grid;
    for (const Cell& cell : cells) grid.items.push_back(cell.item);
    section.rows.push_back(gridRow(id, section.header, std::move(grid),
                                   [cells = std::move(cells)](std::size_t item) { cells.at(item).choose(); }));
    return section;
}

void GalleryViewController::finish(const std::function<void()>& commit) {
    const auto self = shared_from_this();
    commit();
    if (isPresented()) presenter().pop(*this);
}

}  // namespace dayward
