// A row of a form as a plain value, what its parts do, and the section that holds it.
//
// A shell draws a row by its kind and its content and needs to know no screen. Labels are localised.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/Color.h"
#include "platform/Date.h"
#include "platform/Image.h"

namespace dayward {

enum class RowKind {
    text,         ///< a text alone, in `detail`
    value,        ///< label and detail
    check,        ///< label and a check mark
    toggle,       ///< label and a switch
    textField,    ///< one line to type in; TextContent
    textArea,     ///< many lines to type in; TextContent
    date,         ///< a date, a time or both to pick; DateContent
    wheels,       ///< one value of each of some columns to pick; WheelsContent
    grid,         ///< values to tap: numbers, colours or pictures; GridContent
    picture,      ///< label and a picture; RowPicture
    color,        ///< label and a colour; Color
    look,         ///< an event as its look makes it; LookContent
    eventHeader,  ///< icon, name and category of an event; EventEditHeaderCell
    action,       ///< a label that does something
    destructive,  ///< the same for what cannot be taken back
};

struct TextContent {
    std::string text;
    std::string placeholder = {};
    bool operator==(const TextContent&) const = default;
};

struct DateContent {
    enum class Mode { date, time, dateAndTime };
    Date date;
    Mode mode = Mode::date;
    bool operator==(const DateContent&) const = default;
};

struct Wheel {
    std::vector<std::string> titles;
    std::size_t selected = 0;
    bool operator==(const Wheel&) const = default;
};

struct WheelsContent {
    std::vector<Wheel> wheels;
    bool operator==(const WheelsContent&) const = default;
};

/// A picture by its identity: equal keys show the same pixels. `load` may take long; any
/// thread on which the environment is current.
struct RowPicture {
    std::string key;
    std::function<std::shared_ptr<const Image>()> load;
    bool isWhole = false;  ///< kept whole in a small place, which others are cut to fill
    bool operator==(const RowPicture& other) const { return key == other.key; }
};

struct GridItem {
    std::string label;  ///< shown where there is neither colour nor picture; spoken in any case
    bool selected = false;
    std::optional<Color> color = {};
    std::optional<RowPicture> picture = {};
    bool operator==(const GridItem&) const = default;
};

struct GridContent {
    std::size_t columns = 0;  ///< 0: as many as fit
    std::vector<GridItem> items;
    bool operator==(const GridContent&) const = default;
};

/// How an event will look, with its texts as of now.
struct LookContent {
    RowPicture background;
    RowPicture icon;
    std::string fontName;
    Color textColor;
    Color scrim;  ///< between the background and the texts
    std::string title;
    std::string date;
    std::string countdown;
    bool operator==(const LookContent&) const = default;
};

struct EventEditHeaderCell {
    struct CategoryField {
        std::string placeholderLabel;  ///< says what the text is
        std::string text;
        bool operator==(const CategoryField&) const = default;
    };
    /// The parts to tap, for TableScreen::tapItem.
    enum Part : std::size_t { iconPart, categoryPart };
    RowPicture iconView;
    bool iconCategoryMark = false;  ///< the icon comes from the category
    std::string iconHelpLabel;      ///< stands on the icon; empty for none
    TextContent nameField;
    CategoryField categoryField;
    bool operator==(const EventEditHeaderCell&) const = default;
};

/// All that can be seen and heard of a row.
struct RowValue {
    std::string id;  ///< unique in its screen; the same row keeps it while the list changes
    RowKind kind = RowKind::value;
    std::string label;
    std::string detail;
    std::variant<std::monostate, TextContent, DateContent, WheelsContent, GridContent, RowPicture, Color, LookContent,
                 EventEditHeaderCell>
        content;
    std::optional<bool> on;    ///< a switch in the row
    std::optional<bool> open;  ///< the content below the label opens and closes with a tap
    std::string fontName;      ///< of the value, or of the label alone; empty for the interface's
    bool checked = false;
    bool emphasized = false;  ///< stands out among its like
    bool inherited = false;   ///< the value comes from the category
    bool enabled = true;
    bool opensScreen = false;
    bool startsFocused = false;  ///< the keyboard is here when the screen opens
    bool isQuiet = false;        ///< an action that is not what the screen is for
    bool canDelete = false;
    bool canMove = false;
    std::string accessibility;  ///< the row as one sentence where accessibleSentence is not to make it
    bool operator==(const RowValue&) const = default;
};

/// What the parts of a row do; any may be empty. A reaction may change the list.
struct RowActions {
    std::function<void()> select;
    std::function<void(bool)> toggle;
    std::function<void(const std::string&)> editText;
    std::function<void(Date)> pickDate;
    std::function<void(const std::vector<std::size_t>&)> pickWheels;
    std::function<void(std::size_t)> tapItem;
    std::function<void()> remove;
};

struct TableRow : RowValue {
    RowActions actions;
};

struct TableSection {
    std::string id;  ///< unique in its screen
    std::string header;
    std::string footer;
    std::vector<TableRow> rows;
};

// Rows of each kind; what they don't take can be set afterwards.

TableRow textRow(std::string id, std::string text);
TableRow valueRow(std::string id, std::string label, std::string detail, std::function<void()> select);
/// A value that is changed on a screen of its own.
TableRow openingRow(std::string id, std::string label, std::string detail, std::function<void()> select);
TableRow checkRow(std::string id, std::string label, bool checked, std::function<void()> select);
TableRow toggleRow(std::string id, std::string label, bool on, std::function<void(bool)> toggle);
TableRow textFieldRow(std::string id, std::string label, TextContent text,
                      std::function<void(const std::string&)> editText);
TableRow textAreaRow(std::string id, std::string label, TextContent text,
                     std::function<void(const std::string&)> editText);
TableRow dateRow(std::string id, std::string label, std::string detail, DateContent date,
                 std::function<void(Date)> pickDate);
TableRow wheelsRow(std::string id, std::string label, std::string detail, std::vector<Wheel> wheels,
                   std::function<void(const std::vector<std::size_t>&)> pickWheels);
TableRow gridRow(std::string id, std::string label, GridContent grid, std::function<void(std::size_t)> tapItem);
TableRow actionRow(std::string id, std::string label, std::function<void()> select);
TableRow destructiveRow(std::string id, std::string label, std::function<void()> select);

/// What is spoken of a row: its own sentence, else one of its parts: "Background, Sunset, from the
/// category", "Days, selected".
std::string accessibleSentence(const RowValue& row);

}  // namespace dayward
