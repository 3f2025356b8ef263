// dayward document read|write|archive
#include <CLI/CLI.hpp>
#include <iostream>
#include <iterator>
#include <memory>

#include "Classes/Event/EventJSONValue.h"
#include "Classes/Event/EventStoreHelper.h"
#include "Classes/Event/HHEvent.h"
#include "cli/Command.h"
#include "cli/Output.h"
#include "cli/Terminal.h"
#include "platform/ArchiveDump.h"
#include "platform/Environment.h"
#include "platform/FileSystem.h"

namespace dayward {

namespace {

Result<> readDocument(const std::string& path) {
    const std::string package = TRY(absolutePath(path));
    const auto event = TRY(EventStoreHelper::readEvent(package));
    printJSON(eventJSONValue(*event));
    return {};
}

Result<> writeDocument(const std::string& path, bool json) {
    const std::string package = TRY(absolutePath(path));
    const std::string text{std::istreambuf_iterator<char>(std::cin), {}};
    const auto event = TRY(eventFromJSON(text));
    TRY_VOID(EventStoreHelper::writeEvent(*event, package));
    if (json) {
        printJSON({{"path", package}});
    } else {
        printLine("wrote " + printable(package));
    }
    return {};
}

Result<> dumpArchive(Environment& environment, const std::string& path) {
    const std::string file = TRY(absolutePath(path));
    const Data bytes = TRY(environment.files().readFile(file));
    printLine(TRY(archiveAsJSON(bytes)));
    return {};
}

}  // namespace

void addDocumentCommand(CLI::App& app, ChosenCommand& chosen) {
    CLI::App* document = app.add_subcommand("document", "Read and write event packages and archives")->require_subcommand(1);
    const auto path = std::make_shared<std::string>();
    const auto add = [&](const char* name, const char* description, CommandAction action) {
        CLI::App* command = document->add_subcommand(name, description);
        command->add_option("path", *path, "The file or package")->required();
        command->callback([&chosen, action] {
            chosen.needsStore = false;
            chosen.action = action;
        });
    };
    add("read", "The event in a package, as JSON", [path](Environment&, const GlobalOptions&) { return readDocument(*path); });
    add("write", "An event in JSON on standard input, as a package",
        [path](Environment&, const GlobalOptions& options) { return writeDocument(*path, options.json); });
    add("archive", "Any keyed archive as JSON",
        [path](Environment& environment, const GlobalOptions&) { return dumpArchive(environment, *path); });
}

}  // namespace dayward
