#include "shell/Fonts.h"

#include <QFontDatabase>
#include <QHash>
#include <algorithm>

#include "resources/FontLook.h"
#include "shell/QtValues.h"

namespace dayward {

namespace {

bool isCyrillic(QChar letter) { return letter.script() == QChar::Script_Cyrillic; }

bool hasCyrillic(const QString& family) {
    static QHash<QString, bool> known;
    const auto found = known.constFind(family);
    if (found != known.constEnd()) return *found;
    const bool has = QFontDatabase::writingSystems(family).contains(QFontDatabase::Cyrillic);
    known.insert(family, has);
    return has;
}

/// A family of that character with letters of many scripts.
QString broadFamily(const std::string& generic) {
    if (generic == "serif") return QStringLiteral("PT Serif");
    if (generic == "monospace") return QStringLiteral("PT Mono");
    if (generic == "cursive") return QStringLiteral("Comfortaa");
    return QString::fromLatin1(kInterfaceFamily);
}

QStringList familiesFor(const FontLook& look, const QString& text) {
    const QString own = qtText(look.family);
    const QString broad = broadFamily(look.fallback);
    const QString last = qtText(look.fallback);
    const bool ownWrites = !std::any_of(text.begin(), text.end(), isCyrillic) || hasCyrillic(own);
    return ownWrites ? QStringList{own, broad, last} : QStringList{broad, own, last};
}

}  // namespace

QFont fontNamed(const std::string& name, int pixelSize, const QString& forText) {
    QFont font;
    font.setPixelSize(std::max(1, pixelSize));
    const auto look = name.empty() ? std::nullopt : FontLook::named(name);
    if (!look) {
        font.setFamily(QString::fromLatin1(kInterfaceFamily));
        return font;
    }
    font.setFamilies(familiesFor(*look, forText));
    font.setWeight(static_cast<QFont::Weight>(std::clamp(look->weight, 1, 1000)));
    font.setItalic(look->isItalic);
    if (look->isSmallCaps) font.setCapitalization(QFont::SmallCaps);
    return font;
}

}  // namespace dayward
