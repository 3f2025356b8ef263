#include "sync/CCSyncItemVersion.h"

#include <cstdio>

#include "platform/Environment.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"

namespace dayward {

CCSyncItemVersion CCSyncItemVersion::next() { return CCSyncItemVersion(Environment::current().now()); }

std::string CCSyncItemVersion::description() const {
    char text[64];
    std::snprintf(text, sizeof text, "CCSyncItemVersion: %.6f", timeInterval_.seconds());
    return text;
}

void CCSyncItemVersion::encodeWithCoder(KeyedArchiver& coder) const {
    coder.encodeDouble(timeInterval_.seconds(), kTimeIntervalKey);
}

bool CCSyncItemVersion::isEqual(const Archivable& other) const {
    const auto* version = dynamic_cast<const CCSyncItemVersion*>(&other);
    return version != nullptr && *this == *version;
}

std::shared_ptr<Archivable> CCSyncItemVersion::read(KeyedUnarchiver& coder) {
    return std::make_shared<CCSyncItemVersion>(TimeInterval(coder.decodeDouble(kTimeIntervalKey).value_or(0)));
}

void registerSyncClasses(ArchiveClasses& classes) {
    classes.add(CCSyncItemVersion::kArchiveClassName, CCSyncItemVersion::read);
}

}  // namespace dayward
