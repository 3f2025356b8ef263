// The shell over a home of its own, in Qt's loop, without a display.
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <functional>
#include <memory>

#include "Classes/App/ArchiveRegistration.h"
#include "Classes/Interface/Events/HHSplitViewController.h"
#include "platform/linux/AsioQueues.h"
#include "shell/QtMainLoop.h"
#include "shell/QtWindow.h"
#include "support/TestEnvironment.h"

namespace dayward {

class ShellFixture : public ::testing::Test {
protected:
    ShellFixture()
        : queues(std::make_shared<AsioQueues>()),
          environment({.queues = queues, .archiveClasses = allArchiveClasses()}),
          loop(queues->mainLoop()) {}

    /// Runs Qt's loop until it is so; false where it does not come about.
    static bool until(const std::function<bool()>& isSo) {
        constexpr qint64 kLongest = 20000;
        QElapsedTimer clock;
        for (clock.start(); !isSo(); QCoreApplication::processEvents(QEventLoop::AllEvents, 5)) {
            if (clock.elapsed() > kLongest) return false;
        }
        return true;
    }

    const std::shared_ptr<AsioQueues> queues;
    TestEnvironment environment;
    const QtMainLoop loop;
};

}  // namespace dayward
