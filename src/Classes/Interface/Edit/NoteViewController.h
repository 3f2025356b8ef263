// The note of an event. Hands its text over each time it goes out of sight. Main thread only.
#pragma once

#include <functional>
#include <string>

#include "Classes/Interface/Screens/TableScreen.h"

namespace dayward {

class NoteViewController final : public TableScreen {
public:
    using Completion = std::function<void(const std::string&)>;

    NoteViewController(std::string note, Completion completionBlock);

    [[nodiscard]] const std::string& note() const { return note_; }

    void viewWillDisappear(Disappearance why) override;

protected:
    std::vector<TableSection> makeSections() override;

private:
    std::string note_;
    Completion completionBlock_;
};

}  // namespace dayward
