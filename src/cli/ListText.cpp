#include "cli/ListText.h"

#include <algorithm>

#include "Classes/Event/HHEvent.h"
#include "Classes/Interface/List/EventRowText.h"
#include "cli/Terminal.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

constexpr const char* kHeading = "\x1b[1;36m";
constexpr const char* kDim = "\x1b[2m";
constexpr const char* kCountdown = "\x1b[1;33m";
constexpr const char* kRunning = "\x1b[1;32m";
constexpr const char* kReset = "\x1b[0m";
constexpr int kGap = 2;

struct Row {
    std::string title, date, interval, identifier;
    bool running = false;
};

struct Widths {
    int title = 0, date = 0, interval = 0;
};

Row rowOf(const HHEvent& event) {
    const EventRowText text = eventRowText(event);
    return {text.title, text.date, text.interval.value_or(""), event.identifier(), event.isComing()};
}

void widen(int& width, const std::string& text, int most) { width = std::min(std::max(width, displayWidth(text)), most); }

class ListWriter {
public:
    ListWriter(const std::vector<ListSection>& sections, const ListTextOptions& options) : options_(options) {
        for (const ListSection& section : sections) {
            std::vector<Row>& rows = rows_.emplace_back();
            for (const auto& event : section.events) rows.push_back(rowOf(*event));
        }
        measure();
        for (std::size_t index = 0; index < sections.size(); ++index) write(sections[index].title, rows_[index]);
    }

    std::string text() && { return std::move(text_); }

private:
    void measure() {
        const int most = std::max(20, options_.width / 2);
        for (const auto& rows : rows_) {
            for (const Row& row : rows) {
                widen(widths_.title, row.title, most);
                widen(widths_.date, row.date, most);
                widen(widths_.interval, row.interval, most);
            }
        }
        int overflow = kGap + widths_.title + widths_.date + widths_.interval + 2 * kGap - options_.width;
        shrink(widths_.title, 12, overflow);
        shrink(widths_.date, 8, overflow);
        shrink(widths_.interval, 8, overflow);
    }

    /// Takes what is too much from a column, but leaves it `least`.
    static void shrink(int& width, int least, int& overflow) {
        const int taken = std::clamp(overflow, 0, std::max(0, width - least));
        width -= taken;
        overflow -= taken;
    }

    void write(const std::string& title, const std::vector<Row>& rows) {
        if (!title.empty()) line(styled(kHeading, fitted(title, options_.width)));
        for (const Row& row : rows) line(rowText(row));
        if (!title.empty()) line("");
    }

    std::string rowText(const Row& row) const {
        const std::string gap(kGap, ' ');
        const std::string blanks(static_cast<std::size_t>(std::max(0, widths_.interval - displayWidth(row.interval))), ' ');
        std::string text = "  " + padded(row.title, widths_.title) + gap +
                           styled(kDim, padded(row.date, widths_.date)) + gap + blanks +
                           styled(row.running ? kRunning : kCountdown, fitted(row.interval, widths_.interval));
        if (options_.identifiers) text += gap + fitted(row.identifier, 200);
        return text;
    }

    std::string styled(const char* style, const std::string& text) const {
        return options_.colour ? style + text + kReset : text;
    }

    void line(const std::string& text) {
        if (options_.maximumLines > 0 && lines_ >= options_.maximumLines) return;
        ++lines_;
        text_ += options_.maximumLines > 0 && lines_ == options_.maximumLines ? "…" : text;
        text_ += '\n';
    }

    ListTextOptions options_;
    std::vector<std::vector<Row>> rows_;
    Widths widths_;
    std::string text_;
    int lines_ = 0;
};

}  // namespace

std::string listText(const std::vector<ListSection>& sections, const ListTextOptions& options) {
    return ListWriter(sections, options).text();
}

}  // namespace dayward
