#include "platform/OpaqueRecord.h"

#include "platform/KeyedArchiver.h"

namespace dayward {

const PropertyList* fieldOf(const PropertyList& object, std::string_view key) {
    const auto* fields = std::get_if<PropertyList::Fields>(&object.value);
    if (!fields) return nullptr;
    for (const auto& [name, value] : *fields) {
        if (name == key) return &value;
    }
    return nullptr;
}

std::vector<std::string> classChainOf(const PropertyList& classRecord) {
    const PropertyList* classes = fieldOf(classRecord, "$classes");
    const auto* names = classes ? std::get_if<PropertyList::List>(&classes->value) : nullptr;
    if (!names) return {};
    std::vector<std::string> chain;
    for (const PropertyList& name : *names) {
        const auto* text = std::get_if<std::string>(&name.value);
        if (!text) return {};
        chain.push_back(*text);
    }
    const PropertyList* name = fieldOf(classRecord, "$classname");
    const auto* text = name ? std::get_if<std::string>(&name->value) : nullptr;
    return text && !chain.empty() && chain.front() == *text ? chain : std::vector<std::string>();
}

std::vector<std::string> OpaqueRecord::archiveClassNames() const {
    const auto object = table_->find(number_);
    const PropertyList* reference = object == table_->end() ? nullptr : fieldOf(object->second, "$class");
    const auto* uid = reference ? std::get_if<ArchiveUID>(&reference->value) : nullptr;
    const auto classRecord = uid ? table_->find(uid->number) : table_->end();
    if (classRecord == table_->end()) return {};
    std::vector<std::string> chain = classChainOf(classRecord->second);
    if (!chain.empty() && chain.back() == "NSObject") chain.pop_back();
    return chain;
}

bool OpaqueRecord::isEqual(const Archivable& other) const {
    const auto* opaque = dynamic_cast<const OpaqueRecord*>(&other);
    if (!opaque) return false;
    if (table_ == opaque->table_ && number_ == opaque->number_) return true;
    const auto archived = [](const OpaqueRecord& record) {
        return KeyedArchiver::archivedDataWithRootObject(std::make_shared<OpaqueRecord>(record));
    };
    return archived(*this) == archived(*opaque);
}

}  // namespace dayward
