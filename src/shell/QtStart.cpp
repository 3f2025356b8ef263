#include "shell/QtStart.h"

#include <QGuiApplication>
#include <QStringList>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace dayward {

namespace {

/// What Qt says while its application is made. It ends the process by itself where that fails.
struct Start {
    struct Message {
        QtMsgType type;
        const char* category;
        QString text;
    };

    const char* program;
    std::vector<Message> messages;
};

Start* start = nullptr;

bool isSet(const char* variable) { return !qEnvironmentVariableIsEmpty(variable); }

/// Those of the part that tried the display say why it could not; the search for such parts is told otherwise.
QString reasons() {
    constexpr std::string_view kSearch = "qt.qpa.plugin";
    QStringList found, others;
    for (const auto& message : start->messages) {
        (kSearch == message.category ? others : found).append(message.text.simplified());
    }
    return (found.isEmpty() ? others : found).join(QStringLiteral("; "));
}

QString complaint() {
    if (!isSet("DISPLAY") && !isSet("WAYLAND_DISPLAY") && !isSet("QT_QPA_PLATFORM"))
        return QStringLiteral("there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set");
    return QStringLiteral("the display cannot be opened: ") + reasons();
}

void take(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    start->messages.push_back({type, context.category != nullptr ? context.category : "", text});
    if (type != QtFatalMsg) return;
    start->messages.pop_back();
    std::fprintf(stderr, "%s: %s\n", start->program, qPrintable(complaint()));
    std::fflush(stderr);
    std::_Exit(EXIT_FAILURE);
}

}  // namespace

std::unique_ptr<QGuiApplication> makeQtApplication(const char* program, int& argc, char** argv) {
    Start present{program, {}};
    start = &present;
    const QtMessageHandler usual = qInstallMessageHandler(&take);
    auto application = std::make_unique<QGuiApplication>(argc, argv);
    qInstallMessageHandler(usual);
    start = nullptr;
    for (const auto& [type, category, text] : present.messages) {
        qt_message_output(type, QMessageLogContext(nullptr, 0, nullptr, category), text);
    }
    return application;
}

}  // namespace dayward
