// The screens of events over a store, a scripted shell and a view that writes down what it is told.
#pragma once

#include <gmock/gmock.h>

#include "Classes/App/HHAppTimerKeys.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Interface/Events/EventDetailViewController.h"
#include "Classes/Interface/Events/HHSplitViewController.h"
#include "Classes/Interface/List/ListFixture.h"
#include "support/GalleryResources.h"
#include "support/ScriptedPresenter.h"

namespace dayward {

class RecordingListView final : public EventListView {
public:
    void reloadData() override { messages.emplace_back("reload"); }
    void insertRow(IndexPath path) override { add("insert", path); }
    void reloadRow(IndexPath path) override { add("reload", path); }
    void deleteRow(IndexPath path) override { add("delete", path); }
    void moveRow(IndexPath from, IndexPath to) override {
        messages.push_back("move " + text(from) + " to " + text(to));
    }
    void insertSection(std::size_t index) override { messages.push_back("insert section " + std::to_string(index)); }
    void reloadSection(std::size_t index) override { messages.push_back("reload section " + std::to_string(index)); }
    void deleteSection(std::size_t index) override { messages.push_back("delete section " + std::to_string(index)); }
    void moveSection(std::size_t, std::size_t) override { messages.emplace_back("move section"); }
    void refreshRow(IndexPath path) override { add("refresh", path); }
    void deselectRow(IndexPath path, bool) override { add("deselect", path); }
    [[nodiscard]] double contentOffsetY() const override { return offset; }

    std::vector<std::string> take() { return std::exchange(messages, {}); }

    std::vector<std::string> messages;
    double offset = 0;

private:
    static std::string text(IndexPath path) { return std::to_string(path.section) + "." + std::to_string(path.row); }
    void add(const char* what, IndexPath path) { messages.push_back(std::string(what) + " " + text(path)); }
};

class EventScreens : public ::testing::Test {
protected:
    static constexpr double kNarrow = 390;
    static constexpr double kWide = 1280;
    static constexpr PixelSize kRow{40, 10};

    std::shared_ptr<HHEvent> store(const EventSpec& spec) {
        auto event = makeEvent(environment, spec);
        EventLocalStore::shared().updateEvent(event);
        return event;
    }
    static void remove(const std::string& key) {
        EventLocalStore::shared().removeEvent(EventLocalStore::shared().eventByIdentifier(key));
    }
    /// The list becomes the root of a window of that width.
    void start(double width = kNarrow, EventScreensServices services = {}) {
        split.emplace(shell.navigation, std::move(services));
        split->setWindowWidth(width);
        list().table().setView(&view);
        list().searchTable().setView(&found);
        shell.navigation.setRoot(split->master());
        shell.take();
        view.take();
    }
    EventListViewController& list() { return *split->master(); }
    void second(double seconds = 1) {
        environment.clock->advance(TimeInterval(seconds));
        environment->notifications().post(HHAppTimerKeys::everySecound, nullptr);
    }
    /// Lets what was put off for a moment happen.
    void settle() {
        environment.queues->advance(TimeInterval(0.2));
        environment.queues->runAll();
    }
    /// The rows of a table, each section's header before them.
    static std::vector<std::string> rows(const EventListTable& table) {
        std::vector<std::string> lines;
        for (std::size_t section = 0; section < table.numberOfSections(); ++section) {
            if (const auto header = table.headerText(section)) lines.push_back("[" + *header + "]");
            for (std::size_t row = 0; row < table.numberOfRowsInSection(section); ++row) {
                lines.push_back(table.event({section, row})->identifier());
            }
        }
        return lines;
    }
    [[nodiscard]] EventDetailViewController* topDetail() const {
        return dynamic_cast<EventDetailViewController*>(shell.navigation.topScreen().get());
    }

    GalleryResources resources;
    TestEnvironment environment{resources.options()};
    ScriptedPresenter shell;
    RecordingListView view;
    RecordingListView found;
    std::optional<HHSplitViewController> split;
};

}  // namespace dayward
