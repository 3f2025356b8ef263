#include "Classes/Interface/Info/AlertHealthViewController.h"

#include <utility>

#include "Classes/Interface/Screens/Presenter.h"
#include "Classes/Other/Date/EventDateText.h"
#include "platform/Application.h"
#include "platform/DispatchQueue.h"
#include "platform/Environment.h"
#include "platform/PercentFormat.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

std::string yesOrNo(bool yes) { return localized(yes ? "Yes" : "No"); }

}  // namespace

AlertHealthViewController::AlertHealthViewController(std::shared_ptr<NotificationDevice> device)
    : device_(std::move(device)) {
    setTitle(localized("Alerts"));
}

void AlertHealthViewController::viewWillAppear() {
    // The user may have been to the desktop's settings.
    for (const char* name : {Application::kWillEnterForegroundNotification, Application::kDidBecomeActiveNotification}) {
        observer_.observe(name, [this](const Notification&) { examine(); });
    }
    examine();
    TableScreen::viewWillAppear();
}

void AlertHealthViewController::examine() {
    Queues& queues = Environment::current().queues();
    queues.global().async([&queues, device = device_, weak = weak_from_this()] {
        queues.main().async([weak, health = AlertHealth::present(device.get())] {
            const auto self = std::static_pointer_cast<AlertHealthViewController>(weak.lock());
            if (!self) return;
            self->health_ = health;
            self->reloadData();
        });
    });
}

std::vector<TableSection> AlertHealthViewController::makeSections() {
    if (!health_) return {{"verdict", {}, {}, {textRow("verdict", localized("Just a moment"))}}};
    return {verdictSection(), deviceSection(), nextSection(), testSection()};
}

TableSection AlertHealthViewController::verdictSection() const {
    TableSection section{"verdict", {}, {}, {}};
    section.rows.push_back(textRow("verdict", health_->verdict()));
    section.rows.back().emphasized = true;
    for (const std::string& problem : health_->problems()) {
        section.rows.push_back(textRow("problem" + std::to_string(section.rows.size()), problem));
    }
    return section;
}

TableSection AlertHealthViewController::deviceSection() const {
    const NotificationDeviceState& device = health_->device;
    TableSection section{"device", {}, {}, {}};
    section.rows.push_back(valueRow("keeper", localized("Helper answers"), yesOrNo(device.keeperAnswers), {}));
    section.rows.push_back(
        valueRow("service", localized("Shown by"), device.service.value_or(localized("None")), {}));
    if (!device.service) return section;
    section.rows.push_back(valueRow("actions", localized("Buttons on alerts"), yesOrNo(device.hasActions), {}));
    if (device.isQuiet) {
        section.rows.push_back(valueRow("quiet", localized("Do not disturb"), yesOrNo(*device.isQuiet), {}));
    }
    return section;
}

TableSection AlertHealthViewController::nextSection() const {
    TableSection section{"next", localized("Next alerts"),
                         formatText(localized("Scheduled: %@"), {std::to_string(health_->scheduledCount)}),
                         {}};
    for (const LocalNotification& alert : health_->next) {
        const std::string date = alert.fireDate ? EventDateText::textFromDate(*alert.fireDate, EventDateTextAll) : std::string();
        section.rows.push_back(
            valueRow("next" + std::to_string(section.rows.size()), alert.alertBody.value_or(""), date, {}));
    }
    if (health_->next.empty()) section.rows.push_back(textRow("nothing", localized("No alert is scheduled.")));
    return section;
}

TableSection AlertHealthViewController::testSection() {
    TableRow test = actionRow("test", localized("Send a test alert"), [this] { sendTest(); });
    test.enabled = device_ != nullptr && !isSending_;
    return {"test", {}, {}, {std::move(test)}};
}

void AlertHealthViewController::sendTest() {
    isSending_ = true;
    reloadData();
    Queues& queues = Environment::current().queues();
    queues.global().async([&queues, device = device_, weak = weak_from_this()] {
        queues.main().async([weak, sent = device->show(testAlert())] {
            const auto self = std::static_pointer_cast<AlertHealthViewController>(weak.lock());
            if (self) self->testDidEnd(sent);
        });
    });
}

void AlertHealthViewController::testDidEnd(const Result<>& sent) {
    isSending_ = false;
    reloadData();
    if (!isPresented()) return;
    if (sent) return presenter().showNotice({localized("Sent")});
    presenter().alert({localized("The test alert could not be shown."),
                       sent.error().description(),
                       {{localized("OK"), AlertButton::Role::cancel}}});
}

}  // namespace dayward
