#include "Submodules/CorpLibrary2/Foundation/FoundationClasses.h"

#include "Submodules/CorpLibrary2/Foundation/CCCacheKeyStorage.h"
#include "Submodules/CorpLibrary2/Foundation/CCDObject.h"
#include "Submodules/CorpLibrary2/Foundation/CCEventHistory.h"
#include "Submodules/CorpLibrary2/Foundation/XXEventHistory.h"

namespace dayward {

void registerFoundationClasses(ArchiveClasses& classes) {
    classes.add(CCCacheKeyStorage::CacheValue::kArchiveClassName, CCCacheKeyStorage::CacheValue::read);
    classes.add(CCEventHistory::kArchiveClassName, CCEventHistory::read);
    classes.add(XXEventHistory::kArchiveClassName, XXEventHistory::read);
    classes.add(CCDObject::kArchiveClassName, CCDObject::read);
}

}  // namespace dayward
