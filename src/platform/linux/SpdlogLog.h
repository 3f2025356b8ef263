// The program's log file: lines with time and level, at most three files of a megabyte each. The file
// is opened with the first line; errors that it does not take go to standard error instead, each once where there is no
// file at all. Any thread.
#pragma once

#include <memory>
#include <string>

#include "platform/Log.h"

namespace dayward {

class SpdlogLog final : public Log {
public:
    struct Options {
        std::string file;
        bool errorsToStandardError = false;  ///< there too, the bare line
        bool debug = false;
    };

    explicit SpdlogLog(Options options);
    ~SpdlogLog() override;

    void error(std::string_view line) override;
    void debug(std::string_view line) override;
    [[nodiscard]] bool wantsDebug() const override;

private:
    struct File;
    Options options_;
    std::unique_ptr<File> file_;
};

}  // namespace dayward
