#include "Classes/Interface/Info/ChoiceViewController.h"

namespace dayward {

ChoiceViewController::ChoiceViewController(std::string title, std::vector<std::string> labels, std::size_t selected,
                                           Completion completion, std::string footer)
    : labels_(std::move(labels)), selected_(selected), completion_(std::move(completion)), footer_(std::move(footer)) {
    setTitle(std::move(title));
}

std::vector<TableSection> ChoiceViewController::makeSections() {
    TableSection section{"choices", {}, footer_, {}};
    for (std::size_t index = 0; index < labels_.size(); ++index) {
        section.rows.push_back(
            checkRow("choice" + std::to_string(index), labels_[index], index == selected_, [this, index] {
                selected_ = index;
                reloadData();
                completion_(index);
            }));
    }
    return {std::move(section)};
}

}  // namespace dayward
