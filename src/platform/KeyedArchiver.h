// Writer of keyed archives in the published layout: a binary property list with "$archiver"
// "NSKeyedArchiver", "$version" 100000, "$objects" with "$null" first, and "$top" with "root".
//
// Arrays are stored under "NS.objects", dictionaries under "NS.keys" and "NS.objects", dates under
// "NS.time"; strings, numbers and data as they are; class records carry "$classname" and "$classes".
// A record that is referenced twice is stored once. One thread per archiver.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Archivable.h"
#include "platform/Object.h"

namespace dayward {

class KeyedArchiver {
public:
    /// The whole archive with the object as its root.
    static Data archivedDataWithRootObject(const Object& root);
    /// An archive with the entries that `encode` writes in the place of a single root.
    static Data archivedDataWithContents(const std::function<void(KeyedArchiver&)>& encode);

    /// Called by records while they are written; keys come out in the order of the calls.
    void encodeObject(const Object& value, std::string_view forKey);
    /// The same as an object of the text, or null.
    void encodeString(const std::optional<std::string>& value, std::string_view forKey);
    void encodeDate(Date value, std::string_view forKey);
    /// An array object of them.
    void encodeIntegers(std::span<const std::int64_t> values, std::string_view forKey);
    /// A record that nobody else refers to: written anew each time, since its address tells nothing. Null
    /// is the null object. No opaque record.
    void encodeRecord(const Archivable* record, std::string_view forKey);
    /// An array object of such records.
    template <class Record>
    void encodeRecords(const std::vector<Record>& records, std::string_view forKey) {
        encodeRecords(
            records.size(), [&](std::size_t i) -> const Archivable& { return records[i]; }, forKey);
    }

    void encodeInteger(std::int64_t value, std::string_view forKey);
    void encodeBool(bool value, std::string_view forKey);
    void encodeDouble(double value, std::string_view forKey);
    /// The class's version as a plain integer under the class's own name.
    void encodeVersion(std::int64_t version, std::string_view forClass);

    ~KeyedArchiver();
    KeyedArchiver(const KeyedArchiver&) = delete;
    KeyedArchiver& operator=(const KeyedArchiver&) = delete;

    struct Impl;
    explicit KeyedArchiver(Impl& impl);  // made by archivedDataWithRootObject only

private:
    void encodeRecords(std::size_t count, const std::function<const Archivable&(std::size_t)>& record,
                       std::string_view forKey);

    Impl& impl_;
};

}  // namespace dayward
