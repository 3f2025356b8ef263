// The end of the process for faults of the program and for values that cannot be survived.
#pragma once

#include <string>
#include <string_view>

namespace dayward {

/// Writes the text as one line to standard error and aborts. If a FatalErrorContext is open on this
/// thread, the line ends with ": " and the file that the context names, and the hooks run first, so
/// that the next start can leave that file out.
[[noreturn]] void fatalError(std::string_view text);

/// While it lives, a fatalError on this thread is blamed on `file`. Contexts nest; the innermost
/// names the file, and the hooks of all run, inner ones first. `onFatal` must be async-signal-tolerant
/// in spirit: it only records the file's name.
class FatalErrorContext {
public:
    using Hook = void (*)(const std::string& file, std::string_view text, void* argument);

    explicit FatalErrorContext(std::string file, Hook onFatal = nullptr, void* argument = nullptr);
    ~FatalErrorContext();
    FatalErrorContext(const FatalErrorContext&) = delete;
    FatalErrorContext& operator=(const FatalErrorContext&) = delete;

private:
    friend void fatalError(std::string_view text);

    std::string file_;
    Hook onFatal_;
    void* argument_;
    FatalErrorContext* outer_;
};

}  // namespace dayward
