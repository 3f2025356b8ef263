// Plays the shell for a test: a navigation whose every change and request is one line of text, and
// the user's hand on the topmost screen.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Classes/Interface/Screens/Navigation.h"
#include "Classes/Interface/Screens/TableScreen.h"

namespace dayward {

class ScriptedPresenter final : public NavigationListener {
public:
    /// An empty root screen under what the test presents, or the root itself.
    explicit ScriptedPresenter(Screen root = std::make_shared<ViewController>()) : navigation(*this) {
        navigation.setRoot(std::move(root));
        take();
    }

    /// The lines since the last call: "push Repeat", "pop Repeat", "alert Delete event?".
    std::vector<std::string> take() { return std::exchange(lines_, {}); }

    /// The topmost screen as what it is; the test ends where it is another.
    template <class T = TableScreen>
    [[nodiscard]] T& top() const {
        auto* screen = dynamic_cast<T*>(navigation.topScreen().get());
        if (screen == nullptr) throw std::runtime_error("another screen is on top: " + navigation.topScreen()->title());
        return *screen;
    }
    [[nodiscard]] IndexPath path(const std::string& id) const {
        const auto found = top().pathOfRow(id);
        if (!found) throw std::runtime_error("no row " + id + " in " + top().title());
        return *found;
    }
    [[nodiscard]] const TableRow& row(const std::string& id) const { return top().row(path(id)); }
    [[nodiscard]] bool hasRow(const std::string& id) const { return top().pathOfRow(id).has_value(); }

    void tap(const std::string& id) { top().select(path(id)); }
    void toggle(const std::string& id, bool on) { top().toggle(path(id), on); }
    void type(const std::string& id, const std::string& text) { top().editText(path(id), text); }
    void pick(const std::string& id, Date date) { top().pickDate(path(id), date); }
    void spin(const std::string& id, const std::vector<std::size_t>& wheels) { top().pickWheels(path(id), wheels); }
    void tapItem(const std::string& id, std::size_t item) { top().tapItem(path(id), item); }
    void erase(const std::string& id) { top().deleteRow(path(id)); }
    void press(BarButton::Role role) {
        EXPECT_TRUE(top<ViewController>().press(role)) << top<ViewController>().title();
    }
    void back() { EXPECT_TRUE(navigation.goBack()); }
    /// Presses that button of the last alert.
    void answer(const std::string& title) {
        for (const AlertButton& button : std::exchange(alert, {}).buttons) {
            if (button.title != title) continue;
            if (button.action) button.action();
            return;
        }
        ADD_FAILURE() << "no alert with a button " << title;
    }
    /// Every row of the top screen: "label: detail", with " *" where checked or on, and "^" where
    /// inherited; sections are separated by "--".
    [[nodiscard]] std::vector<std::string> rows() const {
        std::vector<std::string> texts;
        for (const TableSection& section : top().sections()) {
            if (!texts.empty()) texts.emplace_back("--");
            for (const TableRow& row : section.rows) texts.push_back(text(row));
        }
        return texts;
    }

    // NavigationListener
    void didPush(StackId, const Screen& screen) override { add("push", screen); }
    void didPop(StackId, const Screen& screen) override { add("pop", screen); }
    void didPresent(StackId, const Screen& root) override { add("present", root); }
    void didDismiss(StackId, const Screen& root) override { add("dismiss", root); }
    void didShowPanel(StackId, const Screen& panel) override { add("panel", panel); }
    void didHidePanel(StackId, const Screen& panel) override { add("close", panel); }
    void didArrange() override { lines_.emplace_back("arrange"); }
    void showAlert(Alert shown) override {
        lines_.push_back("alert " + shown.title);
        alert = std::move(shown);
    }
    void dismissAlert(const std::string& name) override {
        if (alert.buttons.empty() || alert.name != name) return;
        lines_.push_back("dismiss alert " + alert.message);
        alert = {};
    }
    void showNotice(Notice shown) override {
        lines_.push_back("notice " + shown.text);
        notice = std::move(shown);
    }
    void choosePicture(std::function<void(ChosenPicture)> completion) override {
        lines_.emplace_back("choose picture");
        if (picture) completion(*picture);
    }
    void openLink(const std::string& url) override { lines_.push_back("open " + url); }

    Navigation navigation;
    Alert alert;                           ///< the last one
    Notice notice;                         ///< the last one
    std::optional<ChosenPicture> picture;  ///< what the user chooses

private:
    static std::string text(const TableRow& row) {
        std::string line = row.label;
        if (!row.detail.empty()) line += (line.empty() ? "" : ": ") + row.detail;
        if (row.checked || row.on.value_or(false)) line += " *";
        if (row.inherited) line += " ^";
        return line;
    }
    void add(const char* what, const Screen& screen) { lines_.push_back(std::string(what) + " " + screen->title()); }

    std::vector<std::string> lines_;
};

}  // namespace dayward
