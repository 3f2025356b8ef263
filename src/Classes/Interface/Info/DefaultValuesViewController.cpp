#include "Classes/Interface/Info/DefaultValuesViewController.h"

#include "Classes/Interface/Edit/DateFormatViewController.h"
#include "Classes/Interface/Edit/EditTimeView.h"
#include "Classes/Interface/General/Interface.h"
#include "Classes/Interface/Screens/Presenter.h"
#include "Classes/Interface/Select/SoundsViewController.h"
#include "Classes/Settings/AppSettings.h"
#include "platform/Strings.h"

namespace dayward {

DefaultValuesViewController::DefaultValuesViewController() { setTitle(localized("Default Values")); }

std::vector<TableSection> DefaultValuesViewController::makeSections() {
    return {{"values",
             {},
             {},
             {valueRow("time", localized("Time"), Interface::descriptionTime(AppSettings::defaultTime()),
                       [this] { openTime(); }),
              openingRow("units", localized("Units"),
                         Interface::descriptionIntervalFormat(AppSettings::defaultIntervalFormat()),
                         [this] { openUnits(); }),
              openingRow("alerts", localized("Alerts"), Interface::descriptionAlerts(AppSettings::defaultAlerts()),
                         [this] { openAlerts(); }),
              openingRow("sound", localized("Sound"), Interface::descriptionSound(AppSettings::defaultSoundName()),
                         [this] { openSound(); })}}};
}

void DefaultValuesViewController::openTime() {
    const auto done = [this](std::int64_t minutes) {
        AppSettings::setDefaultTime(minutes);
        reloadData();
    };
    presenter().presentPanel(*this,
                             std::make_shared<EditTimeView>(AppSettings::defaultTime(), done, std::function<void()>()));
}

void DefaultValuesViewController::openUnits() {
    presenter().push(*this, std::make_shared<DateFormatViewController>(
                                AppSettings::defaultIntervalFormat(), [](const HHEventDateFormat& format) {
                                    if (format == AppSettings::defaultIntervalFormat()) return;
                                    AppSettings::setDefaultIntervalFormat(format);
                                }));
}

void DefaultValuesViewController::openAlerts() {
    presenter().push(*this, std::make_shared<AlertsViewController>(
                                AppSettings::defaultAlerts(),
                                std::static_pointer_cast<DefaultValuesViewController>(shared_from_this())));
}

void DefaultValuesViewController::completeWithAlerts(AlertsViewController&,
                                                     const std::vector<XDIDateInterval>& alerts) {
    if (alerts != AppSettings::defaultAlerts()) AppSettings::setDefaultAlerts(alerts);
}

void DefaultValuesViewController::openSound() {
    presenter().push(*this, std::make_shared<SoundsViewController>(AppSettings::defaultSoundName(),
                                                                   [](const std::optional<std::string>& sound) {
                                                                       AppSettings::setDefaultSoundName(sound);
                                                                   }));
}

}  // namespace dayward
