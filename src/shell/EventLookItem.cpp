#include "shell/EventLookItem.h"

#include <utility>

#include "shell/Fonts.h"

namespace dayward {

namespace {
constexpr float kShareAtEdges = 0.6F;
}

EventLookItem::EventLookItem(QQuickItem* parent) : QQuickItem(parent) {
    for (const auto changed :
         {&EventLookItem::titleChanged, &EventLookItem::fontNameChanged, &EventLookItem::titleSizeChanged}) {
        connect(this, changed, this, &EventLookItem::updateTitleFont);
    }
    updateTitleFont();
}

QColor EventLookItem::faintScrim() const {
    QColor faint = scrim_;
    faint.setAlphaF(scrim_.alphaF() * kShareAtEdges);
    return faint;
}

void EventLookItem::updateTitleFont() {
    const QFont font = fontNamed(fontName_.toStdString(), titleSize_, title_);
    if (std::exchange(titleFont_, font) != font) emit titleFontChanged();
}

}  // namespace dayward
