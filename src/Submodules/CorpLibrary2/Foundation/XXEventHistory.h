// The older journal: a name, and the ascending dates at which the thing of that name happened, at
// most maxDatesForEvent() of them.
//
// Archive class "XXEventHistory": the version 0 under the class name; "data", a dictionary from name
// to an array of dates; "_maxDatesForEvent". One thread at a time uses an instance.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/Archivable.h"
#include "platform/Result.h"

namespace dayward {

class XXEventHistory final : public Archivable {
public:
    static constexpr const char* kArchiveClassName = "XXEventHistory";
    static constexpr std::int64_t kDefaultMaxDatesForEvent = 100;

    /// The history of a keyed archive file, or a fresh one where it cannot be read.
    static XXEventHistory historyWithContentsOfFile(const std::string& path);
    /// A failure is returned and also logged.
    Result<> writeToFile(const std::string& path) const;

    [[nodiscard]] std::int64_t maxDatesForEvent() const { return maxDatesForEvent_; }
    /// Takes effect at a name's next addEvent().
    void setMaxDatesForEvent(std::int64_t limit) { maxDatesForEvent_ = limit; }

    /// Dated now unless a date is given. The oldest dates beyond the limit fall off. A date that is
    /// not a number is not taken.
    void addEvent(const std::string& name);
    void addEvent(const std::string& name, Date withDate);

    /// Dates between the two, both inclusive; a bound that is not given is open.
    [[nodiscard]] std::size_t countEvent(const std::string& name, std::optional<Date> fromDate = {},
                                         std::optional<Date> toDate = {}) const;
    /// Dates since that many times 86400 seconds ago.
    [[nodiscard]] std::size_t countEventLastDays(const std::string& name, double days) const;
    [[nodiscard]] bool isExistsEvent(const std::string& name) const;
    [[nodiscard]] std::optional<Date> dateToFirstEvent(const std::string& name) const;
    [[nodiscard]] std::optional<Date> dateToLastEvent(const std::string& name) const;
    /// From the last date to now.
    [[nodiscard]] std::optional<TimeInterval> timeIntervalToLastEvent(const std::string& name) const;
    [[nodiscard]] std::vector<Date> datesForEvent(const std::string& name, std::optional<Date> fromDate = {},
                                                  std::optional<Date> toDate = {}) const;

    void removeEvent(const std::string& name);
    void removeAllEvents();

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kArchiveClassName}; }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    [[nodiscard]] bool isEqual(const Archivable& other) const override;
    /// Null for a version other than 0. Dates that cannot be read are left out.
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);

private:
    std::map<std::string, std::vector<Date>, std::less<>> data_;
    std::int64_t maxDatesForEvent_ = kDefaultMaxDatesForEvent;
};

}  // namespace dayward
