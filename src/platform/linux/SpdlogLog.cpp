#include "platform/linux/SpdlogLog.h"

#include <spdlog/logger.h>
#include <spdlog/sinks/rotating_file_sink.h>

#include <cstdio>
#include <exception>
#include <mutex>
#include <set>

#include "platform/Mutex.h"

namespace dayward {

namespace {

constexpr std::size_t kLongestFile = 1 << 20;
constexpr std::size_t kOlderFiles = 2;

/// Why the log did not take the line that this thread writes; empty where it did.
thread_local std::string refusal;

void toStandardError(std::string_view line) {
    std::fprintf(stderr, "%.*s\n", static_cast<int>(line.size()), line.data());
}

}  // namespace

struct SpdlogLog::File {
    std::once_flag opened;
    std::unique_ptr<spdlog::logger> logger;
    std::string problem;  ///< why there is none
    std::once_flag problemWasTold;
    Mutex toldMutex;
    std::set<std::string> told DAYWARD_GUARDED_BY(toldMutex);

    void open(const std::string& path) {
        try {
            auto sink = std::make_shared<spdlog::sinks::rotating_file_sink_mt>(path, kLongestFile, kOlderFiles);
            logger = std::make_unique<spdlog::logger>("dayward", std::move(sink));
            logger->set_pattern("%Y-%m-%d %H:%M:%S.%e %P %l %v");
            logger->set_level(spdlog::level::debug);
            logger->flush_on(spdlog::level::err);
            // A full disk must not make a line on standard error of every line of the log: only errors are told.
            logger->set_error_handler([](const std::string& why) { refusal = why; });
        } catch (const std::exception& caught) {
            problem = caught.what();
        }
    }

    /// In place of the log; that it cannot be opened is told with the first error. On a home that can only be read the
    /// same errors come again and again: each is told once.
    void tell(std::string_view line) {
        if (!isNew(line)) return;
        std::string whole(line);
        std::call_once(problemWasTold, [&] { whole += "; the log cannot be opened: " + problem; });
        toStandardError(whole);
    }

    bool isNew(std::string_view line) {
        constexpr std::size_t kMostKept = 1000;
        const Lock lock(toldMutex);
        return told.size() >= kMostKept || told.emplace(line).second;
    }

    spdlog::logger* get(const std::string& path) {
        std::call_once(opened, [&] { open(path); });
        return logger.get();
    }
};

SpdlogLog::SpdlogLog(Options options) : options_(std::move(options)), file_(std::make_unique<File>()) {}

SpdlogLog::~SpdlogLog() = default;

void SpdlogLog::error(std::string_view line) {
    spdlog::logger* const logger = file_->get(options_.file);
    if (logger == nullptr) return file_->tell(line);
    refusal.clear();
    logger->error(spdlog::string_view_t(line.data(), line.size()));
    if (!refusal.empty()) return toStandardError(std::string(line) + "; the log cannot be written: " + refusal);
    if (options_.errorsToStandardError) toStandardError(line);
}

void SpdlogLog::debug(std::string_view line) {
    if (!wantsDebug()) return;
    if (auto* const logger = file_->get(options_.file)) logger->debug(spdlog::string_view_t(line.data(), line.size()));
}

bool SpdlogLog::wantsDebug() const { return options_.debug; }

}  // namespace dayward
