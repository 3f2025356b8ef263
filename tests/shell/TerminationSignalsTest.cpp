#include "shell/TerminationSignals.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <csignal>

namespace dayward {
namespace {

TEST(TerminationSignals, AreToldInTheLoopAndOneThatComesTwiceAtOnceEndsNothing) {
    for (const int signal : {SIGTERM, SIGHUP}) {
        int told = 0;
        const TerminationSignals termination([&] { ++told; });
        std::raise(signal);
        std::raise(signal);
        EXPECT_EQ(told, 0) << "not from within the signal";
        QCoreApplication::processEvents();
        EXPECT_GE(told, 1) << signal;
    }
}

}  // namespace
}  // namespace dayward
