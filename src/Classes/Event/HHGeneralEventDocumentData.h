// What an event's document holds beside its images: the root object of "general.t".
//
// A plain record whose keys are the format, and they are written in the order in which they stand
// below. Reading never fails: it starts from the defaults, and a value of another type counts as
// absent. Older shapes are read here: "Calendar" objects in place of rules, the older forms of pictures.
// Reading asks no store, since the stores' own files may hold such a record. Dates that are no numbers
// and a missing version count as absent too.
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
#include "Classes/Other/Date/HHEventDateFormat.h"
#include "intervals/XDIDateInterval.h"
#include "platform/Archivable.h"
#include "platform/Color.h"
#include "platform/Date.h"
#include "platform/Object.h"
#include "sync/CCSyncItemVersion.h"

namespace dayward {

class HHGeneralEventDocumentData final : public Archivable {
public:
    static constexpr const char* kArchiveClass = "HHGeneralEventDocumentData";
    static constexpr const char* kTypeKey = "Type";
    static constexpr const char* kSourceInfoKey = "SourceInfo";
    static constexpr const char* kNameKey = "Name";
    static constexpr const char* kCategoryKey = "Category";
    static constexpr const char* kDateKey = "Date";
    static constexpr const char* kTimesKey = "Times";
    static constexpr const char* kDurationKey = "Duration";
    static constexpr const char* kRRuleKey = "RRule";
    static constexpr const char* kShowAgeKey = "ShowYear";
    static constexpr const char* kIntervalFormatKey = "DateFormat";
    static constexpr const char* kAlertsKey = "Alerts";
    static constexpr const char* kAppearanceKey = "Appearance";
    static constexpr const char* kNoteKey = "Note";
    static constexpr const char* kIconNamedKey = "IconSystemName";
    static constexpr const char* kBackgroundNamedKey = "BackgroundSystemName";
    static constexpr const char* kBackgroundColorKey = "BackgroundColor";
    static constexpr const char* kIconKey = "p001";
    static constexpr const char* kIconIsNullKey = "p004";
    static constexpr const char* kBackgroundKey = "p002";
    static constexpr const char* kRandomBackgroundKey = "p003";
    static constexpr const char* kBackgroundIsNullKey = "p005";
    static constexpr const char* kSyncVersionKey = "p006";
    static constexpr const char* kCalendarKey = "Calendar";  ///< older archives only; never written

    /// Today's instant as date, all else the defaults below.
    HHGeneralEventDocumentData();

    std::int64_t type = 0;  ///< of older versions: stood for a category
    Object sourceInfo;
    std::optional<std::string> name;
    std::optional<std::string> categoryKey;  ///< nothing for an older document whose type stands for one
    Date date;
    std::vector<std::int64_t> times{0};  ///< minutes after midnight; never empty once read
    std::optional<std::string> rrule;
    std::optional<XDIDateInterval> duration;
    bool showAge = false;
    HHEventDateFormat intervalFormat;
    HHEventAlerts alerts;
    HHEventAppearance appearance;
    std::optional<std::string> note;
    std::optional<std::string> icon_named;                     ///< older form of a named icon
    std::optional<std::string> background_named;               ///< older form of a named background
    std::optional<Color> background_color;                     ///< older form of a colour background
    std::shared_ptr<EventIconPicture> icon;                    ///< where it is a named one
    bool icon_is_null = false;                                 ///< the event has no icon of its own
    std::shared_ptr<EventBackgroundPicture> background;        ///< where it is named or a colour
    std::shared_ptr<EventBackgroundPicture> randomBackground;  ///< where it is named or a colour
    bool background_is_null = false;                           ///< the event has no background of its own
    CCSyncItemVersion syncVersion = CCSyncItemVersion::zero();

    /// What the category is called in the user's language that the type of an older document stands for;
    /// nothing for a document with a category.
    [[nodiscard]] std::optional<std::string> categoryNameOfOlderType() const;

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kArchiveClass}; }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);

private:
    void readCategory(KeyedUnarchiver& coder);
    void readDates(KeyedUnarchiver& coder);
    void readPictures(KeyedUnarchiver& coder);
};

}  // namespace dayward
