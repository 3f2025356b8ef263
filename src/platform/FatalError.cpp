#include "platform/FatalError.h"

#include <cstdio>
#include <cstdlib>

namespace dayward {

namespace {
thread_local FatalErrorContext* innermost = nullptr;
}

FatalErrorContext::FatalErrorContext(std::string file, Hook onFatal, void* argument)
    : file_(std::move(file)), onFatal_(onFatal), argument_(argument), outer_(innermost) {
    innermost = this;
}

FatalErrorContext::~FatalErrorContext() { innermost = outer_; }

void fatalError(std::string_view text) {
    std::string line(text);
    const FatalErrorContext* const blamed = innermost;
    innermost = nullptr;
    for (const FatalErrorContext* context = blamed; context != nullptr; context = context->outer_) {
        if (context->onFatal_ != nullptr) context->onFatal_(blamed->file_, text, context->argument_);
    }
    if (blamed != nullptr) line += ": " + blamed->file_;
    line += '\n';
    std::fputs(line.c_str(), stderr);
    std::fflush(stderr);
    std::abort();
}

}  // namespace dayward
