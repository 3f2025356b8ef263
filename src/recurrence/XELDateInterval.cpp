#include "recurrence/XELDateInterval.h"

namespace dayward {

namespace {

template <class Interval>
std::shared_ptr<Archivable> readAs(KeyedUnarchiver& coder) {
    const auto interval = std::dynamic_pointer_cast<XDIDateInterval>(XDIDateInterval::read(coder));
    return interval ? std::make_shared<Interval>(*interval) : nullptr;
}

}  // namespace

std::shared_ptr<Archivable> XELDateInterval::read(KeyedUnarchiver& coder) { return readAs<XELDateInterval>(coder); }

std::shared_ptr<Archivable> HHDateInterval::read(KeyedUnarchiver& coder) { return readAs<HHDateInterval>(coder); }

}  // namespace dayward
