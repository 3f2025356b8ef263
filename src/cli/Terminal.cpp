#include "cli/Terminal.h"

#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <limits>

#include "platform/TextSearch.h"

namespace dayward {

namespace {

std::atomic<bool> endRequested{false};
termios savedModes{};
struct sigaction savedInterrupt{}, savedTerminate{};

void requestEnd(int) { endRequested = true; }

constexpr char32_t kBad = 0xFFFD;

/// The code point at `position`, which is moved behind it; broken bytes read as U+FFFD.
char32_t nextCodePoint(std::string_view text, std::size_t& position) {
    const auto lead = static_cast<unsigned char>(text[position++]);
    if (lead < 0x80) return lead;
    const int more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
    if (more == 0) return kBad;
    char32_t point = lead & (0x3F >> more);
    for (int index = 0; index < more; ++index) {
        if (position >= text.size() || (static_cast<unsigned char>(text[position]) & 0xC0) != 0x80) return kBad;
        point = (point << 6) | (static_cast<unsigned char>(text[position++]) & 0x3F);
    }
    return point;
}

/// Controls, line separators, and the embeddings, overrides and isolates that would turn the rest of a line.
bool drivesTerminal(char32_t point) {
    return point < 0x20 || (point >= 0x7F && point < 0xA0) || (point >= 0x2028 && point <= 0x202E) ||
           (point >= 0x2066 && point <= 0x2069);
}

}  // namespace

bool terminalHasColour() {
    const char* term = std::getenv("TERM");
    const char* noColour = std::getenv("NO_COLOR");
    return isatty(STDOUT_FILENO) != 0 && (noColour == nullptr || *noColour == 0) && term != nullptr &&
           std::string_view(term) != "dumb";
}

int terminalWidth() {
    winsize size{};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
    return 80;
}

int terminalHeight() {
    constexpr int kNoLimit = 1'000'000;
    winsize size{};
    return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_row > 0 ? size.ws_row : kNoLimit;
}

int displayWidth(std::string_view text) {
    int width = 0;
    for (std::size_t position = 0; position < text.size();) {
        width += columnsOfCodePoint(nextCodePoint(text, position));
    }
    return width;
}

std::string fitted(std::string_view text, int columns) {
    std::string result;
    std::size_t cut = 0;  // where the text still leaves a column for the ellipsis
    int width = 0;
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t start = position;
        const char32_t point = nextCodePoint(text, position);
        if (drivesTerminal(point)) continue;
        width += columnsOfCodePoint(point);
        if (width > columns) return columns > 0 ? result.substr(0, cut) + "…" : std::string();
        result += point == kBad ? std::string("\uFFFD") : std::string(text.substr(start, position - start));
        if (width < columns) cut = result.size();
    }
    return result;
}

std::string printable(std::string_view text) { return fitted(text, std::numeric_limits<int>::max()); }

std::string padded(std::string_view text, int columns) {
    std::string result = fitted(text, columns);
    const int missing = columns - displayWidth(result);
    if (missing > 0) result.append(static_cast<std::size_t>(missing), ' ');
    return result;
}

LiveScreen::LiveScreen() {
    endRequested = false;
    struct sigaction action{};
    action.sa_handler = requestEnd;
    sigaction(SIGINT, &action, &savedInterrupt);
    sigaction(SIGTERM, &action, &savedTerminate);
    if (isatty(STDIN_FILENO) == 0 || isatty(STDOUT_FILENO) == 0) return;
    if (tcgetattr(STDIN_FILENO, &savedModes) != 0) return;
    terminal_ = true;
    termios live = savedModes;
    live.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
    tcsetattr(STDIN_FILENO, TCSANOW, &live);
    std::fputs("\x1b[?1049h\x1b[?25l", stdout);
}

LiveScreen::~LiveScreen() {
    if (terminal_) {
        std::fputs("\x1b[?25h\x1b[?1049l", stdout);
        std::fflush(stdout);
        tcsetattr(STDIN_FILENO, TCSANOW, &savedModes);
    }
    sigaction(SIGINT, &savedInterrupt, nullptr);
    sigaction(SIGTERM, &savedTerminate, nullptr);
}

void LiveScreen::show(const std::string& text) const {
    if (terminal_) {
        std::string frame = "\x1b[H";
        for (const char c : text) {
            if (c == '\n') frame += "\x1b[K";
            frame += c;
        }
        std::fputs((frame + "\x1b[J").c_str(), stdout);
    } else {
        std::fputs(text.c_str(), stdout);
    }
    std::fflush(stdout);
}

bool LiveScreen::waitForEnd(int milliseconds) {
    using Clock = std::chrono::steady_clock;
    const auto deadline = Clock::now() + std::chrono::milliseconds(milliseconds);
    while (!endRequested) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
        if (left <= 0) return true;
        pollfd input{inputOpen_ ? STDIN_FILENO : -1, POLLIN, 0};
        if (poll(&input, 1, static_cast<int>(left)) <= 0) continue;
        char key = 0;
        if (read(STDIN_FILENO, &key, 1) <= 0) return false;
        if (key == 'q' || key == 'Q') return false;
    }
    return false;
}

}  // namespace dayward
