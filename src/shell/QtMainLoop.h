// Runs the blocks of the main queue in Qt's loop. Main thread only.
#pragma once

#include <QObject>
#include <atomic>
#include <memory>

namespace dayward {

class MainLoop;

class QtMainLoop final : public QObject {
    Q_OBJECT

public:
    /// The loop is not owned and outlives this object.
    explicit QtMainLoop(MainLoop& loop);
    ~QtMainLoop() override;

private:
    bool event(QEvent* event) override;

    MainLoop& loop_;
    const std::shared_ptr<std::atomic<bool>> isPosted_;
};

}  // namespace dayward
