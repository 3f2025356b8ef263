// An environment that knows this library's archive classes, and files to put in it.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "Submodules/CorpLibrary2/Foundation/FoundationClasses.h"
#include "platform/FileSystem.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/linux/LinuxFileSystem.h"
#include "support/FaultFileSystem.h"
#include "support/TestEnvironment.h"
#include "support/TestPaths.h"

namespace dayward {

inline TestEnvironment::Options withFoundationClasses(std::shared_ptr<FileSystem> files = nullptr) {
    auto classes = std::make_shared<ArchiveClasses>();
    registerFoundationClasses(*classes);
    TestEnvironment::Options options;
    options.archiveClasses = std::move(classes);
    options.files = std::move(files);
    return options;
}

inline Data storedArchive(const std::string& name) {
    const LinuxFileSystem files;
    auto bytes = files.readFile(joinPath(testData(), "foundation/" + name));
    return bytes ? *bytes : Data();
}

/// Runs over files in memory, whose operations can be counted and made to fail.
class FoundationTest : public testing::Test {
protected:
    void store(const std::string& filePath, const Data& bytes) const { files->store(filePath, bytes); }

    /// The root object of a file as another process would read it; null where it reads nothing.
    [[nodiscard]] Object onDisk(const std::string& filePath) const {
        const auto bytes = files->readFile(filePath);
        if (!bytes) return nullptr;
        return KeyedUnarchiver::unarchiveObjectWithData(*bytes).value_or(nullptr);
    }

    /// Files of that name written by a rename so far.
    [[nodiscard]] std::size_t writeCount() const {
        std::size_t count = 0;
        for (const auto& operation : files->operations()) count += operation == "rename" ? 1 : 0;
        return count;
    }

    std::shared_ptr<FaultFileSystem> files = std::make_shared<FaultFileSystem>();
    TestEnvironment environment{withFoundationClasses(files)};
    const std::string path = joinPath(environment->paths().applicationSupport, "storage");
};

}  // namespace dayward
