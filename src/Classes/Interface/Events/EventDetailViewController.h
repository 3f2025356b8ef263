// Shows one event at full size, with a live countdown; opens its editor and its sharing. Stands in the
// detail pane of a wide window and over the list in a narrow one. Main thread only.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Classes/Interface/Detail/EventDetailView.h"
#include "Classes/Interface/Screens/ScreenObserver.h"
#include "Classes/Interface/Screens/ViewController.h"
#include "Classes/Interface/Select/OwnPicture.h"
#include "Classes/Share/HHShareToolbar.h"

namespace dayward {

class HHEvent;

/// What of a detail screen is another.
enum class DetailChange {
    all,    ///< look and texts, or whether there is an event at all
    times,  ///< texts that change with time
    note,   ///< the note opened or closed
    scrim,  ///< the background was measured
};

class EventDetailObserver {
public:
    virtual ~EventDetailObserver() = default;
    virtual void detailDidChange(DetailChange change) = 0;
};

class EventDetailViewController final : public ViewController, public PictureTarget {
public:
    /// `share` is not owned; without it there is no sharing.
    explicit EventDetailViewController(std::optional<std::string> eventIdentifier = {}, ShareServices* share = nullptr);

    /// Not owned; the last one counts.
    void setDetailObserver(EventDetailObserver* observer) { detailObserver_ = observer; }
    /// Nothing where another one has come since.
    void removeDetailObserver(const EventDetailObserver* observer) {
        if (detailObserver_ == observer) detailObserver_ = nullptr;
    }

    [[nodiscard]] const std::optional<std::string>& eventIdentifier() const { return eventIdentifier_; }
    /// Nothing, as an unknown key, empties the screen.
    void setEventIdentifier(std::optional<std::string> identifier);

    /// What is to be drawn where hasContent().
    [[nodiscard]] const EventDetailView& eventView() const { return eventView_; }
    /// Null without sharing; drawn where hasContent().
    [[nodiscard]] HHShareToolbar* shareToolbar() { return shareToolbar_ ? &*shareToolbar_ : nullptr; }

    /// Looks the event up and shows it; without one the screen is empty, and leaves its stack where
    /// there is no detail pane.
    void configureView();
    void editAction();
    /// Opens the editor with the picture as the background; nothing where there is no event.
    void takePicture(ChosenPicture picture) override;
    void noteTapGestureAction();
    /// Once a second while the screen is in sight.
    void timerAction();

    [[nodiscard]] bool belongsInDetailPane() const override { return true; }
    [[nodiscard]] bool hasContent() const override { return event_ != nullptr; }
    void viewWillAppear() override;
    void viewDidDisappear(Disappearance why) override;

private:
    void categoryStoreDidUpdate(const Notification& notification);
    void eventStoreDidUpdate(const Notification& notification);
    void showBarButtons();
    void measureBackground();
    void tell(DetailChange change);

    std::optional<std::string> eventIdentifier_;
    EventDetailView eventView_;
    std::optional<HHShareToolbar> shareToolbar_;
    EventDetailObserver* detailObserver_ = nullptr;
    std::shared_ptr<HHEvent> event_;
    bool displayed_ = false;
    ScreenObserver observer_;  ///< while the screen is in sight
};

}  // namespace dayward
