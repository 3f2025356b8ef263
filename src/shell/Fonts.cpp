#include "shell/Fonts.h"

#include <algorithm>

#include "resources/FontLook.h"
#include "shell/QtValues.h"

namespace dayward {

QFont fontNamed(const std::string& name, int pixelSize) {
    QFont font;
    font.setPixelSize(std::max(1, pixelSize));
    const auto look = name.empty() ? std::nullopt : FontLook::named(name);
    if (!look) {
        font.setFamily(QString::fromLatin1(kInterfaceFamily));
        return font;
    }
    font.setFamilies(qtTexts({look->family, look->fallback}));
    font.setWeight(static_cast<QFont::Weight>(std::clamp(look->weight, 1, 1000)));
    font.setItalic(look->isItalic);
    if (look->isSmallCaps) font.setCapitalization(QFont::SmallCaps);
    return font;
}

}  // namespace dayward
