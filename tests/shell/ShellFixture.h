// The shell over a home of its own, in Qt's loop, without a display.
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <filesystem>
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
    /// Queues and archive classes of the options are the shell's.
    explicit ShellFixture(TestEnvironment::Options options = {})
        : queues(std::make_shared<AsioQueues>()),
          environment(withShellsOwn(std::move(options))),
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

    [[nodiscard]] TestEnvironment::Options withShellsOwn(TestEnvironment::Options options) const {
        options.queues = queues;
        options.archiveClasses = allArchiveClasses();
        return options;
    }
    /// What the build has made: pictures, sounds and texts.
    static std::string builtResources() {
        const auto program = std::filesystem::read_symlink("/proc/self/exe");
        return (program.parent_path().parent_path() / "share" / "dayward").string();
    }

    const std::shared_ptr<AsioQueues> queues;
    TestEnvironment environment;
    const QtMainLoop loop;
};

}  // namespace dayward
