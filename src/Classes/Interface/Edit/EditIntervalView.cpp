#include "Classes/Interface/Edit/EditIntervalView.h"

#include "Classes/Interface/General/Interface.h"
#include "Classes/Interface/Screens/Presenter.h"
#include "platform/Strings.h"

namespace dayward {

EditIntervalView::EditIntervalView(std::string title, IntervalPicker picker,
                                   std::function<void(const XDIDateInterval&)> done, std::function<void()> remove)
    : picker_(picker), done_(std::move(done)) {
    setTitle(std::move(title));
    std::vector<BarButton> buttons{{BarButton::Role::cancel, localized("Cancel"), [this] { close({}); }}};
    if (remove) buttons.push_back({BarButton::Role::remove, localized("Delete"), [this, remove] { close(remove); }});
    buttons.push_back(
        {BarButton::Role::done, localized("Done"), [this] { close([this] { done_(picker_.interval()); }); }});
    setBarButtons(std::move(buttons));
}

void EditIntervalView::close(const std::function<void()>& andThen) {
    const auto self = shared_from_this();
    presenter().dismissPanel(*this);
    if (andThen) andThen();
}

std::vector<TableSection> EditIntervalView::makeSections() {
    TableRow row = wheelsRow("interval", title(), Interface::descriptionDuration(picker_.interval()), picker_.wheels(),
                             [this](const std::vector<std::size_t>& rows) {
                                 picker_.setRows(rows);
                                 reloadData();
                             });
    row.startsFocused = true;
    return {{"interval", {}, {}, {std::move(row)}}};
}

}  // namespace dayward
