// A program with a window and a list, whose services, screens and platform write one trace.
#pragma once

#include <gmock/gmock.h>

#include "Classes/App/AppDelegate.h"
#include "Classes/App/AppInfo.h"
#include "Classes/App/AppManager.h"
#include "Classes/App/ArchiveRegistration.h"
#include "Classes/Interface/Screens/EventListPresenting.h"
#include "Classes/Interface/Screens/Window.h"
#include "alerts/EventNotification.h"
#include "alerts/MissedEventsHelper.h"
#include "support/FaultFileSystem.h"
#include "support/ScriptedApplication.h"
#include "support/ScriptedPresenter.h"
#include "support/TestEnvironment.h"

namespace dayward {

/// All the services of the delegate.
class TracedServices final : public UpdateService,
                             public NotificationsService,
                             public MissedEventsService,
                             public WidgetService,
                             public CloudService,
                             public LockService,
                             public SiblingImportService {
public:
    explicit TracedServices(Trace& trace) : trace_(trace) {}

    bool updatesAtOnce = true;
    bool isSecret = false;
    bool hasSibling = false;
    std::function<void()> duringSynch;
    Done updated;

    void performUpdateIfNeeds(Done done) override {
        add("update");
        updated = std::move(done);
        if (updatesAtOnce) updated(false);
    }
    void syncRefresh() override {
        add("refresh, " + std::to_string(MissedEventsHelper::missedEvents().size()) + " missed");
    }
    void showNotification(const LocalNotification& notification) override {
        add("notify " + eventIdentifier(notification).value_or("?"));
    }
    void find() override { add("find"); }
    void saveState() override { add("save"); }
    void exportEvents() override { add("widget"); }
    void configure() override { add("cloud"); }
    BackgroundFetchResult performBackgroundSynch() override {
        add("synch");
        if (duringSynch) duringSynch();
        return BackgroundFetchResult::newData;
    }
    [[nodiscard]] bool useSecrecy() const override { return isSecret; }
    void showAuthorizeIfNeeds() override { add("lock"); }
    [[nodiscard]] bool canImportFromFreeVersion() const override { return hasSibling; }
    void performImportFromFreeVersion() override { add("import"); }
    bool handleOpenURL(const std::string& url) override {
        add("sibling " + url);
        return true;
    }

private:
    void add(std::string line) { trace_.push_back(std::move(line)); }

    Trace& trace_;
};

class TracedWindow final : public Window {
public:
    TracedWindow(Navigation& navigation, Trace& trace) : Window(navigation), trace_(trace) {}
    void setBackgroundColor(Color color) override { trace_.push_back("background " + color.hex()); }
    void setCover(std::optional<Color> color) override {
        trace_.push_back(color ? "cover " + color->hex() : "uncover");
    }

protected:
    void show() override { trace_.emplace_back("show"); }

private:
    Trace& trace_;
};

class TracedList final : public ViewController, public EventListPresenting {
public:
    explicit TracedList(Trace& trace) : trace_(trace) {}
    void viewDidAppear() override {
        trace_.emplace_back("list");
        postDidAppear();
        AppManager::handleFirstLaunch();
    }
    void presentDetailsForEventAtIdentifier(const std::string& identifier) override {
        trace_.push_back("present " + identifier);
    }
    void presentNewEvent() override { trace_.push_back("new event"); }

private:
    Trace& trace_;
};

/// One process on a home that others may have used.
struct AppProcess {
    explicit AppProcess(std::shared_ptr<FaultFileSystem> files, const std::string& version = "1.0")
        : environment(options(std::move(files))), window(presenter.navigation, trace) {
        CCApp::setInformation(AppInfo::information(version));
        delegate->setWindow(&window);
    }
    /// What waits on the queues needs what follows.
    ~AppProcess() { environment.queues->runAll(); }

    static TestEnvironment::Options options(std::shared_ptr<FaultFileSystem> files) {
        TestEnvironment::Options options;
        options.archiveClasses = allArchiveClasses();
        options.home = "/home";
        options.files = std::move(files);
        return options;
    }
    Trace take() { return std::exchange(trace, {}); }
    static LocalNotification notification(const std::string& event) {
        LocalNotification result;
        setEventIdentifier(result, event);
        return result;
    }
    void appearAgain() {
        list->viewDidAppear();
        take();
    }

    TestEnvironment environment;
    Trace trace;
    ScriptedPresenter presenter;
    TracedWindow window;
    std::shared_ptr<TracedList> list = std::make_shared<TracedList>(trace);
    std::shared_ptr<TracedServices> services = std::make_shared<TracedServices>(trace);
    std::shared_ptr<AppDelegate> delegate = std::make_shared<AppDelegate>(
        AppServices{services, services, services, services, services, services, services}, [this] { return list; });
    ScriptedApplication application{*delegate, trace};
};

}  // namespace dayward
