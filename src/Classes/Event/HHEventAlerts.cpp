#include "Classes/Event/HHEventAlerts.h"

#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"

namespace dayward {
namespace {

std::optional<std::vector<XDIDateInterval>> listOf(const Object& object) {
    const auto* array = object.array();
    if (!array) return std::nullopt;
    std::vector<XDIDateInterval> list;
    list.reserve(array->size());
    for (const auto& item : *array) {
        if (const auto interval = item.as<XDIDateInterval>()) list.push_back(*interval);
    }
    return list;
}

}  // namespace

void HHEventAlerts::encodeWithCoder(KeyedArchiver& coder) const {
    coder.encodeVersion(kVersion, kArchiveClass);
    if (list) {
        coder.encodeRecords(*list, kListKey);
    } else {
        coder.encodeObject(nullptr, kListKey);
    }
    coder.encodeString(soundName, kSoundNameKey);
}

bool HHEventAlerts::isEqual(const Archivable& other) const {
    const auto* alerts = dynamic_cast<const HHEventAlerts*>(&other);
    return alerts && *this == *alerts;
}

std::shared_ptr<Archivable> HHEventAlerts::read(KeyedUnarchiver& coder) {
    auto alerts = std::make_shared<HHEventAlerts>();
    alerts->list = listOf(coder.decodeObject(kListKey));
    alerts->soundName = coder.decodeString(kSoundNameKey);
    return alerts;
}

}  // namespace dayward
