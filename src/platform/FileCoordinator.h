// Coordinated access to files: readers and writers of one path, in this process and in others that
// use the same lock directory, exclude each other. Any thread.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Result.h"

namespace dayward {

class FileSystem;

class FileCoordinator {
public:
    enum class ReadingOptions { none = 0, withoutChanges = 1 };
    enum class WritingOptions { none = 0, forDeleting = 1, forMoving = 2, forMerging = 4, forReplacing = 8 };

    /// Lock files lie in `lockDirectory`, a fixed number of them; it is created on first use.
    FileCoordinator(std::shared_ptr<FileSystem> files, std::string lockDirectory);

    using Accessor = std::function<Result<>(const std::string& path)>;
    using PairAccessor = std::function<Result<>(const std::string& readPath, const std::string& writePath)>;

    /// Runs the accessor while nobody writes the path. An error of the coordination itself, or else
    /// of the accessor, is the result. Coordinated accesses must not nest on one thread.
    Result<> coordinateReading(const std::string& path, ReadingOptions options, const Accessor& accessor);
    /// Runs the accessor while nobody else reads or writes the path.
    Result<> coordinateWriting(const std::string& path, WritingOptions options, const Accessor& accessor);
    /// The same for many paths at once.
    Result<> coordinateWriting(const std::vector<std::string>& paths, const std::function<Result<>()>& accessor);
    /// Both at once, without a deadlock between two such pairs the other way round.
    Result<> coordinateReadingAndWriting(const std::string& readPath, ReadingOptions readingOptions,
                                         const std::string& writePath, WritingOptions writingOptions,
                                         const PairAccessor& accessor);

private:
    std::shared_ptr<FileSystem> files_;
    std::string lockDirectory_;
};

}  // namespace dayward
