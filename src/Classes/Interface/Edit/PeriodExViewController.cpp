#include "Classes/Interface/Edit/PeriodExViewController.h"

#include "Classes/Interface/General/Interface.h"
#include "platform/Strings.h"

namespace dayward {

PeriodExViewController::PeriodExViewController(const std::optional<XDIDateInterval>& duration,
                                               Completion completionBlock)
    : picker_(duration ? IntervalPicker(*duration) : IntervalPicker()), completionBlock_(std::move(completionBlock)) {
    setTitle(localized("Duration"));
}

void PeriodExViewController::viewWillDisappear(Disappearance) { completionBlock_(duration()); }

std::vector<TableSection> PeriodExViewController::makeSections() {
    return {{"duration",
             {},
             {},
             {wheelsRow("duration", localized("Duration"), Interface::descriptionDuration(duration()), picker_.wheels(),
                        [this](const std::vector<std::size_t>& rows) {
                            picker_.setRows(rows);
                            reloadData();
                        })}}};
}

}  // namespace dayward
