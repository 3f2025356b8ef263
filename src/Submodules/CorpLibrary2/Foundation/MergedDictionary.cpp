#include "Submodules/CorpLibrary2/Foundation/MergedDictionary.h"

#include <utility>

namespace dayward {

Dictionary MergedDictionary::Changes::appliedTo(Dictionary base) const {
    if (replacesAll) base.clear();
    for (const auto& [key, value] : values) {
        if (value.isNull()) {
            base.erase(key);
        } else {
            base.insert_or_assign(key, value);
        }
    }
    return base;
}

Object MergedDictionary::valueForKey(const std::string& key) const {
    const auto found = values_.find(key);
    return found == values_.end() ? Object() : found->second;
}

bool MergedDictionary::setValue(Object value, const std::string& forKey) {
    if (value.isNull()) {
        if (values_.erase(forKey) == 0) return false;
    } else {
        values_.insert_or_assign(forKey, value);
    }
    changes_.values.insert_or_assign(forKey, std::move(value));
    return true;
}

void MergedDictionary::setAll(Dictionary values) {
    values_ = std::move(values);
    changes_ = {.replacesAll = true, .values = values_};
}

MergedDictionary::Changes MergedDictionary::takeChanges() { return std::exchange(changes_, {}); }

void MergedDictionary::restoreChanges(Changes changes) {
    if (changes_.replacesAll) return;
    // insert() leaves what is there: the later change of a key stands.
    changes_.values.insert(changes.values.begin(), changes.values.end());
    changes_.replacesAll = changes.replacesAll;
}

void MergedDictionary::adopt(Dictionary written) { values_ = changes_.appliedTo(std::move(written)); }

}  // namespace dayward
