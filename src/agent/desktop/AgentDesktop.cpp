#include "agent/desktop/AgentDesktop.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "Classes/Settings/InterfaceSettings.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"
#include "platform/NotificationCenter.h"
#include "platform/Strings.h"
#include "platform/UserDefaults.h"
#include "platform/linux/LinuxFileSystem.h"

namespace dayward {

namespace {

class AgentClock final : public Clock {
public:
    explicit AgentClock(const AgentTime& time) : time_(time) {}
    [[nodiscard]] Date now() const override { return time_.now(); }

private:
    const AgentTime& time_;
};

/// The session keeps what its programs write there.
class StandardErrorLog final : public Log {
public:
    void error(std::string_view line) override {
        std::fprintf(stderr, "%.*s\n", static_cast<int>(line.size()), line.data());
    }
    void debug(std::string_view) override {}
};

/// In the directory that goes with the session, as the bubbles do.
std::string bubblesPath(const BusHome& home) {
    const char* const directory = std::getenv("XDG_RUNTIME_DIR");
    if (directory == nullptr || *directory != '/') return {};
    return joinPath(directory, agentBusName(home) + ".bubbles");
}

}  // namespace

Result<std::unique_ptr<AgentDesktop>> AgentDesktop::make(const Options& options, const AgentTime& time) {
    auto bus = TRY(SessionBus::connect());
    std::unique_ptr<AgentDesktop> desktop(new AgentDesktop(options, time, std::move(bus)));
    TRY_VOID(desktop->speak());
    return desktop;
}

AgentDesktop::AgentDesktop(const Options& options, const AgentTime& time, std::unique_ptr<SessionBus> bus)
    : options_(options),
      paths_(Paths::resolve(options.home, options.resources)),
      home_(BusHome::of(options.home)),
      time_(time),
      bus_(std::move(bus)) {
    const auto willShow = [this] {
        const auto spoken = speak();
        if (!spoken) logError(spoken.error().description());
    };
    display_ = std::make_unique<DesktopDisplay>(
        *bus_, DesktopDisplay::Options{applicationBusName(home_), willShow, bubblesPath(home_)});
    link_ = std::make_unique<DBusApplicationLink>(
        *bus_, DBusApplicationLink::Parts{home_, joinPath(options.programs, "dayward-app"),
                                          [this] { return display_->takeActivationToken(); }, willShow});
}

AgentDesktop::~AgentDesktop() { scope_.reset(); }

Result<bool> AgentDesktop::serve(AgentRequests& requests) {
    service_ = std::make_unique<AgentService>(
        AgentService::Parts{*bus_, display_->service(), requests, home_, options_.version});
    const auto taken = service_->takeName();
    if (taken) return true;
    if (!bus_->ownerOf(agentBusName(home_)).empty()) return false;
    return std::unexpected(taken.error());
}

Result<> AgentDesktop::speak() {
    UserDefaults settings(std::make_shared<LinuxFileSystem>(), std::make_shared<const ArchiveClasses>(),
                          joinPath(paths_.config, "standard.defaults"));
    auto language = settings.stringForKey(InterfaceSettings::kLanguageKey);
    if (!environment_ || language != language_) {
        std::swap(language_, language);
        auto services = makeServices();
        if (!services) {
            language_ = std::move(language);
            return std::unexpected(services.error());
        }
        scope_.reset();
        environment_ = std::make_unique<Environment>(*std::move(services));
        scope_ = std::make_unique<EnvironmentScope>(environment_.get());
    }
    environment_->setTimeZone(time_.zone());
    return {};
}

Result<Environment::Services> AgentDesktop::makeServices() const {
    Environment::Services services;
    services.clock = std::make_shared<AgentClock>(time_);
    services.files = std::make_shared<LinuxFileSystem>();
    services.notifications = std::make_shared<NotificationCenter>();
    services.log = std::make_shared<StandardErrorLog>();
    services.paths = paths_;
    services.zone = time_.zone();
    services.locale = Locale::system();
    const auto& known = InterfaceSettings::languages();
    if (language_ && services.locale.languageCode() != *language_ &&
        std::ranges::find(known, *language_) != known.end()) {
        services.locale = InterfaceSettings::localeInLanguage(services.locale, *language_);
    }
    services.strings =
        TRY(Strings::load(*services.files, joinPath(paths_.resources, "strings"), services.locale.languageCode()));
    return services;
}

}  // namespace dayward
