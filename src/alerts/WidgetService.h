// Hands the widget its copy of the events.
#pragma once

namespace dayward {

class WidgetService {
public:
    virtual ~WidgetService() = default;
    /// Writes the copy of the present moment. Main thread.
    virtual void exportEvents() = 0;
};

/// There is no widget.
class NoWidget final : public WidgetService {
public:
    void exportEvents() override {}
};

}  // namespace dayward
