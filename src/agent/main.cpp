// The program dayward-agent: shows the alerts when they are due, whether the application runs or not.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>

#include "agent/AgentProgram.h"
#include "cli/ProgramVersion.h"

namespace {

constexpr int kWrongUsage = 2;

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
    try {
        parser.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) return parser.exit(error);
        std::cerr << "dayward-agent: " << error.what() << "; try --help" << std::endl;
        return kWrongUsage;
    }
    return dayward::runAgent(options);
}
