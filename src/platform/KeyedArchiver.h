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
#include <string>
#include <string_view>

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
    Impl& impl_;
};

}  // namespace dayward
