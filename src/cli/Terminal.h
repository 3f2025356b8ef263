// What standard output can show: colour, width, how wide a text is; and the keys of a live screen.
#pragma once

#include <string>
#include <string_view>

namespace dayward {

/// Whether standard output is a terminal that takes colours ($NO_COLOR and TERM=dumb are respected).
bool terminalHasColour();
/// Columns of the terminal, 80 where it is none.
int terminalWidth();

/// Lines of the terminal, a great many where it is none.
int terminalHeight();

/// Columns that a UTF-8 text takes; wide characters count two, combining ones none, control ones none.
int displayWidth(std::string_view text);
/// The text without control characters and those that turn the direction of what follows, cut to at most `columns` with "…" at the end where it was
/// longer. What is printed of a user's texts goes through this, so that no text drives the terminal.
std::string fitted(std::string_view text, int columns);
/// The whole text as fitted() leaves it: one line that no text breaks or drives the terminal with.
std::string printable(std::string_view text);
/// fitted() and then padded with blanks to exactly `columns`.
std::string padded(std::string_view text, int columns);

/// Puts the terminal into a live screen while it lives: keys come at once and unechoed, the cursor is
/// hidden, the screen is restored at the end, by SIGINT and SIGTERM as well. Does nothing where standard
/// input or output is no terminal.
class LiveScreen {
public:
    LiveScreen();
    ~LiveScreen();
    LiveScreen(const LiveScreen&) = delete;
    LiveScreen& operator=(const LiveScreen&) = delete;

    [[nodiscard]] bool isTerminal() const { return terminal_; }
    /// Replaces what the screen shows; prints the text plainly where it is no terminal.
    void show(const std::string& text) const;
    /// Waits at most `milliseconds` for a key. False when the user wants to end: "q", the end of
    /// standard input, or a signal to end.
    bool waitForEnd(int milliseconds);

private:
    bool terminal_ = false;
    bool inputOpen_ = true;
};

}  // namespace dayward
