// The shell's side of the navigation: gives QML the stacks to draw and hands on what the user answers.
// Main thread only.
#pragma once

#include <QObject>
#include <QUrl>
#include <QVariantMap>
#include <QtQml/qqmlregistration.h>
#include <functional>

#include "Classes/Interface/Screens/Navigation.h"
#include "shell/Pictures.h"
#include "shell/QtShareServices.h"
#include "shell/StackItem.h"

class QJSEngine;
class QQmlEngine;

namespace dayward {

class Environment;

class Shell final : public QObject, public NavigationListener {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(dayward::StackItem* rootStack READ rootStack CONSTANT)
    Q_PROPERTY(dayward::StackItem* detailStack READ detailStack CONSTANT)
    /// Whether list and detail stand side by side.
    Q_PROPERTY(bool hasDetailPane READ hasDetailPane NOTIFY hasDetailPaneChanged)

public:
    /// `owner` marks the one that the program makes; QML asks for that and makes none.
    explicit Shell(Environment& owner);
    ~Shell() override;

    /// For QML, which does not own it: the one that there is.
    static Shell* create(QQmlEngine*, QJSEngine*);

    [[nodiscard]] Navigation& navigation() { return navigation_; }
    [[nodiscard]] Pictures& pictures() { return pictures_; }
    [[nodiscard]] QtShareServices& shareServices() { return shareServices_; }
    [[nodiscard]] StackItem* rootStack() { return &rootStack_; }
    [[nodiscard]] StackItem* detailStack() { return &detailStack_; }
    [[nodiscard]] QList<StackItem*> modalStacks() const { return modalStacks_; }
    [[nodiscard]] bool hasDetailPane() const { return navigation_.hasDetailPane(); }

    /// The window tells its width, in points, at the start and after each change.
    Q_INVOKABLE void setWindowWidth(qreal width);
    /// Back or Escape in the uppermost stack; false where there is nothing to go back from.
    Q_INVOKABLE bool goBack();
    /// Presses a button of the topmost screen, and where no modal stack covers the root stack, of the
    /// first screen below that has it; false where there is none.
    Q_INVOKABLE bool press(const QString& role);
    /// The user's answer to the alert with that number.
    Q_INVOKABLE void answerAlert(int alert, int button);
    /// The user takes the notice's action.
    Q_INVOKABLE void answerNotice(int notice);
    /// The file that savePathWanted asked for; an empty one for none.
    Q_INVOKABLE void chooseSavePath(const QUrl& file) { shareServices_.takeSavePath(file); }
    /// The file that pictureWanted asked for; an empty one for none.
    Q_INVOKABLE void choosePictureFile(const QUrl& file);

    // NavigationListener
    void didPush(StackId stack, const Screen& screen) override;
    void didPop(StackId stack, const Screen& screen) override;
    void didPresent(StackId stack, const Screen& root) override;
    void didDismiss(StackId stack, const Screen& root) override;
    void didShowPanel(StackId stack, const Screen& panel) override;
    void didHidePanel(StackId stack, const Screen& panel) override;
    void didArrange() override;
    void showAlert(Alert alert) override;
    void dismissAlert(const std::string& name) override;
    void showNotice(Notice notice) override;
    void choosePicture(std::function<void(ChosenPicture)> completion) override;
    void openLink(const std::string& url) override;

signals:
    void hasDetailPaneChanged();
    void presented(dayward::StackItem* stack);
    void dismissed(dayward::StackItem* stack);
    /// {title, message, buttons: [{title, role}]}
    void alertWanted(int alert, const QVariantMap& content);
    /// The alert goes without an answer.
    void alertWithdrawn(int alert);
    /// {text, action, seconds}
    void noticeWanted(int notice, const QVariantMap& content);
    void pictureWanted();
    /// The user wants to search where that can be done.
    void findWanted();
    void savePathWanted(const QString& suggestedName);

private:
    [[nodiscard]] StackItem* stack(StackId id);

    static inline Shell* instance_ = nullptr;
    Pictures pictures_;
    QtShareServices shareServices_{pictures_};
    Navigation navigation_;
    StackItem rootStack_;
    StackItem detailStack_;
    QList<StackItem*> modalStacks_;
    int lastNumber_ = 0;
    std::map<int, Alert> alerts_;  ///< those that wait for an answer
    Notice notice_;
    int noticeNumber_ = 0;
    std::function<void(ChosenPicture)> pictureChosen_;
};

}  // namespace dayward
