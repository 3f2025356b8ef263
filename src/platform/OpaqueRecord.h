// An archived object of a class that this program does not know, kept so that it can be written back.
// Private to the archives. Immutable after the archive is read; any thread.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/Archivable.h"
#include "platform/PropertyList.h"

namespace dayward {

class OpaqueRecord final : public Archivable {
public:
    /// The objects that the opaque records of one archive reach, by their numbers there. They refer to
    /// each other by number only, so a circle among them keeps nothing alive.
    using Table = std::unordered_map<std::uint64_t, PropertyList>;

    OpaqueRecord(std::shared_ptr<const Table> table, std::uint64_t number)
        : table_(std::move(table)), number_(number) {}

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override;
    /// Writes nothing: the archiver copies the record with all that it reaches.
    void encodeWithCoder(KeyedArchiver&) const override {}
    /// Equal when both write the same archive.
    [[nodiscard]] bool isEqual(const Archivable& other) const override;

    [[nodiscard]] const std::shared_ptr<const Table>& table() const { return table_; }
    [[nodiscard]] std::uint64_t number() const { return number_; }

private:
    std::shared_ptr<const Table> table_;
    std::uint64_t number_;
};

/// The value under a key of an archived object, null where there is none.
const PropertyList* fieldOf(const PropertyList& object, std::string_view key);
/// "$classes" of a class record, nearest first, with "NSObject"; empty where it is no class record, or
/// one whose "$classname" says otherwise.
std::vector<std::string> classChainOf(const PropertyList& classRecord);

}  // namespace dayward
