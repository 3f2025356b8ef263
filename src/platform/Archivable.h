// Records that a keyed archive can hold, and the table of their classes.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
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
    /// Objects stored under `oldName` are read as `className`.
    void addAlias(std::string oldName, std::string className);
    /// The reader of a name, aliases followed; null for an unknown name.
    [[nodiscard]] const Reader* reader(const std::string& className) const;

private:
    std::map<std::string, Reader, std::less<>> readers_;
    std::map<std::string, std::string, std::less<>> aliases_;
};

}  // namespace dayward
