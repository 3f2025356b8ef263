// The program dayward-widget-window: the widget as a window on the desktop. dayward-widget starts it.
#include <CLI/CLI.hpp>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QScreen>
#include <QTimer>
#include <filesystem>
#include <iostream>

#include "cli/ProgramArguments.h"
#include "cli/ProgramVersion.h"
#include "platform/FileSystem.h"
#include "platform/Paths.h"
#include "shell/QtStart.h"
#include "widget/WidgetContent.h"
#include "widget/window/WidgetBoard.h"
#include "widget/window/WindowPlace.h"

namespace dayward {
namespace {

enum Exit { done = 0, failed = 1, wrongUsage = 2 };

constexpr const char* kName = "dayward-widget-window";
constexpr int kUsualCount = 3;
constexpr int kPictureDelay = 600;
constexpr int kSavingDelay = 500;

struct Options {
    std::string home, now, zone, locale, picture, theme;
    std::optional<int> count;
};

int complain(const std::string& line, Exit status) {
    std::cerr << kName << ": " << line << std::endl;
    return status;
}

void declare(CLI::App& parser, Options& options) {
    parser.add_option("--count", options.count, "So many events, 1 to 10")
        ->check(CLI::Range(1, static_cast<int>(kMaximalWidgetEvents)));
    parser.add_option("--home", options.home, "The home that the application keeps");
    parser.add_option("--now", options.now, "Show this local time, standing still");
    parser.add_option("--tz", options.zone, "The time zone, such as Europe/Moscow");
    parser.add_option("--locale", options.locale, "Language and region, such as ru_RU");
    parser.add_option("--theme", options.theme, "light or dark instead of the system's")
        ->check(CLI::IsMember({"light", "dark"}));
    parser.add_option("--picture", options.picture)->group("");  // writes a picture of the window, and ends
    parser.set_version_flag("--version", std::string(kProgramVersion));
}

std::string resourceDirectory() {
    return QCoreApplication::applicationDirPath().toStdString() + "/../share/dayward";
}

bool isOnScreen(const QPoint& position) {
    const auto screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(), [&](const QScreen* screen) {
        return screen->availableGeometry().contains(position + QPoint(20, 20));
    });
}

/// Keeps the file equal to where the window stands, a little after it was moved.
void rememberPlace(QQuickWindow& window, const WidgetBoard& board, const QString& path) {
    auto* const timer = new QTimer(&window);
    timer->setSingleShot(true);
    timer->setInterval(kSavingDelay);
    const auto save = [&window, &board, path] {
        const WindowPlace place{window.position(), board.count()};
        if (place != WindowPlace::read(path)) place.write(path);
    };
    const auto start = [timer] { timer->start(); };
    QObject::connect(timer, &QTimer::timeout, save);
    QObject::connect(&window, &QWindow::xChanged, timer, start);
    QObject::connect(&window, &QWindow::yChanged, timer, start);
    QObject::connect(&board, &WidgetBoard::countChanged, timer, start);
}

void takePicture(QQuickWindow& window, const QString& path) {
    QTimer::singleShot(kPictureDelay, &window, [&window, path] {
        const bool saved = window.grabWindow().save(path);
        QCoreApplication::exit(saved ? done : failed);
    });
}

int show(const Options& options, WidgetBoard::Options content) {
    WidgetSession session({options.home, resourceDirectory(), options.zone, options.locale, kName});
    const Paths paths = Paths::resolve(options.home, resourceDirectory());
    const QString placePath = QString::fromStdString(joinPath(paths.state, "widget-window.json"));
    const WindowPlace place = WindowPlace::read(placePath);
    const int count = options.count.value_or(place.count.value_or(kUsualCount));
    content.count = static_cast<std::size_t>(std::clamp(count, 1, static_cast<int>(kMaximalWidgetEvents)));
    WidgetBoard board(session, std::move(content));
    QQmlApplicationEngine engine;
    engine.setInitialProperties({{"board", QVariant::fromValue(&board)}});
    engine.load(QUrl(QStringLiteral("qrc:/widget/WidgetWindow.qml")));
    if (engine.rootObjects().isEmpty()) return complain("the window cannot be loaded", failed);
    auto& window = *qobject_cast<QQuickWindow*>(engine.rootObjects().front());
    if (place.position && isOnScreen(*place.position)) window.setPosition(*place.position);
    window.show();
    if (options.picture.empty()) {
        rememberPlace(window, board, placePath);
    } else {
        takePicture(window, QString::fromStdString(options.picture));
    }
    return QGuiApplication::exec();
}

int run(const Options& options) {
    const auto now = givenNow(options.now, options.zone);
    if (!now) return complain(now.error().description(), wrongUsage);
    WidgetBoard::Options content;
    content.now = *now;
    if (!options.theme.empty()) content.dark = options.theme == "dark";
    content.home = QString::fromStdString(options.home);
    return show(options, std::move(content));
}

}  // namespace

int runWindow(int argc, char** argv) {
    CLI::App parser("What comes next, as a small window on the desktop.", kName);
    Options options;
    declare(parser, options);
    if (const auto status = parseArguments(parser, argc, argv)) return *status;
    QCoreApplication::setApplicationName(QStringLiteral("dayward-widget"));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.dayward.Dayward.Widget"));
    QQuickWindow::setDefaultAlphaBuffer(true);
    const auto application = makeQtApplication(kName, argc, argv);
    return run(options);
}

}  // namespace dayward

int main(int argc, char** argv) { return dayward::runWindow(argc, argv); }
