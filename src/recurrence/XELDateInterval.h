// Calendar intervals under the class names of old archives; they are XDIDateIntervals in all else.
#pragma once

#include "intervals/XDIDateInterval.h"

namespace dayward {

class XELDateInterval : public XDIDateInterval {
public:
    static constexpr const char* kClassName = "XELDateInterval";
    using XDIDateInterval::XDIDateInterval;
    explicit XELDateInterval(const XDIDateInterval& interval) : XDIDateInterval(interval) {}

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override {
        return {kClassName, XDIDateInterval::kClassName};
    }
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);
};

class HHDateInterval final : public XELDateInterval {
public:
    static constexpr const char* kClassName = "HHDateInterval";
    using XELDateInterval::XELDateInterval;

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override {
        return {kClassName, XELDateInterval::kClassName, XDIDateInterval::kClassName};
    }
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);
};

}  // namespace dayward
