#include "shell/TableRowData.h"

#include "platform/Environment.h"
#include "shell/Pictures.h"
#include "shell/QtValues.h"

namespace dayward {

namespace {

struct ContentMaker {
    Pictures& pictures;

    QVariantMap operator()(std::monostate) const { return {}; }
    QVariantMap operator()(const TextContent& text) const {
        return {{"text", qtText(text.text)}, {"placeholder", qtText(text.placeholder)}};
    }
    QVariantMap operator()(const DateContent& date) const {
        const Calendar::Fields fields = Environment::current().calendar()->fields(date.date);
        return {{"year", static_cast<int>(fields.year)},
                {"month", fields.month},
                {"day", fields.day},
                {"hour", fields.hour},
                {"minute", fields.minute},
                {"hasDate", date.mode != DateContent::Mode::time},
                {"hasTime", date.mode != DateContent::Mode::date}};
    }
    QVariantMap operator()(const WheelsContent& content) const {
        QVariantList wheels;
        for (const Wheel& wheel : content.wheels) {
            wheels.append(QVariantMap{{"titles", qtTexts(wheel.titles)}, {"selected", qulonglong(wheel.selected)}});
        }
        return {{"wheels", wheels}};
    }
    QVariantMap operator()(const GridContent& grid) const {
        QVariantList items;
        for (const GridItem& item : grid.items) {
            items.append(QVariantMap{{"label", qtText(item.label)},
                                     {"selected", item.selected},
                                     {"hasColor", item.color.has_value()},
                                     {"color", item.color ? qtColor(*item.color) : QColor()},
                                     {"picture", item.picture ? pictures.add(*item.picture) : QString()}});
        }
        return {{"columns", int(grid.columns)}, {"items", items}};
    }
    QVariantMap operator()(const RowPicture& picture) const {
        return {{"picture", pictures.add(picture)}, {"whole", picture.isWhole}};
    }
    QVariantMap operator()(const Color& color) const { return {{"color", qtColor(color)}}; }
    QVariantMap operator()(const LookContent& look) const {
        return {{"background", pictures.add(look.background)},
                {"icon", pictures.add(look.icon)},
                {"fontName", qtText(look.fontName)},
                {"textColor", qtColor(look.textColor)},
                {"scrim", qtColor(look.scrim)},
                {"title", qtText(look.title)},
                {"date", qtText(look.date)},
                {"countdown", qtText(look.countdown)}};
    }
    QVariantMap operator()(const EventEditHeaderCell& header) const {
        return {{"icon", pictures.add(header.iconView)},
                {"iconInherited", header.iconCategoryMark},
                {"iconHelp", qtText(header.iconHelpLabel)},
                {"name", qtText(header.nameField.text)},
                {"namePlaceholder", qtText(header.nameField.placeholder)},
                {"categoryPlaceholder", qtText(header.categoryField.placeholderLabel)},
                {"category", qtText(header.categoryField.text)}};
    }
};

}  // namespace

TableRowData::TableRowData(const TableRow& row, Pictures& pictures)
    : kind(nameOfKind(row.kind)),
      rowId(qtText(row.id)),
      label(qtText(row.label)),
      detail(qtText(row.detail)),
      fontName(qtText(row.fontName)),
      spoken(qtText(accessibleSentence(row))),
      content(std::visit(ContentMaker{pictures}, row.content)),
      hasSwitch(row.on.has_value()),
      on(row.on.value_or(false)),
      canOpen(row.open.has_value()),
      open(row.open.value_or(false)),
      checked(row.checked),
      emphasized(row.emphasized),
      inherited(row.inherited),
      enabled(row.enabled),
      tappable(row.enabled && (row.actions.select || row.open)),
      opensScreen(row.opensScreen),
      startsFocused(row.startsFocused),
      isQuiet(row.isQuiet),
      canDelete(row.canDelete),
      canMove(row.canMove) {}

TableRowData::TableRowData(QString itsKind, const std::string& text) : kind(std::move(itsKind)), label(qtText(text)) {
    spoken = label;
}

QString nameOfKind(RowKind kind) {
    switch (kind) {
        case RowKind::text: return QStringLiteral("text");
        case RowKind::value: return QStringLiteral("value");
        case RowKind::check: return QStringLiteral("check");
        case RowKind::toggle: return QStringLiteral("toggle");
        case RowKind::textField: return QStringLiteral("textField");
        case RowKind::textArea: return QStringLiteral("textArea");
        case RowKind::date: return QStringLiteral("date");
        case RowKind::wheels: return QStringLiteral("wheels");
        case RowKind::grid: return QStringLiteral("grid");
        case RowKind::picture: return QStringLiteral("picture");
        case RowKind::color: return QStringLiteral("color");
        case RowKind::look: return QStringLiteral("look");
        case RowKind::eventHeader: return QStringLiteral("eventHeader");
        case RowKind::action: return QStringLiteral("action");
        case RowKind::destructive: return QStringLiteral("destructive");
    }
    return {};
}

}  // namespace dayward
