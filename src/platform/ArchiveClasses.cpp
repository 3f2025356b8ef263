#include "platform/Archivable.h"

namespace dayward {

void ArchiveClasses::add(std::string className, Reader reader) {
    readers_.insert_or_assign(std::move(className), std::move(reader));
}

void ArchiveClasses::addAlias(std::string oldName, std::string className) {
    aliases_.insert_or_assign(std::move(oldName), std::move(className));
}

const ArchiveClasses::Reader* ArchiveClasses::reader(std::string_view className) const {
    auto found = readers_.find(className);
    if (found == readers_.end()) {
        const auto alias = aliases_.find(className);
        if (alias != aliases_.end()) found = readers_.find(alias->second);
    }
    return found == readers_.end() ? nullptr : &found->second;
}

}  // namespace dayward
