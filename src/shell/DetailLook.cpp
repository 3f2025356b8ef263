#include "shell/DetailLook.h"

#include "Classes/Interface/Detail/EventDetailView.h"
#include "shell/Pictures.h"
#include "shell/QtValues.h"

namespace dayward {

DetailLook::DetailLook(const EventDetailView& view, Pictures& pictures)
    : background(pictures.add(view.backgroundView())),
      icon(pictures.add(view.iconView())),
      fontName(qtText(view.fontName())),
      name(qtText(view.nameLabel())),
      date(qtText(view.dateLabel())),
      countdown(qtText(view.countdownLabel())),
      note(qtText(view.noteLabel())),
      spoken(qtText(view.accessibility())),
      textColor(qtColor(view.textColor())),
      scrim(qtColor(view.scrim())),
      noteOpened(view.noteOpened()),
      nameSizes(EventDetailView::kNameFontSizes.begin(), EventDetailView::kNameFontSizes.end()),
      countdownSizes(EventDetailView::kCountdownFontSizes.begin(), EventDetailView::kCountdownFontSizes.end()) {
    for (const DetailUnitRow& row : view.unitRows()) {
        unitLabels.append(qtText(row.label));
        unitValues.append(qtText(row.value));
    }
}

}  // namespace dayward
