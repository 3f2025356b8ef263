#include "Classes/Interface/Edit/EditTimeView.h"

#include "Classes/Interface/General/Interface.h"
#include "Classes/Interface/Screens/Presenter.h"
#include "Classes/Other/Date/DateParts.h"
#include "platform/Environment.h"
#include "platform/Strings.h"

namespace dayward {

EditTimeView::EditTimeView(std::int64_t minutes, std::function<void(std::int64_t)> done, std::function<void()> remove)
    : minutes_(minutes), done_(std::move(done)) {
    setTitle(localized("Time"));
    std::vector<BarButton> buttons{{BarButton::Role::cancel, localized("Cancel"), [this] { close({}); }}};
    if (remove) buttons.push_back({BarButton::Role::remove, localized("Delete"), [this, remove] { close(remove); }});
    buttons.push_back({BarButton::Role::done, localized("Done"), [this] { close([this] { done_(minutes_); }); }});
    setBarButtons(std::move(buttons));
}

void EditTimeView::close(const std::function<void()>& andThen) {
    const auto self = shared_from_this();
    presenter().dismissPanel(*this);
    if (andThen) andThen();
}

std::vector<TableSection> EditTimeView::makeSections() {
    const Date shown = dateWithMunitesInDay(Environment::current().now(), minutes_);
    TableRow row = dateRow("time", localized("Time"), Interface::descriptionTime(minutes_),
                           {shown, DateContent::Mode::time}, [this](Date date) {
                               minutes_ = munitesInDay(date);
                               reloadData();
                           });
    row.startsFocused = true;
    return {{"time", {}, {}, {std::move(row)}}};
}

}  // namespace dayward
