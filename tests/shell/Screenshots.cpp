// Takes pictures of the screens: dayward-screenshots DIR [--only SCENE] [--size WxH] [--language L] [--theme T]
//
// From a fixed clock and a prepared home, into DIR/SIZE-THEME-LANGUAGE-SCENE.png, and all of a size on
// DIR/sheet-SIZE.jpg. Needs a display.
#include <CLI/CLI.hpp>
#include <QCursor>
#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>
#include <QTemporaryDir>
#include <QThread>
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <iterator>

#include "Classes/App/AppInfo.h"
#include "Classes/App/AppManager.h"
#include "Classes/App/ArchiveRegistration.h"
#include "intervals/ISODate.h"
#include "platform/linux/AsioQueues.h"
#include "platform/linux/LinuxEnvironment.h"
#include "shell/ContactSheet.h"
#include "shell/QtMainLoop.h"
#include "shell/QtWindow.h"
#include "shell/Scenes.h"

namespace dayward {

namespace {

constexpr const char* kNow = "2026-03-10T12:00:00";
constexpr int kQuietMilliseconds = 300;
constexpr int kLongestMilliseconds = 8000;

struct Wanted {
    std::string directory;
    std::vector<std::string> sizes{"390x844", "820x1180", "1280x800"};
    std::vector<std::string> languages{"en", "ru"};
    std::vector<std::string> themes{"light", "dark"};
    std::string only;
    double textScale = 1;
};

/// Whether a picture in sight is still to come.
bool isLoading(const QQuickItem& item) {
    constexpr int kImageIsLoading = 2;
    if (!item.isVisible()) return false;
    if (item.inherits("QQuickImageBase") && item.property("status").toInt() == kImageIsLoading) return true;
    if (item.inherits("QQuickBusyIndicator") && item.property("running").toBool()) return true;
    return std::ranges::any_of(item.childItems(), [](const QQuickItem* child) { return isLoading(*child); });
}

/// Until nothing has been drawn anew for a while: the moves are over and the pictures there. The while is
/// counted in turns of the loop, so that a slow machine has no less of them.
void settle(QQuickWindow& window) {
    constexpr int kTurnMilliseconds = 5;
    int quiet = 0;
    const auto frames = QObject::connect(&window, &QQuickWindow::frameSwapped, &window, [&] { quiet = 0; });
    QElapsedTimer clock;
    for (clock.start(); quiet < kQuietMilliseconds && clock.elapsed() < kLongestMilliseconds;
         quiet += kTurnMilliseconds) {
        QCoreApplication::processEvents();
        if (isLoading(*window.contentItem())) quiet = 0;
        QThread::msleep(kTurnMilliseconds);
    }
    QObject::disconnect(frames);
}

/// Takes a question and every modal stack away and goes back to the root.
void reset(Stage& stage, QQuickWindow& window) {
    Shell& shell = stage.shell;
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, {});
    QCoreApplication::sendEvent(&window, &escape);
    stage.list.setEditing(false);
    stage.list.endSearch();
    while (!shell.navigation().modalStacks().empty()) {
        shell.navigation().dismiss(*shell.navigation().screens(shell.navigation().modalStacks().front()).front());
    }
    for (const StackId stack : {StackId::root, StackId::detail}) {
        if (const auto panel = shell.navigation().panel(stack)) shell.navigation().dismissPanel(*panel);
    }
    while (shell.navigation().screens(StackId::root).size() > 1) shell.goBack();
    leaveEventfulScene();
}

void take(Stage& stage, QtWindow& window, const Scene& scene, const std::string& path) {
    reset(stage, *window.quickWindow());
    settle(*window.quickWindow());
    scene.show(stage);
    settle(*window.quickWindow());
    window.quickWindow()->grabWindow().save(QString::fromStdString(path));
}

std::vector<Scene> allScenes() {
    std::vector<Scene> all = scenes();
    std::ranges::move(eventfulScenes(), std::back_inserter(all));
    return all;
}

LinuxOptions optionsFor(const std::string& home, const std::string& language, std::shared_ptr<Queues> queues) {
    LinuxOptions options;
    options.home = home;
    options.resources =
        (std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path() / "share" / "dayward").string();
    options.zone = "Europe/Berlin";
    options.locale = language == "ru" ? "ru_RU" : language == "en" ? "en_US" : language;
    options.archiveClasses = allArchiveClasses();
    options.queues = std::move(queues);
    options.fixedNow = dateFromISOText(kNow, Calendar(*TimeZone::named(options.zone)));
    return options;
}

void takeAll(Stage& stage, QtWindow& window, const Wanted& wanted, const std::string& language) {
    for (const std::string& size : wanted.sizes) {
        const auto cross = size.find('x');
        window.quickWindow()->resize(std::stoi(size.substr(0, cross)), std::stoi(size.substr(cross + 1)));
        for (const std::string& theme : wanted.themes) {
            window.appearance().setDark(theme == "dark");
            for (const Scene& scene : allScenes()) {
                if (!wanted.only.empty() && scene.name.find(wanted.only) == std::string::npos) continue;
                take(stage, window, scene,
                     wanted.directory + "/" + size + "-" + theme + "-" + language + "-" + scene.name + ".png");
            }
        }
    }
}

void writeSheets(const Wanted& wanted) {
    const QDir directory(QString::fromStdString(wanted.directory));
    for (const std::string& size : wanted.sizes) {
        std::vector<std::string> files;
        for (const QString& name : directory.entryList({QString::fromStdString(size + "-*.png")}, QDir::Files)) {
            files.push_back(directory.filePath(name).toStdString());
        }
        writeContactSheet(files, wanted.directory + "/sheet-" + size + ".jpg");
    }
}

void takeLanguage(const Wanted& wanted, const std::string& language) {
    const QTemporaryDir home;
    const auto queues = std::make_shared<AsioQueues>();
    auto services = makeLinuxServices(optionsFor(home.path().toStdString(), language, queues));
    if (!services) throw std::runtime_error(services.error().description());
    Environment environment(std::move(*services));
    const EnvironmentScope scope(&environment);
    const QtMainLoop loop(queues->mainLoop());
    CCApp::setInformation(AppInfo::information("0.1.0"));
    if (const auto launched = AppManager::performFirstLaunch(); !launched) {
        throw std::runtime_error(launched.error().description());
    }
    Shell shell(environment);
    QtWindow window(environment, shell);
    if (window.quickWindow() == nullptr) throw std::runtime_error("the window cannot be loaded");
    window.appearance().setTextScale(wanted.textScale);
    EventScreensServices screens;
    screens.share = &shell.shareServices();
    const HHSplitViewController split(shell.navigation(), screens);
    window.setRootViewController(split.master());
    window.makeKeyAndVisible();
    settle(*window.quickWindow());
    Stage stage{shell, *split.master()};
    takeAll(stage, window, wanted, language);
}

int run(int argc, char** argv) {
    Wanted wanted;
    CLI::App options("Takes pictures of the screens.");
    options.add_option("directory", wanted.directory, "Where the pictures go")->required();
    options.add_option("--size", wanted.sizes, "WIDTHxHEIGHT");
    options.add_option("--language", wanted.languages, "en, ru, or a locale such as he_IL");
    options.add_option("--theme", wanted.themes, "light, dark");
    options.add_option("--only", wanted.only, "Only scenes whose name has this in it");
    options.add_option("--text-scale", wanted.textScale, "Size of the texts, 1 for the usual one");
    prepareQt();
    QGuiApplication application(argc, argv);
    CLI11_PARSE(options, argc, argv);
    QDir().mkpath(QString::fromStdString(wanted.directory));
    // In the corner of the display the pointer is over nothing.
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    for (const std::string& language : wanted.languages) takeLanguage(wanted, language);
    writeSheets(wanted);
    return 0;
}

}  // namespace

}  // namespace dayward

int main(int argc, char** argv) {
    try {
        return dayward::run(argc, argv);
    } catch (const std::exception& fault) {
        std::cerr << "dayward-screenshots: " << fault.what() << std::endl;
        return 1;
    }
}
