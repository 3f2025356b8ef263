// The program dayward-widget: prints the widget as a line, or opens its window.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <map>
#include <memory>

#include "cli/ProgramArguments.h"
#include "cli/ProgramVersion.h"
#include "platform/Clock.h"
#include "widget/WidgetSession.h"
#include "widget/WidgetText.h"
#include "widget/WidgetWait.h"

namespace dayward {
namespace {

enum Exit { done = 0, failed = 1, wrongUsage = 2 };

constexpr const char* kName = "dayward-widget";
constexpr const char* kWindowProgram = "dayward-widget-window";

const std::map<std::string, WidgetFormat> kFormats{
    {"text", WidgetFormat::text}, {"json", WidgetFormat::json}, {"waybar", WidgetFormat::waybar}};

struct Options {
    std::string home, now, zone, locale, format;
    std::optional<std::size_t> count;
    std::string separator = " · ";
    bool follow = false;
    bool driven = false;
};

std::filesystem::path programDirectory() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

int complain(const std::string& line, Exit status) {
    std::cerr << kName << ": " << line << std::endl;
    return status;
}

void declare(CLI::App& parser, Options& options) {
    parser.add_option("--format", options.format, "Print a line: text, json or waybar")
        ->check(CLI::IsMember(kFormats));
    parser.add_option("--count", options.count, "So many events, 1 to 10")
        ->check(CLI::Range(std::size_t(1), kMaximalWidgetEvents));
    parser.add_flag("--follow", options.follow, "Print a line whenever it changes");
    parser.add_option("--separator", options.separator, "Between the events of a line");
    parser.add_option("--home", options.home, "The home that the application keeps");
    parser.add_option("--now", options.now, "Show this local time; --follow goes on from there");
    parser.add_option("--tz", options.zone, "The time zone, such as Europe/Moscow");
    parser.add_option("--locale", options.locale, "Language and region, such as ru_RU");
    parser.add_flag("--driven-by-input", options.driven)->group("");
    parser.set_version_flag("--version", std::string(kProgramVersion));
}

/// The window is a program of its own, so that a line for a bar does not load the toolkit.
int openWindow(char** argv) {
    const std::string program = (programDirectory() / kWindowProgram).string();
    execv(program.c_str(), argv);
    return complain(std::string(kWindowProgram) + " is not installed beside it; --format prints a line", failed);
}

WidgetTextOptions textOptions(const Options& options) {
    const WidgetFormat format = kFormats.at(options.format);
    return {format, options.count.value_or(format == WidgetFormat::json ? kMaximalWidgetEvents : 1), options.separator};
}

std::unique_ptr<WidgetWait> makeWait(const Options& options, const WidgetSession& session, std::optional<Date> now) {
    if (options.driven) return std::make_unique<DrivenWait>(std::cin, now.value_or(SystemClock().now()));
    const TimeInterval shift = now ? *now - SystemClock().now() : TimeInterval(0);
    auto wait = SystemWait::make({session.path(), session.followsZone(), shift});
    if (wait) return std::make_unique<SystemWait>(*std::move(wait));
    complain(wait.error().description(), failed);
    return nullptr;
}

WidgetContent present(WidgetSession& session, Date now, const WidgetTextOptions& options) {
    session.setNow(now);
    return widgetContent(session.events(), session.type(), rowsNeeded(options));
}

int follow(WidgetSession& session, WidgetWait& wait, const WidgetTextOptions& options) {
    std::optional<std::string> last;
    for (;;) {
        const WidgetContent content = present(session, wait.now(), options);
        std::string text = widgetText(content, session.type(), options);
        if (text != last) std::cout << text << std::endl;
        if (!std::cout) return done;
        last = std::move(text);
        const auto wake = wait.until(content.changesAt);
        if (wake == WidgetWait::Wake::end) return done;
        if (wake == WidgetWait::Wake::changed) session.reload();
    }
}

int run(const Options& options) {
    const auto given = givenNow(options.now, options.zone);
    if (!given) return complain(given.error().description(), wrongUsage);
    const std::optional<Date> now = *given;
    const std::string resources = (programDirectory().parent_path() / "share" / "dayward").string();
    WidgetSession session({options.home, resources, options.zone, options.locale, kName});
    const WidgetTextOptions texts = textOptions(options);
    if (options.follow) {
        // Watched before it is read: a copy that is written in between is not missed.
        const auto wait = makeWait(options, session, now);
        if (!wait) return failed;
        session.reload();
        return follow(session, *wait, texts);
    }
    const bool isWhole = session.reload();
    const WidgetContent content = present(session, now.value_or(SystemClock().now()), texts);
    std::cout << widgetText(content, session.type(), texts) << std::endl;
    return isWhole && std::cout ? done : failed;
}

}  // namespace

int runWidget(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    CLI::App parser("What comes next, for bars, scripts and the desktop. Without --format, a small window.", kName);
    Options options;
    declare(parser, options);
    if (const auto status = parseArguments(parser, argc, argv)) return *status;
    if (!options.format.empty()) return run(options);
    if (options.follow) return complain("--follow prints lines and needs --format; try --help", wrongUsage);
    return openWindow(argv);
}

}  // namespace dayward

int main(int argc, char** argv) { return dayward::runWidget(argc, argv); }
