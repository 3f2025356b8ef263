// The list of categories: to choose one for an event, and to manage them. The built-in category stands
// first and cannot be deleted. Main thread only.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Classes/Interface/Screens/TableScreen.h"

namespace dayward {

class EventCategory;

class CategoriesViewController final : public TableScreen {
public:
    using Category = std::shared_ptr<EventCategory>;
    using Completion = std::function<void(const Category&)>;

    /// Selecting hands a tapped category over and closes; managing opens it.
    enum class Mode { select, manage };

    /// For selecting.
    CategoriesViewController(Category selectedCategory, Completion completionBlock);
    /// For managing.
    CategoriesViewController();

    void editAction();

    void viewWillAppear() override;

protected:
    std::vector<TableSection> makeSections() override;

private:
    [[nodiscard]] TableRow rowOf(const Category& category, bool isFirst);
    void didSelect(const Category& category);
    void open(const Category& category);
    void append();
    void remove(const Category& category);
    void showEditButton();

    Category selectedCategory_;
    const Mode mode_;
    Completion completionBlock_;
    std::vector<Category> tableData_;
    bool editing_ = false;
};

}  // namespace dayward
