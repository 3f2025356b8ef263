// The program `dayward-app`: builds the real environment and runs the application in Qt's loop.
#pragma once

namespace dayward {

/// Exit status 0 done, 1 could not start (one line on standard error), 2 wrong usage.
int runApplication(int argc, char** argv);

}  // namespace dayward
