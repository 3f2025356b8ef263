// One event at full size, as a value: its look and the texts of its labels. The screen shows it, and the
// picture for sharing is drawn from one. Main thread only; a copy may go to another.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "Classes/Interface/Detail/EventDetailUnits.h"
#include "Classes/Interface/Screens/TableRow.h"
#include "intervals/XDIDateInterval.h"
#include "platform/Color.h"

namespace dayward {

class HHEvent;

class EventDetailView {
public:
    // The sizes, in points, that a label tries one after the other until its text fits; at the last it wraps.
    static constexpr std::array kNameFontSizes{40.0, 36.0, 32.0, 28.0, 24.0, 20.0};
    static constexpr std::array kCountdownFontSizes{56.0, 48.0, 40.0, 34.0, 28.0, 24.0};

    /// All of the look and the texts. The note closes with another event.
    void configureForEvent(const HHEvent& event);
    /// The texts that change with time. Whether one did.
    bool configureOnlyTimeTextForEvent(const HHEvent& event);
    /// Opens or closes the note; one that is empty stays closed.
    void noteTapGestureAction() { noteOpened_ = !noteOpened_ && !noteLabel_.empty(); }
    /// The scrim that was measured on the background; see textScrim().
    void setScrim(const Color& scrim) { scrim_ = scrim; }

    // Look
    [[nodiscard]] const RowPicture& backgroundView() const { return backgroundView_; }
    [[nodiscard]] const RowPicture& iconView() const { return iconView_; }
    [[nodiscard]] const std::string& fontName() const { return fontName_; }  ///< of all labels
    [[nodiscard]] const Color& textColor() const { return textColor_; }      ///< of all labels
    /// Of the gradient between the background and the text; for any background until it is measured.
    [[nodiscard]] const Color& scrim() const { return scrim_; }

    // Texts
    [[nodiscard]] const std::string& nameLabel() const { return nameLabel_; }
    [[nodiscard]] const std::string& dateLabel() const { return dateLabel_; }
    [[nodiscard]] const std::string& countdownLabel() const { return countdownLabel_; }
    [[nodiscard]] const std::string& noteLabel() const { return noteLabel_; }
    /// The note has grown over the other content.
    [[nodiscard]] bool noteOpened() const { return noteOpened_; }
    /// From now to the next date, each unit holding the whole span; empty while the event is happening
    /// and without a date.
    [[nodiscard]] const XDIDateInterval& detailInterval() const { return detailInterval_; }
    [[nodiscard]] const std::vector<DetailUnitRow>& unitRows() const { return unitRows_; }
    /// "Years: ", a line for each row.
    [[nodiscard]] std::string unitKeyLabel() const;
    /// The numbers, a line for each row.
    [[nodiscard]] std::string unitValueLabel() const;
    /// The whole view as one sentence.
    [[nodiscard]] std::string accessibility() const;

private:
    std::string eventIdentifier_;
    RowPicture backgroundView_;
    RowPicture iconView_;
    std::string fontName_;
    Color textColor_;
    Color scrim_;
    std::string nameLabel_;
    std::string dateLabel_;
    std::string countdownLabel_;
    std::string noteLabel_;
    bool noteOpened_ = false;
    XDIDateInterval detailInterval_;
    std::vector<DetailUnitRow> unitRows_;
};

}  // namespace dayward
