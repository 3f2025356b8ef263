// dayward categories [add NAME|edit CATEGORY|remove CATEGORY…]
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Event/EventJSONValue.h"
#include "cli/Arguments.h"
#include "cli/CategoryLookup.h"
#include "cli/Command.h"
#include "cli/EventLook.h"
#include "cli/Output.h"
#include "cli/Terminal.h"
#include "platform/Environment.h"
#include "platform/PercentFormat.h"
#include "platform/Strings.h"
#include "platform/UserDefaults.h"

namespace dayward {

namespace {

using Category = std::shared_ptr<EventCategory>;

struct CategoryOptions {
    std::optional<std::string> name, icon, background, font, textColor;

    void declare(CLI::App& command) {
        command.add_option("--icon", icon, "The name of an icon, or a picture file");
        command.add_option("--background", background,
                           "The name of a background, a picture file, #RRGGBB, random or random-color");
        command.add_option("--font", font, "The font's name");
        command.add_option("--text-color", textColor, "#RRGGBB");
    }

    Result<> apply(EventCategory& category) const {
        if (name) category.name = *name;
        if (icon) category.eventIcon = TRY(iconNamed(*icon));
        if (background) category.eventBackgroundTpl = TRY(backgroundTemplateNamed(*background));
        if (font) category.eventFont = *font;
        if (textColor) category.eventTextColor = TRY(parseColor(*textColor));
        return {};
    }
};

/// "NAME (KEY)"
std::string label(const EventCategory& category) {
    return printable(category.name.value_or("???")) + " (" + category.key + ")";
}

JSON categoryJSON(const EventCategory& category) {
    return {{"key", category.key},
            {"name", category.name ? JSON(*category.name) : JSON(nullptr)},
            {"icon", pictureJSONValue(category.eventIcon)},
            {"background", pictureJSONValue(category.eventBackgroundTpl)},
            {"font", category.eventFont ? JSON(*category.eventFont) : JSON(nullptr)},
            {"textColor", category.eventTextColor ? JSON(category.eventTextColor->hex()) : JSON(nullptr)}};
}

Result<> listCategories(bool json) {
    const std::vector<Category> categories = CategoryLocalStore::shared().sortCategories();
    if (json) {
        JSON list = JSON::array();
        for (const Category& category : categories) list.push_back(categoryJSON(*category));
        printJSON({{"categories", std::move(list)}});
        return {};
    }
    int width = 0;
    for (const Category& category : categories) width = std::max(width, displayWidth(category->name.value_or("")));
    for (const Category& category : categories) {
        printLine(padded(category->name.value_or(""), width) + "  " + fitted(category->key, 60));
    }
    return {};
}

/// The list lives in the defaults, which are written when they are saved: a failed write shows here.
Result<> finish(const char* sentence, const Category& category, bool json) {
    TRY_VOID(Environment::current().standardDefaults().synchronize());
    if (json) {
        printJSON({{"key", category->key}});
    } else {
        printLine(formatText(localized(sentence), {label(*category)}));
    }
    return {};
}

Result<> addCategory(const CategoryOptions& options, bool json) {
    CategoryLocalStore& store = CategoryLocalStore::shared();
    const Category category = store.createCategory();
    TRY_VOID(options.apply(*category));
    const auto all = store.getCategories();
    if (std::ranges::any_of(all, [&](const Category& other) { return other->name == category->name; })) {
        return failure("there is a category '" + *category->name + "' already");
    }
    store.updateCategory(category, CategoryLocalStore::Initialize::no);
    return finish("Added %@", category, json);
}

Result<> editCategory(const std::string& text, const CategoryOptions& options, bool json) {
    const auto changed = std::make_shared<EventCategory>(*TRY(categoryNamed(text)));
    TRY_VOID(options.apply(*changed));
    CategoryLocalStore::shared().updateCategory(changed, CategoryLocalStore::Initialize::no);
    return finish("Updated %@", changed, json);
}

Result<> removeCategories(const std::vector<std::string>& texts, bool json) {
    std::vector<Category> categories;
    for (const std::string& text : texts) {
        categories.push_back(TRY(categoryNamed(text)));
        if (categories.back()->key == CategoryLocalStore::kDefaultCategoryKey) {
            return failure("the category '" + text + "' is built in and stays");
        }
    }
    JSON removed = JSON::array();
    for (const Category& category : categories) {
        CategoryLocalStore::shared().removeCategory(category);
        removed.push_back(category->key);
        if (!json) printLine(formatText(localized("Removed %@"), {label(*category)}));
    }
    TRY_VOID(Environment::current().standardDefaults().synchronize());
    if (json) printJSON({{"removed", std::move(removed)}});
    return {};
}

}  // namespace

void addCategoriesCommand(CLI::App& app, ChosenCommand& chosen) {
    CLI::App* categories = app.add_subcommand("categories", "The categories")->require_subcommand(0, 1);
    categories->callback([categories, &chosen] {
        if (!categories->get_subcommands().empty()) return;
        chosen.action = [](Environment&, const GlobalOptions& options) { return listCategories(options.json); };
    });

    const auto options = std::make_shared<CategoryOptions>();
    CLI::App* add = categories->add_subcommand("add", "A new category");
    add->add_option("name", options->name, "Its name")->required();
    options->declare(*add);
    add->callback([options, &chosen] {
        chosen.action = [=](Environment&, const GlobalOptions& global) { return addCategory(*options, global.json); };
    });

    const auto names = std::make_shared<std::vector<std::string>>();
    CLI::App* edit = categories->add_subcommand("edit", "Change a category");
    edit->add_option("category", *names, "Key or name")->required()->expected(1);
    edit->add_option("--name", options->name, "A new name");
    options->declare(*edit);
    edit->callback([=, &chosen] {
        chosen.changesEvents = true;
        chosen.action = [=](Environment&, const GlobalOptions& global) {
            return editCategory(names->front(), *options, global.json);
        };
    });

    CLI::App* remove = categories->add_subcommand("remove", "Remove categories; their events take the default one");
    remove->add_option("categories", *names, "Keys or names")->required();
    remove->callback([=, &chosen] {
        chosen.changesEvents = true;
        chosen.action = [=](Environment&, const GlobalOptions& global) { return removeCategories(*names, global.json); };
    });
}

}  // namespace dayward
