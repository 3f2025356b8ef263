// One category: its name and the look that its events inherit. Works on copies; what changed is stored
// when the screen leaves its stack, not while a selection screen covers it. Main thread only.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Classes/Category/EventBackgroundTemplate.h"
#include "Classes/Category/EventIconPicture.h"
#include "Classes/Interface/Screens/TableScreen.h"
#include "platform/Color.h"

namespace dayward {

class EventCategory;

class CategoryViewController final : public TableScreen {
public:
    explicit CategoryViewController(std::shared_ptr<EventCategory> category);

    void viewWillDisappear(Disappearance why) override;

protected:
    std::vector<TableSection> makeSections() override;

private:
    [[nodiscard]] TableRow iconRow();
    [[nodiscard]] TableRow backgroundRow();
    [[nodiscard]] TableRow fontRow();
    [[nodiscard]] TableRow textColorRow();
    void openIcons();
    void openBackgrounds();
    void openFonts();
    void openColors();
    /// Takes a chosen value into its field.
    template <class Field, class Value>
    void take(Field& field, const Value& value);
    [[nodiscard]] std::shared_ptr<EventCategory> changedCategory() const;

    std::shared_ptr<EventCategory> category_;
    std::optional<std::string> name_;
    std::shared_ptr<EventIconPicture> eventIcon_;
    std::shared_ptr<EventBackgroundTemplate> eventBackgroundTpl_;
    std::optional<std::string> eventFont_;
    std::optional<Color> eventTextColor_;
    bool modified_ = false;
};

}  // namespace dayward
