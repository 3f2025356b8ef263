// dayward doctor
#include <CLI/CLI.hpp>

#include "Classes/Event/Doctor.h"
#include "agent/desktop/AgentDevice.h"
#include "alerts/AlertHealth.h"
#include "cli/AlertHealthOutput.h"
#include "cli/Command.h"
#include "cli/Output.h"
#include "cli/Program.h"
#include "cli/Terminal.h"
#include "platform/Environment.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

JSON problemsJSON(const std::vector<Problem>& problems) {
    JSON list = JSON::array();
    for (const Problem& problem : problems) list.push_back({{"path", problem.path}, {"reason", problem.reason}});
    return list;
}

void printProblems(const std::vector<Problem>& problems) {
    for (const Problem& problem : problems) printLine(printable(problem.path + ": " + problem.reason));
    if (problems.empty()) printLine(localized("No problems found"));
}

}  // namespace

void addDoctorCommand(CLI::App& app, ChosenCommand& chosen) {
    CLI::App* command = app.add_subcommand("doctor", "Every file of the home that cannot be read, and whether alerts will come");
    command->callback([&chosen] {
        chosen.needsStore = false;
        chosen.action = [&chosen](Environment& environment, const GlobalOptions& options) -> Result<> {
            const std::vector<Problem> problems = TRY(examineHome(environment));
            AgentDevice device(agentOf(options));
            const AlertHealth health = AlertHealth::present(&device);
            if (options.json) {
                printJSON({{"problems", problemsJSON(problems)}, {"alerts", alertHealthJSON(health)}});
            } else {
                printProblems(problems);
                printAlertHealth(environment, health);
            }
            chosen.exitStatus = problems.empty() ? 0 : 1;
            return {};
        };
    });
}

}  // namespace dayward
