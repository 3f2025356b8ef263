// Drives the display by lines of standard input and prints what it tells, for test_display.py. The words of a line are
// set apart by tabs:
//   show KEY BODY [late=TIME] [sound=NAME] [action=TEXT]    digest KEY BODY TIME [KEY BODY TIME]…
//   withdraw KEY    badge NUMBER    quiet    name    token
//   deliver EVENT BODY    open EVENT BODY    fetch
// The application that it starts is $PROBE_APPLICATION.
// With "device" before the home it only tells the state of the device, and shows what stands behind it there.
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <sstream>

#include "agent/AgentRequests.h"
#include "agent/desktop/AgentDevice.h"
#include "agent/desktop/AgentService.h"
#include "agent/desktop/DBusApplicationLink.h"
#include "agent/desktop/DesktopDisplay.h"
#include "agent/desktop/SessionBus.h"
#include "alerts/EventNotification.h"
#include "platform/Environment.h"
#include "platform/linux/LinuxEnvironment.h"

namespace dayward {
namespace {

using Words = std::vector<std::string>;

void say(const std::string& line) { std::cout << line << std::endl; }

void tell(const std::string& what, const Result<>& result) {
    say(result ? what : what + " failed: " + result.error().description());
}

class Printer final : public NotificationDisplayListener {
public:
    void didOpen(const std::string& key) override { say("open " + key); }
    void didSnooze(const std::string& key, Snooze snooze) override {
        const std::array names{"ten minutes", "one hour", "tomorrow"};
        say("snooze " + key + " " + names.at(static_cast<std::size_t>(snooze)));
    }
    void displayDidAppear() override { say("appeared"); }
};

class Requests final : public AgentRequests {
public:
    Result<> showNow(const LocalNotification& notification) override {
        say("asked to show " + notification.alertBody.value_or("nothing"));
        if (notification.alertBody == "bad") return failure("bad news");
        return {};
    }
    void refresh() override { say("asked to refresh"); }
    [[nodiscard]] std::size_t scheduledCount() const override { return 5; }
};

struct Parts {
    DesktopDisplay& display;
    DBusApplicationLink& link;
};

Date dateOf(const std::string& seconds) { return Date::since1970(std::stod(seconds)); }

DueAlert alertOf(const std::string& key, const std::string& body) {
    DueAlert alert;
    alert.key = key;
    alert.notification.alertBody = body;
    return alert;
}

void show(DesktopDisplay& display, const Words& words) {
    DueAlert alert = alertOf(words.at(1), words.at(2));
    for (std::size_t i = 3; i < words.size(); ++i) {
        const std::string name = words[i].substr(0, words[i].find('=')), value = words[i].substr(name.size() + 1);
        if (name == "sound") alert.notification.soundName = value;
        if (name == "action") alert.notification.alertAction = value;
        if (name == "late") {
            alert.isLate = true;
            alert.due = dateOf(value);
        }
    }
    tell("shown " + alert.key, display.show(alert));
}

std::vector<DueAlert> digestOf(const Words& words) {
    std::vector<DueAlert> alerts;
    for (std::size_t i = 1; i + 2 < words.size(); i += 3) {
        alerts.push_back(alertOf(words[i], words[i + 1]));
        alerts.back().isLate = true;
        alerts.back().due = dateOf(words[i + 2]);
    }
    return alerts;
}

LocalNotification notificationOf(const Words& words) {
    LocalNotification notification;
    notification.fireDate = Date::since1970(1e9);
    notification.alertBody = words.at(2);
    setEventIdentifier(notification, words.at(1));
    return notification;
}

void perform(const Parts& parts, const Words& words) {
    DesktopDisplay& display = parts.display;
    if (words[0] == "deliver") say(parts.link.deliver(notificationOf(words)) ? "delivered" : "not delivered");
    if (words[0] == "open") tell("opened", parts.link.open(notificationOf(words)));
    if (words[0] == "fetch") parts.link.performFetch([](bool isDone) { say(isDone ? "fetched" : "did not fetch"); });
    if (words[0] == "show") show(display, words);
    if (words[0] == "digest") tell("shown digest", display.showDigest(digestOf(words)));
    if (words[0] == "deliver digest") say(parts.link.deliverDigest(digestOf(words)) ? "delivered" : "not delivered");
    if (words[0] == "withdraw") display.withdraw(words.at(1));
    if (words[0] == "badge") display.setBadgeNumber(std::stoll(words.at(1)));
    if (words[0] == "token") say("token " + display.takeActivationToken());
    if (words[0] == "name") say("name " + display.service().name().value_or("none"));
    if (words[0] == "quiet") {
        const auto quiet = display.service().isQuiet();
        say(!quiet ? "quiet unknown" : *quiet ? "quiet yes" : "quiet no");
    }
}

void readLines(const Parts& parts, std::string& rest, bool& ends) {
    std::array<char, 4096> bytes;
    const auto count = read(STDIN_FILENO, bytes.data(), bytes.size());
    ends = count <= 0;
    if (count > 0) rest.append(bytes.data(), static_cast<std::size_t>(count));
    for (std::size_t end = 0; (end = rest.find('\n')) != std::string::npos; rest.erase(0, end + 1)) {
        Words words;
        std::istringstream line(rest.substr(0, end));
        for (std::string word; std::getline(line, word, '\t');) words.push_back(word);
        if (!words.empty()) perform(parts, words);
    }
}

int tellDevice(const std::string& home, const std::string& body) {
    const std::string programs = std::filesystem::read_symlink("/proc/self/exe").parent_path().string();
    AgentDevice device(AgentClient(BusHome::of(home), programs));
    const NotificationDeviceState state = device.state();
    say(std::string(state.keeperAnswers ? "kept" : "not kept") + ", service " + state.service.value_or("none") +
        (state.hasActions ? ", with actions" : "") + (state.isQuiet ? *state.isQuiet ? ", quiet" : ", not quiet" : ""));
    LocalNotification notification;
    notification.alertBody = body;
    if (!body.empty()) tell("shown", device.show(notification));
    return 0;
}

int run(const std::string& home, const std::string& now, const std::string& locale) {
    LinuxOptions options;
    options.home = home;
    options.fixedNow = dateOf(now);
    options.zone = "Europe/Moscow";
    options.locale = locale;
    options.archiveClasses = std::make_shared<ArchiveClasses>();
    options.resources =
        (std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path() / "share/dayward").string();
    auto services = makeLinuxServices(options);
    auto bus = SessionBus::connect();
    if (!services || !bus) {
        std::cerr << (services ? bus.error() : services.error()).description() << std::endl;
        return 1;
    }
    Environment environment(*std::move(services));
    const EnvironmentScope scope(&environment);
    Printer printer;
    const BusHome busHome = BusHome::of(home);
    DesktopDisplay display(**bus, {applicationBusName(busHome), {}, home + "/bubbles"});
    display.setListener(&printer);
    const char* const application = std::getenv("PROBE_APPLICATION");
    const std::string program = application != nullptr ? application : "/nonexistent/dayward-app";
    DBusApplicationLink link(**bus, {busHome, program, [&] { return display.takeActivationToken(); }, {}});
    const Parts parts{display, link};
    Requests requests;
    AgentService service({**bus, display.service(), requests, busHome, "1.2.3"});
    tell("ready", service.takeName());
    std::string rest;
    for (bool ends = false; !ends && !(*bus)->isLost();) {
        std::array<pollfd, 2> waiting{{(*bus)->descriptor(), {STDIN_FILENO, POLLIN, 0}}};
        const auto limit = (*bus)->timeout();
        poll(waiting.data(), waiting.size(), limit ? static_cast<int>(limit->seconds() * 1000) : -1);
        (*bus)->dispatch();
        if (waiting[1].revents != 0) readLines(parts, rest, ends);
    }
    return 0;
}

}  // namespace
}  // namespace dayward

int main(int argc, char** argv) {
    if (argc != 4) return 2;
    if (std::string(argv[1]) == "device") return dayward::tellDevice(argv[2], argv[3]);
    return dayward::run(argv[1], argv[2], argv[3]);
}
