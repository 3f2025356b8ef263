#include "Classes/Interface/Screens/TableRow.h"

#include <algorithm>
#include <utility>

#include "platform/Strings.h"

namespace dayward {

namespace {

TableRow rowOf(RowKind kind, std::string id, std::string label) {
    TableRow row;
    row.kind = kind;
    row.id = std::move(id);
    row.label = std::move(label);
    return row;
}

/// Puts the parts that there are behind one another.
class Sentence {
public:
    void add(const std::string& part) {
        if (part.empty()) return;
        text_ += (text_.empty() ? "" : ", ") + part;
        std::ranges::replace(text_, '\n', ' ');
    }
    [[nodiscard]] std::string text() const { return text_; }

private:
    std::string text_;
};

void addContent(Sentence& sentence, const RowValue& row) {
    if (const auto* text = std::get_if<TextContent>(&row.content)) {
        if (text->placeholder != row.label) sentence.add(text->placeholder);
        sentence.add(text->text);
    }
    if (const auto* look = std::get_if<LookContent>(&row.content)) {
        for (const std::string& part : {look->title, look->date, look->countdown}) sentence.add(part);
    }
    if (const auto* header = std::get_if<EventEditHeaderCell>(&row.content)) {
        sentence.add(header->nameField.text.empty() ? header->nameField.placeholder : header->nameField.text);
        sentence.add(header->categoryField.placeholderLabel);
        sentence.add(header->categoryField.text);
    }
}

}  // namespace

std::string accessibleSentence(const RowValue& row) {
    if (!row.accessibility.empty()) return row.accessibility;
    Sentence sentence;
    sentence.add(row.label);
    sentence.add(row.detail);
    addContent(sentence, row);
    if (row.on) sentence.add(localized(*row.on ? "on" : "off"));
    if (row.kind == RowKind::check) sentence.add(localized(row.checked ? "selected" : "not selected"));
    if (row.inherited) sentence.add(localized("from the category"));
    if (row.open) sentence.add(localized(*row.open ? "open" : "closed"));
    return sentence.text();
}

TableRow textRow(std::string id, std::string text) {
    TableRow row = rowOf(RowKind::text, std::move(id), {});
    row.detail = std::move(text);
    return row;
}

TableRow valueRow(std::string id, std::string label, std::string detail, std::function<void()> select) {
    TableRow row = rowOf(RowKind::value, std::move(id), std::move(label));
    row.detail = std::move(detail);
    row.actions.select = std::move(select);
    return row;
}

TableRow openingRow(std::string id, std::string label, std::string detail, std::function<void()> select) {
    TableRow row = valueRow(std::move(id), std::move(label), std::move(detail), std::move(select));
    row.opensScreen = true;
    return row;
}

TableRow checkRow(std::string id, std::string label, bool checked, std::function<void()> select) {
    TableRow row = rowOf(RowKind::check, std::move(id), std::move(label));
    row.checked = checked;
    row.actions.select = std::move(select);
    return row;
}

TableRow toggleRow(std::string id, std::string label, bool on, std::function<void(bool)> toggle) {
    TableRow row = rowOf(RowKind::toggle, std::move(id), std::move(label));
    row.on = on;
    row.actions.toggle = std::move(toggle);
    return row;
}

TableRow textFieldRow(std::string id, std::string label, TextContent text,
                      std::function<void(const std::string&)> editText) {
    TableRow row = rowOf(RowKind::textField, std::move(id), std::move(label));
    row.content = std::move(text);
    row.actions.editText = std::move(editText);
    return row;
}

TableRow textAreaRow(std::string id, std::string label, TextContent text,
                     std::function<void(const std::string&)> editText) {
    TableRow row = textFieldRow(std::move(id), std::move(label), std::move(text), std::move(editText));
    row.kind = RowKind::textArea;
    return row;
}

TableRow dateRow(std::string id, std::string label, std::string detail, DateContent date,
                 std::function<void(Date)> pickDate) {
    TableRow row = rowOf(RowKind::date, std::move(id), std::move(label));
    row.detail = std::move(detail);
    row.content = date;
    row.actions.pickDate = std::move(pickDate);
    return row;
}

TableRow wheelsRow(std::string id, std::string label, std::string detail, std::vector<Wheel> wheels,
                   std::function<void(const std::vector<std::size_t>&)> pickWheels) {
    TableRow row = rowOf(RowKind::wheels, std::move(id), std::move(label));
    row.detail = std::move(detail);
    row.content = WheelsContent{std::move(wheels)};
    row.actions.pickWheels = std::move(pickWheels);
    return row;
}

TableRow gridRow(std::string id, std::string label, GridContent grid, std::function<void(std::size_t)> tapItem) {
    TableRow row = rowOf(RowKind::grid, std::move(id), std::move(label));
    row.content = std::move(grid);
    row.actions.tapItem = std::move(tapItem);
    return row;
}

TableRow actionRow(std::string id, std::string label, std::function<void()> select) {
    TableRow row = rowOf(RowKind::action, std::move(id), std::move(label));
    row.actions.select = std::move(select);
    return row;
}

TableRow destructiveRow(std::string id, std::string label, std::function<void()> select) {
    TableRow row = actionRow(std::move(id), std::move(label), std::move(select));
    row.kind = RowKind::destructive;
    return row;
}

}  // namespace dayward
