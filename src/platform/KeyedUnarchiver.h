// Reader of keyed archives in the published layout (see KeyedArchiver.h).
//
// Reads what any writer of that layout makes: mutable and immutable class variants, any order of
// objects, shared objects, circular references, integers and reals where the other is expected,
// binary and XML property lists. An object of a class that nobody knows comes back as an opaque record
// that writes itself back unchanged. Bad bytes never crash and never cost more than a bounded
// multiple of their size: they are an Error that says what is wrong. One thread per unarchiver.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Archivable.h"
#include "platform/Object.h"
#include "platform/Result.h"

namespace dayward {

class KeyedUnarchiver {
public:
    /// What happens at a record that refuses its values. A stored file stops the process, so that the file is
    /// blamed and left out from then on; what is only handed in fails to be read.
    enum class OnRefusal { stop, fail };

    /// The root object, read with the given classes; domain "keyed archive" on failure.
    static Result<Object> unarchiveObjectWithData(const Data& data, const ArchiveClasses& classes,
                                                  OnRefusal onRefusal = OnRefusal::stop);
    /// The same with the current environment's classes.
    static Result<Object> unarchiveObjectWithData(const Data& data);
    /// Lets `decode` read the entries beside or in the place of a single root.
    static Result<> unarchiveContents(const Data& data, const ArchiveClasses& classes,
                                      const std::function<void(KeyedUnarchiver&)>& decode,
                                      OnRefusal onRefusal = OnRefusal::stop);

    // Called by the readers of records, on the record that is being read. A missing key, a value of
    // another type, or an object that is still being read (a circle) is nothing. Numbers read as
    // each other.
    [[nodiscard]] bool containsValue(std::string_view forKey) const;
    [[nodiscard]] Object decodeObject(std::string_view forKey);
    [[nodiscard]] std::optional<std::int64_t> decodeInteger(std::string_view forKey);
    [[nodiscard]] std::optional<bool> decodeBool(std::string_view forKey);
    [[nodiscard]] std::optional<double> decodeDouble(std::string_view forKey);
    [[nodiscard]] std::optional<std::string> decodeString(std::string_view forKey);
    [[nodiscard]] std::optional<Date> decodeDate(std::string_view forKey);
    [[nodiscard]] std::optional<Data> decodeData(std::string_view forKey);
    /// The record where it is of that class, else null.
    template <class T>
    [[nodiscard]] std::shared_ptr<T> decodeRecord(std::string_view forKey) {
        return decodeObject(forKey).as<T>();
    }
    /// The class's version, stored under its own name; nothing where it is missing.
    [[nodiscard]] std::optional<std::int64_t> decodeVersion(std::string_view forClass);
    /// The record holds a value that no program writes: see OnRefusal.
    void refuse(std::string reason);

    ~KeyedUnarchiver();
    KeyedUnarchiver(const KeyedUnarchiver&) = delete;
    KeyedUnarchiver& operator=(const KeyedUnarchiver&) = delete;

    struct Impl;
    explicit KeyedUnarchiver(Impl& impl);  // made by unarchiveObjectWithData only

private:
    Impl& impl_;
};

}  // namespace dayward
