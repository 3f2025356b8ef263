// One of a few values, by a check mark. A tap commits it; the screen stays. Main thread only.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "Classes/Interface/Screens/TableScreen.h"

namespace dayward {

class ChoiceViewController : public TableScreen {
public:
    using Completion = std::function<void(std::size_t)>;

    /// The completion gets the tapped value's place, changed or not.
    ChoiceViewController(std::string title, std::vector<std::string> labels, std::size_t selected,
                         Completion completion, std::string footer = {});

protected:
    std::vector<TableSection> makeSections() override;

private:
    const std::vector<std::string> labels_;
    std::size_t selected_;
    const Completion completion_;
    const std::string footer_;
};

}  // namespace dayward
