// The duration of an event: some common ones with a way into any other. A tap on one commits it and
// closes the screen. Main thread only.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "Classes/Interface/Screens/TableScreen.h"
#include "intervals/XDIDateInterval.h"

namespace dayward {

class PeriodViewController final : public TableScreen {
public:
    using Duration = std::optional<XDIDateInterval>;
    using Completion = std::function<void(const Duration&)>;

    PeriodViewController(Duration duration, Completion completionBlock);

    [[nodiscard]] const Duration& duration() const { return duration_; }

protected:
    std::vector<TableSection> makeSections() override;

private:
    void choose(const Duration& duration);
    void openCustom();

    Duration duration_;
    Completion completionBlock_;
    const std::vector<Duration> values_;
};

}  // namespace dayward
