#include "intervals/NumberStyle.h"

#include "platform/Environment.h"

namespace dayward {

namespace {

struct SharedNumberFormatters {
    explicit SharedNumberFormatters(Environment& environment)
        : whole(environment.locale(), 0, 0), twoDecimals(environment.locale(), 2, 2) {}

    NumberFormatter whole;
    NumberFormatter twoDecimals;
};

}  // namespace

const NumberFormatter& sharedNumberFormatter(NumberStyle style) {
    const auto& formatters = Environment::current().shared<SharedNumberFormatters>();
    return style == NumberStyle::twoDecimals ? formatters.twoDecimals : formatters.whole;
}

}  // namespace dayward
