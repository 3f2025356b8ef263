// The right to come to the front, which the desktop gives to a start or a tap and which one window uses once. It
// travels as the platform data of org.freedesktop.Application: a token of xdg-activation on Wayland, an identifier of
// the Startup Notification Protocol on X11. Main thread only.
#pragma once

#include <QVariantMap>

class QWindow;

namespace dayward {

/// What this process was started with. Qt takes it away when its application is made.
QVariantMap activationOfStart();

/// Keeps what came with a call for the next window that is activated; data without it changes nothing.
void keepActivation(const QVariantMap& platformData);

/// Asks for the keyboard for a window that is shown, by what is kept if anything is. Without it the desktop may refuse
/// while the user is busy elsewhere, and mark the window instead.
void activate(QWindow& window);

}  // namespace dayward
