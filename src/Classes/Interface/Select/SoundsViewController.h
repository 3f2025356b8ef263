// Chooses a sound; a tap plays it. Hands the chosen one over, and is silent, when it goes out of sight.
// Main thread only.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "Classes/Interface/Screens/TableScreen.h"

namespace dayward {

class SoundsViewController final : public TableScreen {
public:
    using Completion = std::function<void(const std::optional<std::string>&)>;

    /// No name is the default sound, as in Interface.
    SoundsViewController(std::optional<std::string> selectedSound, Completion completionBlock);

    [[nodiscard]] const std::optional<std::string>& selectedSound() const { return selectedSound_; }

    void viewWillAppear() override;
    void viewWillDisappear(Disappearance why) override;

protected:
    std::vector<TableSection> makeSections() override;

private:
    [[nodiscard]] TableRow soundRow(const std::string& sectionId, const std::string& sound, std::string title);
    void choose(const std::string& sound);

    std::optional<std::string> selectedSound_;
    std::vector<std::string> recent_;  ///< read once for each appearance, so that no row moves under a tap
    bool isChanged_ = false;
    Completion completionBlock_;
};

}  // namespace dayward
