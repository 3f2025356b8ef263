#include "shell/Activation.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QWindow>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string_view>

namespace dayward {

namespace {

struct Field {
    const char* variable;
    const char* key;
};

/// Qt reads the token when it activates a window on Wayland.
constexpr Field kToken{"XDG_ACTIVATION_TOKEN", "activation-token"};
constexpr Field kStartup{"DESKTOP_STARTUP_ID", "desktop-startup-id"};

/// The X server's time of the user's action, which ends a startup identifier.
std::optional<std::uint32_t> timeOf(const QByteArray& startup) {
    constexpr std::string_view kMark = "_TIME";
    const auto mark = startup.lastIndexOf(kMark.data());
    if (mark < 0) return std::nullopt;
    bool isNumber = false;
    const std::uint32_t time = startup.mid(mark + static_cast<int>(kMark.size())).toUInt(&isNumber);
    return isNumber ? std::optional(time) : std::nullopt;
}

xcb_atom_t atom(xcb_connection_t& connection, std::string_view name) {
    const auto asked = xcb_intern_atom(&connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> answer(
        xcb_intern_atom_reply(&connection, asked, nullptr), &std::free);
    if (!answer) return XCB_ATOM_NONE;
    return answer->atom;
}

/// As Qt asks the window manager, but with the time of the user's action; Qt knows that of its own windows only.
void activateOnX11(xcb_connection_t& connection, xcb_window_t window, std::uint32_t time) {
    constexpr std::uint32_t kAsApplication = 1;
    constexpr std::uint32_t kToManager = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom(connection, "_NET_ACTIVE_WINDOW");
    message.data.data32[0] = kAsApplication;
    message.data.data32[1] = time;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(&connection)).data->root;
    xcb_send_event(&connection, 0, root, kToManager, reinterpret_cast<const char*>(&message));
    xcb_flush(&connection);
}

}  // namespace

QVariantMap activationOfStart() {
    QVariantMap platformData;
    for (const Field& field : {kToken, kStartup}) {
        const QString value = qEnvironmentVariable(field.variable);
        if (!value.isEmpty()) platformData.insert(QString::fromLatin1(field.key), value);
    }
    return platformData;
}

void keepActivation(const QVariantMap& platformData) {
    const auto value = [&](const Field& field) {
        return platformData.value(QString::fromLatin1(field.key)).toString().toUtf8();
    };
    const QByteArray token = value(kToken), startup = value(kStartup);
    if (!token.isEmpty()) qputenv(kToken.variable, token);
    // Services on X11 send startup identifiers as tokens.
    if (!startup.isEmpty() || !token.isEmpty()) qputenv(kStartup.variable, startup.isEmpty() ? token : startup);
}

void activate(QWindow& window) {
    const auto time = timeOf(qgetenv(kStartup.variable));
    qunsetenv(kStartup.variable);
    auto* const display = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (time && display != nullptr) {
        qunsetenv(kToken.variable);  // the same right, which is used up for the programs that are started from here
        return activateOnX11(*display->connection(), static_cast<xcb_window_t>(window.winId()), *time);
    }
    window.requestActivate();
}

}  // namespace dayward
