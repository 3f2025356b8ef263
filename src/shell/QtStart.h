// Qt's part of a program with a window. Main thread only.
#pragma once

#include <memory>

class QGuiApplication;

namespace dayward {

/// Makes Qt's application object; `argc` and `argv` live as long as it. Where there is no display that Qt can open,
/// the process ends with exit status 1 and one line on standard error that begins with the program's name, in
/// place of Qt's page of text and its crash.
std::unique_ptr<QGuiApplication> makeQtApplication(const char* program, int& argc, char** argv);

}  // namespace dayward
