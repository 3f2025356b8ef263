#include "widget/WidgetText.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <span>

#include "alerts/WidgetEvent.h"
#include "cli/Terminal.h"
#include "intervals/ISODate.h"
#include "platform/Markup.h"
#include "platform/Strings.h"

namespace dayward {
namespace {

using JSON = nlohmann::ordered_json;
using Rows = std::span<const WidgetRow>;

std::string line(const JSON& document) { return document.dump(-1, ' ', false, JSON::error_handler_t::replace); }

std::string rowText(const WidgetRow& row) {
    return printable(row.title) + ": " + printable(row.countdown.value_or(row.date));
}

std::string joined(const Rows& rows, const std::string& separator) {
    std::string text;
    for (const WidgetRow& row : rows) {
        if (&row != rows.data()) text += separator;
        text += rowText(row);
    }
    return text;
}

JSON rowJSON(const WidgetRow& row) {
    const auto text = [](const std::optional<std::string>& value) { return value ? JSON(*value) : JSON(nullptr); };
    return {{"identifier", row.event->key()},
            {"name", text(row.event->name)},
            {"title", row.title},
            {"nextDate", row.nextDate ? JSON(isoText(*row.nextDate)) : JSON(nullptr)},
            {"nextDateSeconds", row.nextDate ? JSON(row.nextDate->secondsSinceReference()) : JSON(nullptr)},
            {"dateText", row.date},
            {"countdown", text(row.countdown)},
            {"isComing", row.isComing},
            {"isToday", row.isToday}};
}

std::string jsonText(const WidgetContent& content, WidgetType type) {
    JSON events = JSON::array();
    for (const WidgetRow& row : content.rows) events.push_back(rowJSON(row));
    return line({{"type", type == WidgetType::selectedEvents ? "selected" : "today"}, {"events", std::move(events)}});
}

std::string tooltip(const WidgetContent& content) {
    std::string text;
    for (const WidgetRow& row : content.rows) {
        if (!text.empty()) text += '\n';
        text += rowText(row);
        if (row.nextDate) text += " (" + printable(row.date) + ")";
    }
    return content.rows.empty() ? localized("No events") : text;
}

const char* stateOf(const WidgetContent& content) {
    if (content.rows.empty()) return "none";
    const WidgetRow& first = content.rows.front();
    return first.isComing ? "now" : first.isToday ? "today" : "later";
}

/// Bars read their texts as markup.
std::string waybarText(const WidgetContent& content, const Rows& rows, const std::string& separator) {
    const char* const state = stateOf(content);
    return line({{"text", markupOfText(joined(rows, separator))},
                 {"alt", state},
                 {"tooltip", markupOfText(tooltip(content))},
                 {"class", state}});
}

}  // namespace

std::size_t rowsNeeded(const WidgetTextOptions& options) {
    return options.format == WidgetFormat::waybar ? kMaximalWidgetEvents : options.count;
}

std::string widgetText(const WidgetContent& content, WidgetType type, const WidgetTextOptions& options) {
    const Rows rows = Rows(content.rows).first(std::min(options.count, content.rows.size()));
    switch (options.format) {
        case WidgetFormat::text: return joined(rows, options.separator);
        case WidgetFormat::json: return jsonText(content, type);
        case WidgetFormat::waybar: return waybarText(content, rows, options.separator);
    }
    return {};
}

}  // namespace dayward
