// In which units and words a countdown is told. At least one unit stays on. Hands its format over each
// time it goes out of sight. Main thread only.
#pragma once

#include <functional>

#include "Classes/Interface/Screens/TableScreen.h"
#include "Classes/Other/Date/HHEventDateFormat.h"

namespace dayward {

class DateFormatViewController final : public TableScreen {
public:
    using Completion = std::function<void(const HHEventDateFormat&)>;

    DateFormatViewController(const HHEventDateFormat& intervalFormat, Completion completionBlock);

    [[nodiscard]] const HHEventDateFormat& intervalFormat() const { return intervalFormat_; }

    void viewWillDisappear(Disappearance why) override;

protected:
    std::vector<TableSection> makeSections() override;

private:
    [[nodiscard]] std::string preview() const;
    void flip(CalendarUnit unit);

    HHEventDateFormat intervalFormat_;
    Completion completionBlock_;
};

}  // namespace dayward
