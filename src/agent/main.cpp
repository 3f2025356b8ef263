// The program dayward-agent: shows the alerts when they are due, whether the application runs or not.
#include <CLI/CLI.hpp>
#include <filesystem>

#include "agent/AgentProgram.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramVersion.h"

namespace {

std::filesystem::path programDirectory() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App parser("Shows the alerts of events when they are due, whether the application runs or not.", "dayward-agent");
    dayward::AgentOptions options;
    options.programs = programDirectory().string();
    options.resources = (programDirectory().parent_path() / "share" / "dayward").string();
    options.version = dayward::kProgramVersion;
    parser.add_option("--home", options.home, "The home whose alerts are shown");
    parser.add_option("--driven-clock", options.drivenClock)->group("");
    parser.add_flag("--on-desktop", options.onDesktop)->group("");
    parser.set_version_flag("--version", std::string(dayward::kProgramVersion));
    if (const auto status = dayward::parseArguments(parser, argc, argv)) return *status;
    return dayward::runAgent(options);
}
