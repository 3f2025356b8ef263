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
    if (const FatalErrorContext* context = innermost) {
        if (context->onFatal_ != nullptr) context->onFatal_(context->file_, text, context->argument_);
        line += ": " + context->file_;
    }
    line += '\n';
    std::fputs(line.c_str(), stderr);
    std::fflush(stderr);
    std::abort();
}

}  // namespace dayward
