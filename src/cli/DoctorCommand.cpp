// dayward doctor
#include <CLI/CLI.hpp>

#include "Classes/Event/Doctor.h"
#include "cli/Command.h"
#include "cli/Output.h"
#include "platform/Strings.h"
#include "cli/Terminal.h"

namespace dayward {

void addDoctorCommand(CLI::App& app, ChosenCommand& chosen) {
    CLI::App* command = app.add_subcommand("doctor", "Every file of the home that cannot be read");
    command->callback([&chosen] {
        chosen.needsStore = false;
        chosen.action = [&chosen](Environment& environment, const GlobalOptions& options) -> Result<> {
            const std::vector<Problem> problems = TRY(examineHome(environment));
            JSON list = JSON::array();
            for (const Problem& problem : problems) {
                list.push_back({{"path", problem.path}, {"reason", problem.reason}});
                if (!options.json) printLine(printable(problem.path + ": " + problem.reason));
            }
            if (options.json) printJSON({{"problems", std::move(list)}});
            if (!options.json && problems.empty()) printLine(localized("No problems found"));
            chosen.exitStatus = problems.empty() ? 0 : 1;
            return {};
        };
    });
}

}  // namespace dayward
