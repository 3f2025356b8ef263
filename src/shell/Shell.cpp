#include "shell/Shell.h"

#include <QDesktopServices>
#include <QQmlEngine>
#include <algorithm>
#include <utility>

#include "Classes/Interface/Events/HHSplitViewController.h"
#include "platform/FatalError.h"
#include "platform/Log.h"
#include "shell/ChosenFile.h"
#include "shell/QtValues.h"

namespace dayward {

namespace {

QString nameOf(AlertButton::Role role) {
    switch (role) {
        case AlertButton::Role::normal: return QStringLiteral("normal");
        case AlertButton::Role::cancel: return QStringLiteral("cancel");
        case AlertButton::Role::destructive: return QStringLiteral("destructive");
    }
    return {};
}

}  // namespace

Shell::Shell(Environment&)
    : navigation_(*this),
      rootStack_(navigation_, StackId::root, pictures_, nullptr),
      detailStack_(navigation_, StackId::detail, pictures_, nullptr) {
    instance_ = this;
    connect(&shareServices_, &QtShareServices::savePathWanted, this, &Shell::savePathWanted);
    QQmlEngine::setObjectOwnership(&rootStack_, QQmlEngine::CppOwnership);
    QQmlEngine::setObjectOwnership(&detailStack_, QQmlEngine::CppOwnership);
}

Shell::~Shell() { instance_ = nullptr; }

Shell* Shell::create(QQmlEngine*, QJSEngine*) {
    if (instance_ == nullptr) fatalError("the shell is asked for before it is made");
    QQmlEngine::setObjectOwnership(instance_, QQmlEngine::CppOwnership);
    return instance_;
}

void Shell::setWindowWidth(qreal width) {
    const bool before = hasDetailPane();
    navigation_.setHasDetailPane(HHSplitViewController::hasRoomForTwoColumns(width));
    if (hasDetailPane() != before) emit hasDetailPaneChanged();
}

bool Shell::goBack() { return navigation_.goBack(); }

bool Shell::press(const QString& role) {
    // The buttons of the list can be reached from all that stands over it in its own stack.
    if (modalStacks_.isEmpty()) return rootStack_.pressFromTop(role);
    StackItem* const stack = modalStacks_.last();
    return stack->panel() != nullptr ? stack->panel()->press(role) : stack->pressTop(role);
}

StackItem* Shell::stack(StackId id) {
    if (id == StackId::root) return &rootStack_;
    if (id == StackId::detail) return &detailStack_;
    const auto found = std::ranges::find(modalStacks_, id, &StackItem::id);
    return found != modalStacks_.end() ? *found : nullptr;
}

void Shell::didPush(StackId id, const Screen&) {
    if (StackItem* item = stack(id)) item->refresh();
}

void Shell::didPop(StackId id, const Screen&) {
    if (StackItem* item = stack(id)) item->refresh();
}

void Shell::didPresent(StackId id, const Screen&) {
    auto* const item = new StackItem(navigation_, id, pictures_, this);
    modalStacks_.append(item);
    emit presented(item);
}

void Shell::didDismiss(StackId id, const Screen&) {
    StackItem* const item = stack(id);
    if (item == nullptr) return;
    modalStacks_.removeOne(item);
    emit dismissed(item);
    item->retire();
}

void Shell::didShowPanel(StackId id, const Screen&) {
    if (StackItem* item = stack(id)) item->refreshPanel();
}

void Shell::didHidePanel(StackId id, const Screen&) {
    if (StackItem* item = stack(id)) item->refreshPanel();
}

void Shell::didArrange() {
    rootStack_.refresh();
    detailStack_.refresh();
}

void Shell::showAlert(Alert alert) {
    QVariantList buttons;
    for (const AlertButton& button : alert.buttons) {
        buttons.append(QVariantMap{{"title", qtText(button.title)}, {"role", nameOf(button.role)}});
    }
    const QVariantMap content{{"title", qtText(alert.title)}, {"message", qtText(alert.message)}, {"buttons", buttons}};
    const int number = ++lastNumber_;
    alerts_.emplace(number, std::move(alert));
    emit alertWanted(number, content);
}

void Shell::dismissAlert(const std::string& name) {
    std::vector<int> withdrawn;
    for (const auto& [number, alert] : alerts_)
        if (alert.name == name) withdrawn.push_back(number);
    for (const int number : withdrawn) {
        alerts_.erase(number);
        emit alertWithdrawn(number);
    }
}

void Shell::answerAlert(int alert, int button) {
    auto answered = alerts_.extract(alert);
    if (answered.empty()) return;
    const auto& buttons = answered.mapped().buttons;
    if (button < 0 || button >= static_cast<int>(buttons.size())) return;
    if (const auto& action = buttons[static_cast<std::size_t>(button)].action) action();
}

void Shell::showNotice(Notice notice) {
    const QVariantMap content{
        {"text", qtText(notice.text)}, {"action", qtText(notice.actionTitle)}, {"seconds", notice.shownFor.seconds()}};
    notice_ = std::move(notice);
    noticeNumber_ = ++lastNumber_;
    emit noticeWanted(noticeNumber_, content);
}

void Shell::answerNotice(int notice) {
    if (notice != noticeNumber_) return;
    if (const auto action = std::exchange(notice_, {}).action) action();
}

void Shell::choosePicture(std::function<void(ChosenPicture)> completion) {
    pictureChosen_ = std::move(completion);
    emit pictureWanted();
}

void Shell::choosePictureFile(const QUrl& file) {
    const auto completion = std::exchange(pictureChosen_, nullptr);
    if (completion && !file.isEmpty()) completion(readChosenFile(file));
}

void Shell::openLink(const std::string& url) {
    if (!QDesktopServices::openUrl(QUrl(qtText(url)))) logError("nothing opens " + url);
}

}  // namespace dayward
