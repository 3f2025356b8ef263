// Makes or changes an event. Works on copies of its fields; only Done writes them, into a copy of the
// event that goes to the store. Nothing is checked: an event without a name is saved as it stands.
// Main thread only.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Classes/Event/HHEvent.h"
#include "Classes/Interface/Edit/AlertsViewController.h"
#include "Classes/Interface/Edit/DateTimesViewController.h"
#include "Classes/Interface/Edit/EventEditState.h"
#include "Classes/Interface/Screens/TableScreen.h"
#include "Classes/Interface/Select/OwnPicture.h"
#include "platform/NotificationCenter.h"

namespace dayward {

/// Posted when an event was made or removed here; user info "event": its key.
inline constexpr const char* EventEditDidCreateItemNotification = "EventEditDidCreateItemNotification";
inline constexpr const char* EventEditDidRemoveItemNotification = "EventEditDidRemoveItemNotification";
inline constexpr const char* EventEditItemKey = "event";

class EventEditViewController final : public TableScreen,
                                      public PictureTarget,
                                      public DateTimesViewControllerDelegate,
                                      public AlertsViewControllerDelegate {
public:
    /// Without an event, a new one with the user's defaults, on the present day.
    explicit EventEditViewController(std::shared_ptr<HHEvent> event = nullptr);

    [[nodiscard]] const std::shared_ptr<HHEvent>& event() const { return event_; }
    [[nodiscard]] const EventEditState& state() const { return state_; }

    void cancelAction();
    void doneAction();
    /// Removes the event without a question.
    void deleteAction();
    void showDeleteActionAlert();
    void showAgeValueChanged(bool on);
    /// Open the galleries of icons and of categories.
    void eventEditHeaderCellTapOnIcon();
    void eventEditHeaderCellTapOnCategory();
    void eventEditHeaderCellDidChangeName(const std::string& name);
    /// The countdown of the look goes on; once a second while the screen is in sight.
    void timerAction() { reloadData(); }

    /// Becomes the background as soon as it is read.
    void takePicture(ChosenPicture picture) override;

    void viewWillAppear() override;
    void viewWillDisappear(Disappearance why) override;
    void completeWithDate(DateTimesViewController& sender, Date date,
                          const std::vector<std::int64_t>& andTimes) override;
    void completeWithAlerts(AlertsViewController& sender, const std::vector<XDIDateInterval>& alerts) override;

protected:
    std::vector<TableSection> makeSections() override;

private:
    [[nodiscard]] bool isStored() const;
    [[nodiscard]] TableRow headerRow();
    [[nodiscard]] TableRow lookRow() const;
    [[nodiscard]] TableSection datesSection();
    [[nodiscard]] TableSection alertsSection();
    [[nodiscard]] TableSection lookSection();
    [[nodiscard]] TableRow backgroundRow();
    [[nodiscard]] TableRow fontRow();
    [[nodiscard]] TableRow textColorRow();

    void openDate();
    void openDuration();
    void openRepeat();
    void openUnits();
    void openAlerts();
    void openSound();
    void openBackgrounds();
    void openFonts();
    void openTextColors();
    void openNote();

    template <class Screen, class... Arguments>
    void push(Arguments&&... arguments);
    /// Shows a changed state.
    void didChange();
    /// Measures what the look's texts need on its background, as on a row of the list.
    void measureLook();
    /// Sets a field and shows it.
    template <class Field, class Value>
    void take(Field& field, const Value& value);
    void post(const char* notification) const;

    std::shared_ptr<HHEvent> event_;
    EventEditState state_;
    HHEvent preview_;  ///< the event as it would be
    Color lookScrim_;
    NotificationCenter::Observation timer_;
};

}  // namespace dayward
