#include "Classes/Interface/Edit/DateTimesViewController.h"

#include <algorithm>

#include "Classes/Interface/Edit/EditTimeView.h"
#include "Classes/Interface/General/Interface.h"
#include "Classes/Interface/Screens/Presenter.h"
#include "Classes/Other/Date/DateParts.h"
#include "platform/Environment.h"
#include "platform/Strings.h"

namespace dayward {

DateTimesViewController::DateTimesViewController(Date date, const std::vector<std::int64_t>& times,
                                                 std::weak_ptr<DateTimesViewControllerDelegate> delegate)
    : date_(date), delegate_(std::move(delegate)) {
    for (const std::int64_t minutes : times) entries_.push_back({nextSerial_++, minutes});
    setTitle(localized("Date"));
    setBarButtons({{BarButton::Role::today, localized("Today"), [this] {
                        date_ = Environment::current().now();
                        reloadData();
                    }}});
}

std::vector<std::int64_t> DateTimesViewController::tableTimes() const {
    std::vector<std::int64_t> times;
    for (const Entry& entry : entries_) times.push_back(entry.minutes);
    return times;
}

void DateTimesViewController::viewWillDisappear(Disappearance) {
    if (const auto delegate = delegate_.lock()) delegate->completeWithDate(*this, date_, tableTimes());
}

std::vector<TableSection> DateTimesViewController::makeSections() {
    TableSection day{"date", {}, {}, {}};
    day.rows.push_back(dateRow("date", localized("Date"), Interface::descriptionDate(date_, {}),
                               {date_, DateContent::Mode::date}, [this](Date date) {
                                   date_ = date;
                                   reloadData();
                               }));
    TableSection times{"times", {}, {}, {}};
    for (const Entry& entry : entries_) times.rows.push_back(rowOf(entry));
    times.rows.push_back(actionRow("addTime", localized("Add time"), [this] { edit(std::nullopt); }));
    return {std::move(day), std::move(times)};
}

TableRow DateTimesViewController::rowOf(const Entry& entry) {
    TableRow row = valueRow("time" + std::to_string(entry.serial), Interface::descriptionTime(entry.minutes), {},
                            [this, entry] { edit(entry); });
    row.canDelete = true;
    row.actions.remove = [this, serial = entry.serial] { deleteTimeAction(serial); };
    return row;
}

void DateTimesViewController::edit(const std::optional<Entry>& entry) {
    constexpr std::int64_t kMinutesInHour = 60;
    const std::int64_t present = munitesInDay(Environment::current().now()) / kMinutesInHour * kMinutesInHour;
    const std::optional<Serial> serial = entry ? std::optional(entry->serial) : std::nullopt;
    std::function<void()> remove;
    if (serial) remove = [this, serial] { deleteTimeAction(*serial); };
    presenter().presentPanel(
        *this, std::make_shared<EditTimeView>(
                   entry ? entry->minutes : present,
                   [this, serial](std::int64_t minutes) { doneTimeAction(serial, minutes); }, std::move(remove)));
}

void DateTimesViewController::doneTimeAction(std::optional<Serial> serial, std::int64_t minutes) {
    const auto entry = serial ? std::ranges::find(entries_, *serial, &Entry::serial) : entries_.end();
    if (entry != entries_.end()) {
        entry->minutes = minutes;
    } else {
        entries_.push_back({nextSerial_++, minutes});
    }
    reloadData();
}

void DateTimesViewController::deleteTimeAction(Serial serial) {
    std::erase_if(entries_, [serial](const Entry& entry) { return entry.serial == serial; });
    reloadData();
}

}  // namespace dayward
