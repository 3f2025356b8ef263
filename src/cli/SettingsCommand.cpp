// dayward settings [KEY [VALUE]]
#include <CLI/CLI.hpp>
#include <array>
#include <functional>
#include <memory>
#include <sstream>

#include "Classes/Settings/AppSettings.h"
#include "cli/Arguments.h"
#include "cli/Command.h"
#include "cli/IntervalFields.h"
#include "cli/Output.h"

namespace dayward {

namespace {

/// One setting: how it is shown, and how a text sets it.
struct Setting {
    const char* key;
    std::function<JSON()> value;
    std::function<Result<>(const std::string&)> set;
};

Result<bool> parseSwitch(const std::string& text) {
    if (text == "true" || text == "on" || text == "yes" || text == "1") return true;
    if (text == "false" || text == "off" || text == "no" || text == "0") return false;
    return failure("'" + text + "' is not one of true and false");
}

Result<std::int64_t> parseSortType(const std::string& text) {
    constexpr std::array<std::string_view, 3> kModes{"date", "name", "custom"};
    const auto found = std::ranges::find(kModes, text);
    if (found != kModes.end()) return found - kModes.begin();
    return parseInteger(text, 0, 2);
}

/// A JSON array of texts, or texts separated by commas.
Result<std::vector<std::string>> parseTexts(const std::string& text) {
    std::vector<std::string> texts;
    if (text.starts_with('[')) {
        const JSON array = JSON::parse(text, nullptr, false);
        if (!array.is_array()) return failure("'" + text + "' is not a JSON array of texts");
        for (const JSON& entry : array) {
            if (!entry.is_string()) return failure("'" + text + "' is not a JSON array of texts");
            texts.push_back(entry.get<std::string>());
        }
        return texts;
    }
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, ',');) {
        const std::size_t start = part.find_first_not_of(' ');
        if (start != std::string::npos) texts.push_back(part.substr(start, part.find_last_not_of(' ') - start + 1));
    }
    return texts;
}

/// "day,hour" or "day,hour full".
Result<HHEventDateFormat> parseFormat(const std::string& text) {
    HHEventDateFormat format = AppSettings::defaultIntervalFormat();
    const std::size_t blank = text.find(' ');
    format.units = TRY(parseUnits(text.substr(0, blank)));
    if (blank != std::string::npos) format.textStyle = TRY(parseTextStyle(text.substr(blank + 1)));
    return format;
}

Result<> setAlerts(const std::string& text) {
    std::vector<XDIDateInterval> alerts;
    for (const std::string& alert : TRY(parseTexts(text))) {
        if (alert != "none") alerts.push_back(TRY(parseAlert(alert)));
    }
    AppSettings::setDefaultAlerts(alerts);
    return {};
}

JSON alertsJSON() {
    JSON alerts = JSON::array();
    for (const XDIDateInterval& alert : AppSettings::defaultAlerts()) alerts.push_back(intervalFieldsJSON(alert));
    return alerts;
}

Result<> setDefaultTime(const std::string& text) {
    const auto minutes = text.find(':') == std::string::npos ? parseInteger(text, 0, 1439) : parseTimeOfDay(text);
    AppSettings::setDefaultTime(TRY(minutes));
    return {};
}

const std::vector<Setting>& allSettings() {
    using Keys = AppSettings::Keys;
    static const std::vector<Setting> settings{
        {Keys::tableSortType, [] { return JSON(AppSettings::tableSortType()); },
         [](const std::string& text) -> Result<> {
             AppSettings::setTableSortType(TRY(parseSortType(text)));
             return {};
         }},
        {Keys::tableSortIdentifiers, [] { return JSON(AppSettings::tableSortIdentifiers()); },
         [](const std::string& text) -> Result<> {
             AppSettings::setTableSortIdentifiers(TRY(parseTexts(text)));
             return {};
         }},
        {Keys::tableCellIconShow, [] { return JSON(AppSettings::tableCellIconShow()); },
         [](const std::string& text) -> Result<> {
             AppSettings::setTableCellIconShow(TRY(parseSwitch(text)));
             return {};
         }},
        {Keys::defaultTime, [] { return JSON(AppSettings::defaultTime()); }, setDefaultTime},
        {Keys::defaultIntervalFormat,
         [] {
             const HHEventDateFormat format = AppSettings::defaultIntervalFormat();
             return JSON{{"units", format.units.mask()}, {"textStyle", static_cast<std::int64_t>(format.textStyle)}};
         },
         [](const std::string& text) -> Result<> {
             AppSettings::setDefaultIntervalFormat(TRY(parseFormat(text)));
             return {};
         }},
        {Keys::defaultAlerts, alertsJSON, setAlerts},
        {Keys::defaultSoundName,
         [] {
             const auto name = AppSettings::defaultSoundName();
             return name ? JSON(*name) : JSON(nullptr);
         },
         [](const std::string& text) -> Result<> {
             AppSettings::setDefaultSoundName(text == "none" ? std::nullopt : std::optional(text));
             return {};
         }},
        {Keys::touchIDOn, [] { return JSON(AppSettings::TouchIDOn()); },
         [](const std::string& text) -> Result<> {
             AppSettings::setTouchIDOn(TRY(parseSwitch(text)));
             return {};
         }}};
    return settings;
}

void print(const std::vector<const Setting*>& settings, bool json) {
    JSON values = JSON::object();
    for (const Setting* setting : settings) {
        values[setting->key] = setting->value();
        if (!json)
            printLine(std::string(setting->key) + " " +
                      values[setting->key].dump(-1, ' ', false, JSON::error_handler_t::replace));
    }
    if (json) printJSON(values);
}

Result<> run(const std::optional<std::string>& key, const std::optional<std::string>& value, bool json) {
    std::vector<const Setting*> chosen;
    for (const Setting& setting : allSettings()) {
        if (!key || *key == setting.key) chosen.push_back(&setting);
    }
    if (chosen.empty()) return failure("there is no setting '" + *key + "'");
    if (value) {
        TRY_VOID(chosen.front()->set(*value));
        TRY_VOID(AppSettings::synchronize());
    }
    print(chosen, json);
    return {};
}

}  // namespace

void addSettingsCommand(CLI::App& app, ChosenCommand& chosen) {
    const auto key = std::make_shared<std::optional<std::string>>();
    const auto value = std::make_shared<std::optional<std::string>>();
    CLI::App* command = app.add_subcommand("settings", "The settings by their stored keys");
    command->add_option("key", *key, "One setting");
    command->add_option("value", *value, "Its new value");
    command->callback([=, &chosen] {
        chosen.action = [=](Environment&, const GlobalOptions& options) { return run(*key, *value, options.json); };
    });
}

}  // namespace dayward
