// Records that a keyed archive can hold, and the table of their classes.
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/Object.h"

namespace dayward {

class KeyedArchiver;
class KeyedUnarchiver;

/// A record that goes into a keyed archive under a class name of its own.
class Archivable {
public:
    virtual ~Archivable() = default;

    /// The class's archive name and its ancestors', nearest first, without the root "NSObject":
    /// {"c002", "c001a"}. The names are the format.
    [[nodiscard]] virtual std::vector<std::string> archiveClassNames() const = 0;
    /// Writes the record's keys, in the order in which the format has them.
    virtual void encodeWithCoder(KeyedArchiver& coder) const = 0;
    /// Equality as the record defines it; identity unless overridden.
    [[nodiscard]] virtual bool isEqual(const Archivable& other) const { return this == &other; }
};

/// Which archive class names are known and how an object of each is read. Built once when the
/// program starts, then only read; any thread may read it.
class ArchiveClasses {
public:
    /// Reads an object's keys; null means that the archive holds no usable object there.
    using Reader = std::function<std::shared_ptr<Archivable>(KeyedUnarchiver&)>;

    void add(std::string className, Reader reader);
    /// Objects stored under `oldName`, which has no reader of its own, are read as `className`.
    void addAlias(std::string oldName, std::string className);
    /// The reader of a name, aliases followed; null for an unknown name.
    [[nodiscard]] const Reader* reader(std::string_view className) const;

private:
    /// Names differ in length, beginning or end.
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view name) const {
            std::size_t ends[2] = {};
            const std::size_t count = std::min(name.size(), sizeof ends[0]);
            name.copy(reinterpret_cast<char*>(&ends[0]), count);
            name.copy(reinterpret_cast<char*>(&ends[1]), count, name.size() - count);
            return (ends[0] ^ (ends[1] + name.size())) * 0x9E3779B97F4A7C15;
        }
    };
    template <class Value>
    using ByName = std::unordered_map<std::string, Value, Hash, std::equal_to<>>;

    ByName<Reader> readers_;
    ByName<std::string> aliases_;
};

}  // namespace dayward
