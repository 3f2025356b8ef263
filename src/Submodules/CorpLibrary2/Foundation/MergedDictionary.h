// A dictionary in memory that remembers which keys changed since it was last written, so that a
// write can be laid over what another process wrote meanwhile. Not locked: its owner guards it.
#pragma once

#include <map>
#include <string>

#include "platform/Object.h"

namespace dayward {

class MergedDictionary {
public:
    /// What happened since the last write: everything removed first, or not; then keys set, or
    /// removed where the value is null.
    struct Changes {
        bool replacesAll = false;
        Dictionary values;

        /// The changes made to a dictionary.
        [[nodiscard]] Dictionary appliedTo(Dictionary base) const;
    };

    MergedDictionary() = default;
    explicit MergedDictionary(Dictionary values) : values_(std::move(values)) {}

    [[nodiscard]] const Dictionary& values() const { return values_; }
    [[nodiscard]] Object valueForKey(const std::string& key) const;
    /// A null value removes the key. False where there was nothing to remove.
    bool setValue(Object value, const std::string& forKey);
    void removeAll() { setAll({}); }
    /// These values and no others.
    void setAll(Dictionary values);

    /// The changes, which are then forgotten.
    [[nodiscard]] Changes takeChanges();
    /// After a failed write: the changes are due again, under those made since.
    void restoreChanges(Changes changes);
    /// After a write: what was written becomes the content, under the changes made since.
    void adopt(Dictionary written);

private:
    Dictionary values_;
    Changes changes_;
};

}  // namespace dayward
