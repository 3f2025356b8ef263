#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Interface/Edit/EventEditViewController.h"
#include "EventScreensFixture.h"

namespace dayward {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class EventDetail : public EventScreens, public EventDetailObserver {
protected:
    std::shared_ptr<EventDetailViewController> open(const std::string& key) {
        if (!split) start();
        auto screen = std::make_shared<EventDetailViewController>(key);
        screen->setDetailObserver(this);
        shell.navigation.push(list(), screen);
        environment.queues->runAll();
        changes.clear();
        shell.take();
        return screen;
    }
    void detailDidChange(DetailChange change) override { changes.push_back(change); }

    std::vector<DetailChange> changes;
};

TEST_F(EventDetail, TellsDateCountdownAndTheSpanInEveryUnit) {
    store({"ahead", "2026-03-12T12:00:00", "Ahead"});
    store({"running", "2026-03-10T11:00:00", "Running", 2});
    store({"never"})->setTimes({});
    const auto detail = open("ahead");
    const EventDetailView& shown = detail->eventView();
    EXPECT_EQ(shown.nameLabel(), "Ahead");
    EXPECT_EQ(shown.dateLabel(), "Thursday, March 12 at 12:00 PM");
    EXPECT_EQ(shown.countdownLabel(), "2 Days");
    EXPECT_EQ(shown.unitKeyLabel(), "Years: \nMonths: \nWeeks: \nDays: \nHours: \nMinutes: \nSeconds: ");
    EXPECT_EQ(shown.unitValueLabel(), "0.01\n0.07\n0.29\n2.00\n48.00\n2,880.00\n172,800");
    detail->setEventIdentifier("running");
    EXPECT_EQ(shown.countdownLabel(), "Now");
    EXPECT_EQ(shown.unitValueLabel(), "");
    detail->setEventIdentifier("never");
    EXPECT_EQ(shown.dateLabel(), "No date!");
    EXPECT_EQ(shown.countdownLabel(), "? ? ?");
    EXPECT_THAT(shown.unitRows(), IsEmpty());
}

TEST_F(EventDetail, OnlyTheTimeTextsFollowTheTick) {
    store({"a", "2026-03-12T12:00:00", "A"});
    const auto detail = open("a");
    second();
    EXPECT_THAT(changes, ElementsAre(DetailChange::times));
    EXPECT_THAT(detail->eventView().unitValueLabel(), HasSubstr("172,799"));
    detail->editAction();
    changes.clear();
    second();
    EXPECT_THAT(changes, IsEmpty()) << "a screen that is covered rests";
    shell.type("header", "Renamed");
    shell.press(BarButton::Role::done);
    EXPECT_EQ(detail->eventView().nameLabel(), "Renamed");
    EXPECT_EQ(detail->title(), "Renamed");
    EXPECT_THAT(detail->eventView().unitValueLabel(), HasSubstr("172,798"));
}

TEST_F(EventDetail, ARemovedEventTakesItsScreenAlong) {
    store({"a", "2026-03-12", "A"});
    open("a");
    remove("a");
    EXPECT_THAT(shell.take(), ElementsAre("pop A"));
    split->setWindowWidth(kWide);
    store({"b", "2026-03-12", "B"});
    const auto pane = split->detail();
    EXPECT_EQ(pane->title(), "B");
    remove("b");
    EXPECT_FALSE(pane->hasContent());
    EXPECT_THAT(pane->barButtons(), IsEmpty());
    EXPECT_EQ(split->detail(), pane) << "the pane stays, empty";
}

TEST_F(EventDetail, TheNoteOpensAndClosesWithItsEvent) {
    store({"a", "2026-03-12", "A"})->setNote("Bring cake");
    store({"b", "2026-03-13", "B"});
    const auto detail = open("a");
    detail->noteTapGestureAction();
    EXPECT_TRUE(detail->eventView().noteOpened());
    EXPECT_THAT(changes, ElementsAre(DetailChange::note));
    second();
    EXPECT_TRUE(detail->eventView().noteOpened());
    detail->setEventIdentifier("b");
    detail->noteTapGestureAction();
    EXPECT_FALSE(detail->eventView().noteOpened()) << "there is none";
}

TEST_F(EventDetail, TheBackgroundIsMeasuredForItsText) {
    auto event = store({"a", "2026-03-12", "A"});
    event->appearance().textColor = Color::white();
    event->setBackground(std::make_shared<ColorEventBackgroundPicture>(Color::black()));
    start();
    const auto detail = std::make_shared<EventDetailViewController>("a");
    detail->setDetailObserver(this);
    shell.navigation.push(list(), detail);
    EXPECT_GT(detail->eventView().scrim().alpha, 0.3);
    environment.queues->runAll();
    EXPECT_EQ(detail->eventView().scrim().alpha, 0);
    EXPECT_THAT(changes, ::testing::Contains(DetailChange::scrim));
}

}  // namespace
}  // namespace dayward
