#include "shell/Appearance.h"

#include <QEvent>
#include <QFontInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLocale>
#include <QQmlEngine>
#include <algorithm>

#include "Classes/Settings/InterfaceSettings.h"
#include "platform/DateFormatter.h"
#include "platform/Environment.h"
#include "platform/FatalError.h"
#include "platform/Strings.h"
#include "shell/Fonts.h"
#include "shell/QtValues.h"
#include "shell/SystemColorScheme.h"

namespace dayward {

namespace {

// Desktops write their usual text in about 14 pixels.
constexpr qreal kUsualTextPixels = 14;
constexpr qreal kSmallestScale = 1;
constexpr qreal kLargestScale = 2;

qreal systemTextScale() {
    const qreal pixels = QFontInfo(QGuiApplication::font()).pixelSize();
    return std::clamp(pixels / kUsualTextPixels, kSmallestScale, kLargestScale);
}

bool movesFocus(int key) {
    return key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Up || key == Qt::Key_Down ||
           key == Qt::Key_Left || key == Qt::Key_Right;
}

}  // namespace

Appearance::Appearance(Environment& environment)
    : environment_(environment), system_(std::make_unique<SystemColorScheme>()), textScale_(systemTextScale()) {
    instance_ = this;
    connect(system_.get(), &SystemColorScheme::changed, this, &Appearance::update);
    qGuiApp->installEventFilter(this);
    settings_ = environment_.notifications().addObserver(InterfaceSettings::kDidUpdateNotification,
                                                                   [this](const Notification&) { update(); });
    update();
}

Appearance::~Appearance() { instance_ = nullptr; }

Appearance* Appearance::create(QQmlEngine*, QJSEngine*) {
    if (instance_ == nullptr) fatalError("the appearance is asked for before it is made");
    QQmlEngine::setObjectOwnership(instance_, QQmlEngine::CppOwnership);
    return instance_;
}

void Appearance::update() {
    const auto theme = InterfaceSettings::theme();
    setDark(theme == InterfaceSettings::Theme::system ? system_->isDark() : theme == InterfaceSettings::Theme::dark);
}

void Appearance::setDark(bool dark) {
    if (std::exchange(isDark_, dark) != dark) emit darkChanged();
}

void Appearance::setTextScale(qreal scale) {
    if (std::exchange(textScale_, scale) != scale) emit textScaleChanged();
}

QString Appearance::localeName() const { return qtText(environment_.locale().identifier()); }

int Appearance::firstWeekday() const { return environment_.locale().firstWeekday() - 1; }

bool Appearance::halvesDay() const {
    const std::string hours = DateFormatter::dateFormatFromTemplate("j", environment_.locale());
    return hours.find_first_of("hK") != std::string::npos;
}

bool Appearance::isRightToLeft() const { return QLocale(localeName()).textDirection() == Qt::RightToLeft; }

QString Appearance::family() const { return QString::fromLatin1(kInterfaceFamily); }

QFont Appearance::font(const QString& name, int pixelSize, const QString& forText) const {
    return fontNamed(name.toStdString(), pixelSize, forText);
}

QString Appearance::text(const QString& english) const { return qtText(localized(english.toStdString())); }

void Appearance::setKeyboardInUse(bool inUse) {
    if (std::exchange(keyboardInUse_, inUse) != inUse) emit keyboardInUseChanged();
}

bool Appearance::eventFilter(QObject* object, QEvent* event) {
    if (object == qGuiApp && event->type() == QEvent::ApplicationFontChange) setTextScale(systemTextScale());
    if (object == qGuiApp && event->type() == QEvent::ApplicationPaletteChange) update();
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::TouchBegin) setKeyboardInUse(false);
    // A key that a shortcut takes comes as no press.
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (isKey && movesFocus(static_cast<QKeyEvent*>(event)->key())) setKeyboardInUse(true);
    return QObject::eventFilter(object, event);
}

}  // namespace dayward
