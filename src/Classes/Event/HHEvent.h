// One thing that the user counts down to: the central record.
//
// A value in transit: stores hold their own, and a changed copy is handed back as a whole. Equality is
// by identifier alone. Different threads may read one event at a time, the date questions included;
// changing it while others read is the owner's fault. The format, countdown alerts and appearance are
// always there: a new event has their defaults.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Classes/Category/EventBackgroundPicture.h"
#include "Classes/Category/EventIconPicture.h"
#include "Classes/Event/HHEventAlerts.h"
#include "Classes/Event/HHEventAppearance.h"
#include "Classes/Event/SharedText.h"
#include "Classes/Other/Date/HHEventDateFormat.h"
#include "intervals/XDIDateInterval.h"
#include "platform/Archivable.h"
#include "platform/Color.h"
#include "platform/Date.h"
#include "platform/Object.h"
#include "recurrence/DatesCalculation.h"
#include "sync/CCSyncItemVersion.h"

namespace dayward {

class EventCategory;
class HHGeneralEventDocumentData;

class HHEvent final : public Archivable {
public:
    static constexpr const char* kArchiveClass = "HHEvent";
    static constexpr const char* kIdentifierKey = "Key";
    static constexpr const char* kGeneralDataKey = "GeneralData";
    static constexpr const char* kIconKey = "p003";        ///< not the document data's "p003"
    static constexpr const char* kBackgroundKey = "p004";  ///< nor its "p004"

    using DatesCalculation = dayward::DatesCalculation;

    /// A new UUID as identifier, today's instant as date, midnight as the only time.
    HHEvent();
    explicit HHEvent(std::string identifier);
    /// All fields, but not the cached calculation. Pictures are shared, they never change.
    HHEvent(const HHEvent& other);
    HHEvent& operator=(const HHEvent& other);

    /// The event's key in every store and its document's name without extension.
    [[nodiscard]] const std::string& identifier() const { return identifier_; }
    void setIdentifier(std::string identifier) { identifier_ = std::move(identifier); }

    /// Where the event came from; any archivable object, often null.
    [[nodiscard]] const Object& sourceInfo() const { return sourceInfo_ ? *sourceInfo_ : kNoSource; }
    void setSourceInfo(Object sourceInfo) {
        sourceInfo_ = sourceInfo.isNull() ? nullptr : std::make_shared<const Object>(std::move(sourceInfo));
    }

    /// Null means the category's icon.
    [[nodiscard]] const std::shared_ptr<EventIconPicture>& icon() const { return icon_; }
    void setIcon(std::shared_ptr<EventIconPicture> icon) { icon_ = std::move(icon); }

    [[nodiscard]] const std::optional<std::string>& name() const { return name_; }
    void setName(std::optional<std::string> name) { name_ = std::move(name); }

    /// Nothing means the default category.
    [[nodiscard]] const std::optional<std::string>& categoryKey() const { return categoryKey_.value(); }
    void setCategoryKey(std::optional<std::string> key) { categoryKey_ = std::move(key); }

    /// The day of the first occurrence; its time of day counts for nothing.
    [[nodiscard]] Date date() const { return date_; }
    void setDate(Date date);

    /// Minutes after midnight, each an occurrence of its own; empty means no occurrence at all.
    [[nodiscard]] const std::vector<std::int64_t>& times() const { return times_; }
    void setTimes(std::vector<std::int64_t> times);

    [[nodiscard]] const std::optional<std::string>& rrule() const { return rrule_.value(); }
    void setRrule(std::optional<std::string> rrule);

    [[nodiscard]] const std::optional<XDIDateInterval>& duration() const { return duration_; }
    void setDuration(std::optional<XDIDateInterval> duration);

    /// Whether the title shows the count of years.
    [[nodiscard]] bool showAge() const { return showAge_; }
    void setShowAge(bool showAge) { showAge_ = showAge; }

    [[nodiscard]] const HHEventDateFormat& intervalFormat() const { return intervalFormat_; }
    [[nodiscard]] HHEventDateFormat& intervalFormat() { return intervalFormat_; }
    void setIntervalFormat(HHEventDateFormat format) { intervalFormat_ = std::move(format); }

    [[nodiscard]] const HHEventAlerts& alerts() const { return alerts_; }
    [[nodiscard]] HHEventAlerts& alerts() { return alerts_; }
    void setAlerts(HHEventAlerts alerts) { alerts_ = std::move(alerts); }

