#include "Classes/Interface/Info/InformationViewController.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "Classes/Interface/Screens/Presenter.h"
#include "Submodules/CorpLibrary2/App/CCApp.h"
#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "platform/Strings.h"
#include "resources/HHResources.h"

namespace dayward {

namespace {

/// Without the blanks of an indented line, and with a dash for the gap between its columns.
std::string flowing(std::string line) {
    line.erase(0, line.find_first_not_of(' '));
    const std::size_t gap = line.find("  ");
    if (gap != std::string::npos) line.replace(gap, line.find_first_not_of(' ', gap) - gap, " – ");
    return line;
}

/// The first line heads those that follow.
TableSection sectionOf(const std::string& block, std::string id) {
    std::istringstream lines(block);
    TableSection section{std::move(id), {}, {}, {}};
    std::getline(lines, section.header);
    for (std::string line; std::getline(lines, line);) {
        std::string row = section.id + "-" + std::to_string(section.rows.size());
        section.rows.push_back(textRow(std::move(row), flowing(std::move(line))));
    }
    return section;
}

}  // namespace

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
    const auto path = HHResources::pathForResource(kFileName, kFileType);
    const auto bytes = path ? Environment::current().files().readFile(*path) : Result<Data>();
    const std::string text = bytes ? textOf(*bytes) : std::string();
    std::vector<TableSection> sections;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find("\n\n", begin), text.size());
        if (end > begin) {
            sections.push_back(sectionOf(text.substr(begin, end - begin), "block" + std::to_string(sections.size())));
        }
        begin = text.find_first_not_of('\n', end);
    }
    return sections;
}

}  // namespace dayward
