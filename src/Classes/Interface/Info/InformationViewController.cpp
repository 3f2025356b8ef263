#include "Classes/Interface/Info/InformationViewController.h"

#include "Classes/Interface/Screens/Presenter.h"
#include "Submodules/CorpLibrary2/App/CCApp.h"
#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "platform/Strings.h"
#include "resources/HHResources.h"

namespace dayward {

InformationViewController::InformationViewController() { setTitle(localized("About")); }

std::vector<TableSection> InformationViewController::makeSections() {
    TableSection program{"program", {}, {}, {}};
    program.rows.push_back(valueRow("name", localized("Program"), CCApp::displayName().value_or("Dayward"), {}));
    if (const auto version = CCApp::shortVersion()) {
        program.rows.push_back(valueRow("version", localized("Version"), *version, {}));
    }
    TableSection licences{"licences", {}, {}, {}};
    licences.rows.push_back(openingRow("licences", localized("Licences"), {}, [this] {
        presenter().push(*this, std::make_shared<LicencesViewController>());
    }));
    if (const std::string link = CCApp::shareLink(); link.starts_with("http")) {
        licences.rows.push_back(actionRow("link", localized("Website"), [this, link] { presenter().openLink(link); }));
    }
    return {std::move(program), std::move(licences)};
}

LicencesViewController::LicencesViewController() { setTitle(localized("Licences")); }

std::vector<TableSection> LicencesViewController::makeSections() {
    TableSection section{"licences", {}, {}, {}};
    const auto path = HHResources::pathForResource(kFileName, kFileType);
    const auto bytes = path ? Environment::current().files().readFile(*path) : Result<Data>();
    const std::string text = bytes ? textOf(*bytes) : std::string();
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find("\n\n", begin), text.size());
        if (end > begin) {
            section.rows.push_back(
                textRow("block" + std::to_string(section.rows.size()), text.substr(begin, end - begin)));
        }
        begin = text.find_first_not_of('\n', end);
    }
    return {std::move(section)};
}

}  // namespace dayward
