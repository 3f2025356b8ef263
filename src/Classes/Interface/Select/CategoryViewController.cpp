#include "Classes/Interface/Select/CategoryViewController.h"

#include "Classes/Category/BackgroundTemplateConversion.h"
#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Category/RColorEventBackgroundTemplate.h"
#include "Classes/Category/RNamedEventBackgroundTemplate.h"
#include "Classes/Event/EventDisplay.h"
#include "Classes/Interface/General/Interface.h"
#include "Classes/Interface/Screens/Presenter.h"
#include "Classes/Interface/Select/BackgroundsViewController.h"
#include "Classes/Interface/Select/ColorsViewController.h"
#include "Classes/Interface/Select/FontsViewController.h"
#include "Classes/Interface/Select/IconsViewController.h"
#include "platform/Strings.h"
#include "resources/FontLook.h"

namespace dayward {

// The selection screens lie over this one and never outlive it, so that they may hold it bare.

CategoryViewController::CategoryViewController(std::shared_ptr<EventCategory> category)
    : category_(std::move(category)),
      name_(category_->name),
      eventIcon_(category_->eventIcon),
      eventBackgroundTpl_(category_->eventBackgroundTpl),
      eventFont_(category_->eventFont),
      eventTextColor_(category_->eventTextColor) {
    setTitle(localized("Category"));
}

void CategoryViewController::viewWillDisappear(Disappearance why) {
    if (why != Disappearance::leaving || !modified_) return;
    modified_ = false;
    CategoryLocalStore::shared().updateCategory(changedCategory(), CategoryLocalStore::Initialize::no);
}

std::shared_ptr<EventCategory> CategoryViewController::changedCategory() const {
    auto changed = std::make_shared<EventCategory>(*category_);
    changed->name = name_;
    changed->eventIcon = eventIcon_;
    changed->eventBackgroundTpl = eventBackgroundTpl_;
    changed->eventFont = eventFont_;
    changed->eventTextColor = eventTextColor_;
    return changed;
}

std::vector<TableSection> CategoryViewController::makeSections() {
    TableRow name = textFieldRow("name", localized("Category name"), {name_.value_or(""), localized("Category name")},
                                 [this](const std::string& text) {
                                     if (text == name_.value_or("")) return;
                                     name_ = text;
                                     modified_ = true;
                                 });
    name.startsFocused = category_->name.value_or("").empty();
    return {{"category", {}, {}, {std::move(name), iconRow(), backgroundRow(), fontRow(), textColorRow()}}};
}

TableRow CategoryViewController::iconRow() {
    TableRow row = openingRow("icon", localized("Icon"), {}, [this] { openIcons(); });
    row.kind = RowKind::picture;
    row.content = Interface::thumbnailViewForEventIcon(EventDisplay::icon(eventIcon_, category_));
    return row;
}

TableRow CategoryViewController::backgroundRow() {
    TableRow row = openingRow("background", localized("Background"), {}, [this] { openBackgrounds(); });
    row.kind = RowKind::picture;
    if (eventBackgroundTpl_) {
        row.content = Interface::thumbnailViewForBackgroundTpl(eventBackgroundTpl_);
    } else {
        row.content = Interface::thumbnailViewForEventBackground(EventDisplay::background(nullptr, nullptr, category_));
    }
    return row;
}

TableRow CategoryViewController::fontRow() {
    const std::string font = EventDisplay::font(eventFont_, category_);
    TableRow row = openingRow("font", localized("Font"), FontLook::titleOf(font), [this] { openFonts(); });
    row.fontName = font;
    return row;
}

TableRow CategoryViewController::textColorRow() {
    TableRow row = openingRow("textColor", localized("Text color"), {}, [this] { openColors(); });
    row.kind = RowKind::color;
    row.content = EventDisplay::textColor(eventTextColor_, category_);
    return row;
}

template <class Field, class Value>
void CategoryViewController::take(Field& field, const Value& value) {
    field = value;
    modified_ = true;
    reloadData();
}

void CategoryViewController::openIcons() {
    presenter().push(*this, std::make_shared<IconsViewController>(
                                eventIcon_, std::vector<GalleryChoice>(),
                                [this](const std::shared_ptr<EventIconPicture>& icon) { take(eventIcon_, icon); }));
}

void CategoryViewController::openBackgrounds() {
    const auto isOf = [this](const auto& tpl) { return eventBackgroundTpl_ && tpl->isEqual(*eventBackgroundTpl_); };
    const auto pictures = std::make_shared<RNamedEventBackgroundTemplate>();
    const auto colors = std::make_shared<RColorEventBackgroundTemplate>();
    std::vector<GalleryChoice> random{
        {"randomPicture", localized("Random picture"), isOf(pictures),
         [=, this] { take(eventBackgroundTpl_, pictures); }},
        {"randomColor", localized("Random color"), isOf(colors), [=, this] { take(eventBackgroundTpl_, colors); }}};
    const bool isFixed = eventBackgroundTpl_ && !eventBackgroundTpl_->isRandom();
    presenter().push(*this, std::make_shared<BackgroundsViewController>(
                                isFixed ? eventBackgroundTpl_->getPicture() : nullptr, std::move(random),
                                [this](const std::shared_ptr<EventBackgroundPicture>& background) {
                                    take(eventBackgroundTpl_, backgroundTemplateFromObject(background));
                                }));
}

void CategoryViewController::openFonts() {
    presenter().push(
        *this, std::make_shared<FontsViewController>(eventFont_, std::vector<GalleryChoice>(),
                                                     [this](const std::string& font) { take(eventFont_, font); }));
}

void CategoryViewController::openColors() {
    presenter().push(*this, std::make_shared<ColorsViewController>(
                                localized("Text color"), eventTextColor_, std::vector<GalleryChoice>(),
                                [this](const Color& color) { take(eventTextColor_, color); }));
}

}  // namespace dayward
