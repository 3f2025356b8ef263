#include "Classes/Interface/Info/SettingsViewController.h"

#include <algorithm>

#include "Classes/Interface/Info/AlertHealthViewController.h"
#include "Classes/Interface/Info/BadgeViewController.h"
#include "Classes/Interface/Info/ChoiceViewController.h"
#include "Classes/Interface/Info/DefaultValuesViewController.h"
#include "Classes/Interface/Info/EventsSortViewController.h"
#include "Classes/Interface/Info/InformationViewController.h"
#include "Classes/Interface/Info/WidgetViewController.h"
#include "Classes/Interface/Screens/Presenter.h"
#include "Classes/Interface/Select/CategoriesViewController.h"
#include "Classes/Settings/AppSettings.h"
#include "Classes/Settings/InterfaceSettings.h"
#include "alerts/AppBadge.h"
#include "alerts/AppWidget.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

/// In the order of their stored numbers.
std::vector<std::string> themeLabels() { return {localized("As the system"), localized("Light"), localized("Dark")}; }

/// A language in itself; the first place is the system's.
std::string languageLabel(const std::optional<std::string>& language) {
    if (!language) return localized("As the system");
    return *language == "ru" ? "Русский" : "English";
}

}  // namespace

SettingsViewController::SettingsViewController(Services services) : services_(std::move(services)) {
    setTitle(localized("Settings"));
    setBarButtons({{BarButton::Role::done, localized("Done"), [this] { presenter().dismiss(*this); }}});
}

std::vector<TableSection> SettingsViewController::makeSections() {
    TableSection about{"about", {}, {}, {}};
    about.rows.push_back(
        openingRow("about", localized("About"), {}, [this] { open(std::make_shared<InformationViewController>()); }));
    return {eventsSection(), glanceSection(), safetySection(), interfaceSection(), std::move(about)};
}

TableSection SettingsViewController::eventsSection() {
    const auto sort = eventSortLabel(eventSortType(AppSettings::tableSortType()));
    return {"events",
            {},
            {},
            {openingRow("defaultValues", localized("Default Values"), {},
                        [this] { open(std::make_shared<DefaultValuesViewController>()); }),
             openingRow("categories", localized("Categories"), {},
                        [this] { open(std::make_shared<CategoriesViewController>()); }),
             openingRow("sort", localized("Sort"), sort, [this] { open(EventsSortViewController::forSettings()); }),
             toggleRow("icons", localized("Icons in rows"), AppSettings::tableCellIconShow(),
                       [](bool on) { AppSettings::setTableCellIconShow(on); })}};
}

TableSection SettingsViewController::glanceSection() {
    return {"glance",
            {},
            {},
            {openingRow("alerts", localized("Alerts"), {},
                        [this] { open(std::make_shared<AlertHealthViewController>(services_.notificationDevice)); }),
             openingRow("badge", localized("Badge"), AppBadge::displayName(AppBadge::type()),
                        [this] { open(std::make_shared<BadgeViewController>(services_.refreshNotifications)); }),
             openingRow("widget", localized("Widget"), AppWidget::displayName(AppWidget::type()),
                        [this] { open(std::make_shared<WidgetViewController>()); })}};
}

TableSection SettingsViewController::safetySection() {
    TableRow lock = toggleRow("lock", localized("Touch ID"), AppSettings::TouchIDOn(),
                              [](bool on) { AppSettings::setTouchIDOn(on); });
    lock.detail = localized("Keep safe at launch");
    lock.enabled = services_.canLock;
    return {"safety", {}, {}, {std::move(lock), destinationRow("cloud", localized("Cloud"), services_.cloud)}};
}

TableSection SettingsViewController::interfaceSection() {
    const auto theme = themeLabels()[static_cast<std::size_t>(InterfaceSettings::theme())];
    return {"interface",
            {},
            {},
            {openingRow("theme", localized("Theme"), theme, [this] { openTheme(); }),
             openingRow("language", localized("Language"), languageLabel(InterfaceSettings::language()),
                        [this] { openLanguage(); })}};
}

TableRow SettingsViewController::destinationRow(std::string id, std::string label, const Destination& destination) {
    TableRow row =
        openingRow(std::move(id), std::move(label), destination.detail ? destination.detail() : std::string(),
                   [this, create = destination.open] { open(create()); });
    row.enabled = destination.open != nullptr;
    return row;
}

void SettingsViewController::open(std::shared_ptr<ViewController> screen) {
    presenter().push(*this, std::move(screen));
}

void SettingsViewController::openTheme() {
    open(std::make_shared<ChoiceViewController>(
        localized("Theme"), themeLabels(), static_cast<std::size_t>(InterfaceSettings::theme()),
        [](std::size_t place) { InterfaceSettings::setTheme(static_cast<InterfaceSettings::Theme>(place)); }));
}

void SettingsViewController::openLanguage() {
    std::vector<std::optional<std::string>> languages{std::nullopt};
    languages.insert(languages.end(), InterfaceSettings::languages().begin(), InterfaceSettings::languages().end());
    std::vector<std::string> labels;
    for (const auto& language : languages) labels.push_back(languageLabel(language));
    const auto selected = std::ranges::find(languages, InterfaceSettings::language()) - languages.begin();
    open(std::make_shared<ChoiceViewController>(
        localized("Language"), std::move(labels), static_cast<std::size_t>(selected),
        [languages](std::size_t place) { InterfaceSettings::setLanguage(languages[place]); },
        localized("A new language is used from the next start.")));
}

}  // namespace dayward
