#include "Classes/Event/HHEventAppearance.h"

#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"

namespace dayward {

void HHEventAppearance::encodeWithCoder(KeyedArchiver& coder) const {
    coder.encodeVersion(kVersion, kArchiveClass);
    coder.encodeString(fontName, kFontNameKey);
    coder.encodeObject(colorObject(textColor), kFontColorKey);
}

bool HHEventAppearance::isEqual(const Archivable& other) const {
    const auto* appearance = dynamic_cast<const HHEventAppearance*>(&other);
    return appearance && *this == *appearance;
}

std::shared_ptr<Archivable> HHEventAppearance::read(KeyedUnarchiver& coder) {
    auto appearance = std::make_shared<HHEventAppearance>();
    appearance->fontName = coder.decodeString(kFontNameKey);
    appearance->textColor = colorOf(coder.decodeObject(kFontColorKey));
    return appearance;
}

}  // namespace dayward
