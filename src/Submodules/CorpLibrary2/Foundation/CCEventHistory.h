// A journal: a name, and the dates at which the thing of that name happened, each with what was
// told about it. Dates of a name are ascending, and at most maxDatesForEvent() of them are kept.
//
// Archive class "CCEventHistory": the version 0 under the class name; "data", a dictionary from name
// to an array of entries, each a dictionary with "date" and, if given, "userInfo" (a bare date is
// read too); "maxDatesForEvent". One thread at a time uses an instance.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/Archivable.h"
#include "platform/Result.h"

namespace dayward {

class CCEventHistory final : public Archivable {
public:
    static constexpr const char* kArchiveClassName = "CCEventHistory";
    static constexpr std::int64_t kDefaultMaxDatesForEvent = 100;

    struct Entry {
        Date date;
        std::optional<Dictionary> userInfo;
        bool operator==(const Entry&) const = default;
    };

    CCEventHistory() = default;
    /// The history of a keyed archive file; fails where there is none or it cannot be read as one.
    static Result<CCEventHistory> readContentsOfFile(const std::string& path);
    /// A failure is returned and also logged.
    Result<> writeToFile(const std::string& path) const;

    [[nodiscard]] std::int64_t maxDatesForEvent() const { return maxDatesForEvent_; }
    /// Takes effect at a name's next addEvent().
    void setMaxDatesForEvent(std::int64_t limit) { maxDatesForEvent_ = limit; }

    /// Dated now unless a date is given. The oldest entries beyond the limit fall off. A date that is
    /// not a number is not taken.
    void addEvent(const std::string& name);
    void addEvent(const std::string& name, std::optional<Dictionary> userInfo);
    void addEvent(const std::string& name, std::optional<Dictionary> userInfo, Date date);

    /// Entries between the two dates, both inclusive; a bound that is not given is open.
    [[nodiscard]] std::size_t countEvent(const std::string& name, std::optional<Date> fromDate = {},
                                         std::optional<Date> toDate = {}) const;
    /// Entries since that many times 86400 seconds ago.
    [[nodiscard]] std::size_t countEventLastDays(const std::string& name, double days) const;
    [[nodiscard]] bool containsEvent(const std::string& name) const;
    /// The date that many entries back from the newest.
    [[nodiscard]] std::optional<Date> dateToLastEvent(const std::string& name, std::int64_t offset = 0) const;
    /// From the newest entry to now.
    [[nodiscard]] std::optional<TimeInterval> timeIntervalToLastEvent(const std::string& name) const;
    /// The entries of a name, oldest first.
    [[nodiscard]] std::vector<Entry> entriesForEvent(const std::string& name) const;

    void removeEvent(const std::string& name);
    void removeAllEvents();

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kArchiveClassName}; }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    [[nodiscard]] bool isEqual(const Archivable& other) const override;
    /// Null for a version other than 0. Entries that cannot be read are left out.
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);

private:
    std::map<std::string, std::vector<Entry>, std::less<>> data_;
    std::int64_t maxDatesForEvent_ = kDefaultMaxDatesForEvent;
};

}  // namespace dayward
