// The day of an event and its times of day. Hands both over each time it goes out of sight. Times keep
// the order in which they were made. Main thread only.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "Classes/Interface/Screens/TableScreen.h"
#include "platform/Date.h"

namespace dayward {

class DateTimesViewController;
class EditTimeView;

class DateTimesViewControllerDelegate {
public:
    virtual ~DateTimesViewControllerDelegate() = default;
    virtual void completeWithDate(DateTimesViewController& sender, Date date,
                                  const std::vector<std::int64_t>& andTimes) = 0;
};

class DateTimesViewController final : public TableScreen {
public:
    /// Times in minutes after midnight.
    DateTimesViewController(Date date, const std::vector<std::int64_t>& times,
                            std::weak_ptr<DateTimesViewControllerDelegate> delegate);

    [[nodiscard]] Date date() const { return date_; }
    [[nodiscard]] std::vector<std::int64_t> tableTimes() const;

    void viewWillDisappear(Disappearance why) override;

protected:
    std::vector<TableSection> makeSections() override;

private:
    using Serial = std::size_t;
    struct Entry {
        Serial serial;  ///< keeps the row's identity while others come and go
        std::int64_t minutes;
    };

    [[nodiscard]] TableRow rowOf(const Entry& entry);
    /// Without an entry, for a new one.
    void edit(const std::optional<Entry>& entry);
    void doneTimeAction(std::optional<Serial> serial, std::int64_t minutes);
    void deleteTimeAction(Serial serial);

    Date date_;
    std::vector<Entry> entries_;
    Serial nextSerial_ = 0;
    std::weak_ptr<DateTimesViewControllerDelegate> delegate_;
};

}  // namespace dayward
