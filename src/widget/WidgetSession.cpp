#include "widget/WidgetSession.h"

#include <iostream>

#include "alerts/WidgetEvent.h"
#include "cli/Terminal.h"
#include "platform/Clock.h"
#include "platform/FileCoordinator.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"
#include "platform/NotificationCenter.h"
#include "platform/ReadOnlyFileSystem.h"
#include "platform/Strings.h"
#include "platform/UserDefaults.h"
#include "platform/linux/LinuxFileSystem.h"

namespace dayward {

/// The first line says what is wrong; what follows from it is not told.
class WidgetSession::Complaints final : public Log {
public:
    explicit Complaints(std::string name) : name_(std::move(name)) {}

    void begin() { hasComplained_ = false; }
    [[nodiscard]] bool hasComplained() const { return hasComplained_; }

    void error(std::string_view line) override {
        if (std::exchange(hasComplained_, true)) return;
        std::cerr << name_ << ": " << printable(line) << std::endl;
    }
    void debug(std::string_view) override {}

private:
    const std::string name_;
    bool hasComplained_ = false;
};

std::string groupDefaultsPath(const Paths& paths) { return joinPath(paths.group, "group.defaults"); }

WidgetSession::WidgetSession(Options options)
    : options_(std::move(options)),
      clock_(std::make_shared<FixedClock>(SystemClock().now())),
      complaints_(std::make_shared<Complaints>(options_.name)),
      paths_(Paths::resolve(options_.home, options_.resources)),
      path_(groupDefaultsPath(paths_)) {}

WidgetSession::~WidgetSession() {
    events_.clear();
    scope_.reset();
}

Environment::Services WidgetSession::makeServices() {
    Environment::Services services;
    services.clock = clock_;
    services.files = std::make_shared<ReadOnlyFileSystem>(std::make_shared<LinuxFileSystem>());
    services.notifications = std::make_shared<NotificationCenter>();
    auto classes = std::make_shared<ArchiveClasses>();
    registerWidgetClasses(*classes);
    services.archiveClasses = classes;
    services.groupDefaults = std::make_shared<UserDefaults>(services.files, services.archiveClasses, path_);
    services.log = complaints_;
    services.paths = paths_;
    services.zone = followsZone() ? TimeZone::system() : TimeZone::named(options_.zone).value_or(TimeZone::utc());
    services.locale = options_.locale.empty() ? Locale::system() : Locale(options_.locale);
    return services;
}

bool WidgetSession::reload() {
    events_.clear();
    scope_.reset();
    complaints_->begin();
    Environment::Services services = makeServices();
    {
        Environment first(services);
        const EnvironmentScope scope(&first);
        const auto language = AppWidget::language();
        if (options_.locale.empty() && language && services.locale.languageCode() != *language) {
            services.locale = Locale(*language);
        }
        const auto texts = joinPath(paths_.resources, "strings");
        auto strings = Strings::load(*services.files, texts, services.locale.languageCode());
        if (!strings) logError(strings.error().description());
        services.strings = strings ? *std::move(strings) : std::make_shared<const Strings>();
    }
    environment_ = std::make_unique<Environment>(std::move(services));
    scope_ = std::make_unique<EnvironmentScope>(environment_.get());
    type_ = AppWidget::type();
    events_ = AppWidget::events();
    return !complaints_->hasComplained();
}

}  // namespace dayward
