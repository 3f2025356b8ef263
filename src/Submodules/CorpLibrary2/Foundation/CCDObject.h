// A record around a dictionary as decoded from JSON. A missing or mistyped value reads as nothing.
//
// Archive class "CCDObject": the dictionary under "__data". Copies are independent. One thread at a
// time uses an instance; the formatters of dates are shared and reached on a queue of their own.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Archivable.h"
#include "platform/TimeZone.h"

namespace dayward {

class CCDObject : public Archivable {
public:
    static constexpr const char* kArchiveClassName = "CCDObject";
    static constexpr const char* kDefaultDateFormat = "yyyy-MM-dd'T'HH:mm:ss";

    CCDObject() = default;
    explicit CCDObject(Dictionary data) : data_(std::move(data)) {}

    [[nodiscard]] const Dictionary& data() const { return data_; }

    /// The dictionary as JSON (RFC 8259), keys sorted; nothing where it holds what JSON has not: data,
    /// dates, records, numbers that are no number, bytes that are no UTF-8.
    [[nodiscard]] std::optional<Data> jsonData() const;
    [[nodiscard]] std::optional<std::string> jsonString() const;
    /// The JSON text, or "error".
    [[nodiscard]] std::string description() const;

    [[nodiscard]] Object valueForKey(const std::string& key) const;
    [[nodiscard]] std::optional<std::string> stringForKey(const std::string& key) const;
    [[nodiscard]] std::optional<std::int64_t> intForKey(const std::string& key) const;
    [[nodiscard]] std::optional<double> doubleForKey(const std::string& key) const;

    /// A date stored as a text of that format (Unicode TR 35 fields), in the zone or else the current one.
    [[nodiscard]] std::optional<Date> dateForKey(const std::string& key,
                                                 std::string_view dateFormat = kDefaultDateFormat,
                                                 const std::optional<TimeZone>& timeZone = {}) const;
    /// The reverse; no date removes the key.
    void setDate(const std::optional<Date>& date, const std::string& forKey,
                 std::string_view dateFormat = kDefaultDateFormat, const std::optional<TimeZone>& timeZone = {});

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kArchiveClassName}; }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    [[nodiscard]] bool isEqual(const Archivable& other) const override;
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);

protected:
    Dictionary data_;
};

}  // namespace dayward
