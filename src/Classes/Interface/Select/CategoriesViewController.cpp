#include "Classes/Interface/Select/CategoriesViewController.h"

#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Interface/Screens/Presenter.h"
#include "Classes/Interface/Select/CategoryViewController.h"
#include "platform/Strings.h"

namespace dayward {

CategoriesViewController::CategoriesViewController(Category selectedCategory, Completion completionBlock)
    : selectedCategory_(std::move(selectedCategory)),
      mode_(Mode::select),
      completionBlock_(std::move(completionBlock)) {
    setTitle(localized("Categories"));
    showEditButton();
}

CategoriesViewController::CategoriesViewController() : mode_(Mode::manage) {
    setTitle(localized("Categories"));
    showEditButton();
}

void CategoriesViewController::editAction() {
    editing_ = !editing_;
    showEditButton();
    reloadData();
}

void CategoriesViewController::showEditButton() {
    const auto flip = [this] { editAction(); };
    setBarButtons({editing_ ? BarButton{BarButton::Role::done, localized("Done"), flip}
                            : BarButton{BarButton::Role::edit, localized("Edit"), flip}});
}

void CategoriesViewController::viewWillAppear() {
    tableData_ = CategoryLocalStore::shared().sortCategories();
    TableScreen::viewWillAppear();
}

std::vector<TableSection> CategoriesViewController::makeSections() {
    TableSection section{"categories", {}, {}, {}};
    for (const Category& category : tableData_) section.rows.push_back(rowOf(category, section.rows.empty()));
    if (editing_) {
        section.rows.push_back(actionRow("append", localized("New category"), [this] { append(); }));
        section.rows.back().isQuiet = true;
    }
    return {std::move(section)};
}

TableRow CategoriesViewController::rowOf(const Category& category, bool isFirst) {
    const bool isChecked = mode_ == Mode::select && selectedCategory_ && *category == *selectedCategory_;
    const std::string name = category->name.value_or(std::string());
    TableRow row = checkRow("category:" + category->key, name.empty() ? localized("No name") : name, isChecked,
                            [this, category] { didSelect(category); });
    if (mode_ == Mode::manage) row.kind = RowKind::value;
    row.emphasized = category->key == CategoryLocalStore::kDefaultCategoryKey;
    row.opensScreen = editing_ || mode_ == Mode::manage;
    row.canDelete = editing_ && !isFirst;
    row.actions.remove = [this, category] { remove(category); };
    return row;
}

void CategoriesViewController::didSelect(const Category& category) {
    if (editing_ || mode_ == Mode::manage) return open(category);
    const auto self = shared_from_this();
    selectedCategory_ = category;
    completionBlock_(category);
    presenter().pop(*this);
}

void CategoriesViewController::open(const Category& category) {
    presenter().push(*this, std::make_shared<CategoryViewController>(category));
}

void CategoriesViewController::append() {
    auto& store = CategoryLocalStore::shared();
    const Category category = store.createCategory();
    store.updateCategory(category, CategoryLocalStore::Initialize::no);
    open(category);
}

void CategoriesViewController::remove(const Category& category) {
    CategoryLocalStore::shared().removeCategory(category);
    std::erase(tableData_, category);
    reloadData();
}

}  // namespace dayward