    [[nodiscard]] const HHEventAppearance& appearance() const { return appearance_; }
    [[nodiscard]] HHEventAppearance& appearance() { return appearance_; }
    void setAppearance(HHEventAppearance appearance) { appearance_ = std::move(appearance); }

    /// Null means the category's background.
    [[nodiscard]] const std::shared_ptr<EventBackgroundPicture>& background() const { return background_; }
    void setBackground(std::shared_ptr<EventBackgroundPicture> background) { background_ = std::move(background); }

    /// What a random template of the category picked for this event, kept so that it stays the same.
    [[nodiscard]] const std::shared_ptr<EventBackgroundPicture>& randomBackground() const { return randomBackground_; }
    void setRandomBackground(std::shared_ptr<EventBackgroundPicture> background) {
        randomBackground_ = std::move(background);
    }

    [[nodiscard]] const std::optional<std::string>& note() const { return note_; }
    void setNote(std::optional<std::string> note) { note_ = std::move(note); }

    [[nodiscard]] const std::optional<CCSyncItemVersion>& version() const { return version_; }
    void setVersion(std::optional<CCSyncItemVersion> version) { version_ = std::move(version); }

    /// Same identifier.
    bool operator==(const HHEvent& other) const { return identifier_ == other.identifier_; }
    /// "HHEvent: " and the name, "null" without one.
    [[nodiscard]] std::string description() const;

    // Dates. All of them ask one calculation, which is kept until its next occurrence has ended or a
    // setter of date, times, rrule or duration is called.

    [[nodiscard]] std::shared_ptr<const DatesCalculation> datesCalculation() const;
    /// The same as of a moment that the caller has asked the clock for, for whoever asks many events.
    [[nodiscard]] DatesCalculation datesAt(Date now) const;
    /// Has the processor fetch what datesAt will read.
    void prefetchDates() const { __builtin_prefetch(&dates_); }
    /// Drops the kept calculation.
    void moduleEventDateRefresh() { dates_.drop(); }
    /// The occurrence that is running or comes next, else the last one; nothing where there is none.
    [[nodiscard]] std::optional<Date> nextDate() const;
    /// The name, for a yearly event that shows its age with the count of years up to the date:
    /// "Name (31)". Empty without a name.
    [[nodiscard]] std::string titleToDate(std::optional<Date> date) const;
    /// Whether an occurrence is in progress now, its first and last moment excluded.
    [[nodiscard]] bool isComing() const;

    // Look: the event's own, else its category's, else the last resort; see EventDisplay.

    [[nodiscard]] std::shared_ptr<EventIconPicture> displayIcon() const;
    [[nodiscard]] std::shared_ptr<EventBackgroundPicture> displayBackground() const;
    [[nodiscard]] std::string displayFont() const;
    [[nodiscard]] Color displayTextColor() const;

    // Archive and document.

    /// What "general.t" holds of the event.
    [[nodiscard]] std::shared_ptr<HHGeneralEventDocumentData> getStoreInfo() const;
    /// Takes all but the identifier from the data. A picture that is in neither of its forms there is
    /// the one in the event's document.
    void fillStoreInfo(HHGeneralEventDocumentData data);

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kArchiveClass}; }
    /// The whole event in one archive, images included; images in the document are loaded for it.
    void encodeWithCoder(KeyedArchiver& coder) const override;
    [[nodiscard]] bool isEqual(const Archivable& other) const override;
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);

private:
    friend class SharedParts;

    /// What the calculation goes by; as long as the event lives unchanged.
    [[nodiscard]] OccurrenceRule occurrenceRule() const;
    [[nodiscard]] std::shared_ptr<EventCategory> displayCategory() const;

    std::string identifier_;
    inline static const Object kNoSource;
    std::shared_ptr<const Object> sourceInfo_;
    std::shared_ptr<EventIconPicture> icon_;
    std::optional<std::string> name_;
    SharedText categoryKey_;
    Date date_;
    std::vector<std::int64_t> times_{0};
    SharedText rrule_;
    std::optional<XDIDateInterval> duration_;
    HHEventDateFormat intervalFormat_;
    HHEventAlerts alerts_;
    HHEventAppearance appearance_;
    std::shared_ptr<EventBackgroundPicture> background_;
    std::shared_ptr<EventBackgroundPicture> randomBackground_;
    std::optional<std::string> note_;
    std::optional<CCSyncItemVersion> version_;

    [[no_unique_address]] mutable KeptDates dates_;
    bool showAge_ = false;
};

/// Makes archives of events and of their document data readable.
void registerEventClasses(ArchiveClasses& classes);

}  // namespace dayward
