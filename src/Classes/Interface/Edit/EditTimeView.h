// The bottom panel in which one time of day is picked. Main thread only.
#pragma once

#include <cstdint>
#include <functional>

#include "Classes/Interface/Screens/TableScreen.h"

namespace dayward {

class EditTimeView final : public TableScreen {
public:
    /// `done` gets minutes after midnight. `remove` is empty for a time that is not in the list yet. The
    /// panel is closed before either is called.
    EditTimeView(std::int64_t minutes, std::function<void(std::int64_t)> done, std::function<void()> remove);

protected:
    std::vector<TableSection> makeSections() override;

private:
    void close(const std::function<void()>& andThen);

    std::int64_t minutes_;
    std::function<void(std::int64_t)> done_;
};

}  // namespace dayward
