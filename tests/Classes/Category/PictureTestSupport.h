// What tests of pictures and categories stand on: their archive classes, the stored archives, and an
// environment with a few picture resources.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "Classes/Category/PictureClasses.h"
#include "platform/Color.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "support/TestEnvironment.h"
#include "support/TestPaths.h"
#include "sync/CCSyncItemVersion.h"

namespace dayward {

inline std::shared_ptr<ArchiveClasses> pictureClasses() {
    auto classes = std::make_shared<ArchiveClasses>();
    registerColorClass(*classes);
    registerSyncClasses(*classes);
    registerPictureClasses(*classes);
    return classes;
}

inline TestEnvironment::Options pictureOptions() {
    TestEnvironment::Options options;
    options.archiveClasses = pictureClasses();
    options.resources = testData() + "/resources";
    return options;
}

/// An archive made by tests/data/documents/make_documents.py.
inline Data storedArchive(const std::string& name) {
    std::ifstream file(testData() + "/documents/" + name + ".t", std::ios::binary);
    EXPECT_TRUE(file) << name;
    return Data(std::istreambuf_iterator<char>(file), {});
}

template <class Record>
std::shared_ptr<Record> readStored(const std::string& name) {
    const auto root = KeyedUnarchiver::unarchiveObjectWithData(storedArchive(name));
    return root ? root->as<Record>() : nullptr;
}

/// What comes back of a record that is archived; null where it is of another class.
template <class Record>
std::shared_ptr<Record> rewritten(const std::shared_ptr<Record>& record) {
    const auto root = KeyedUnarchiver::unarchiveObjectWithData(KeyedArchiver::archivedDataWithRootObject(record));
    return root ? root->template as<Record>() : nullptr;
}

inline std::shared_ptr<const Image> testImage(std::uint8_t shade = 200) {
    return std::make_shared<const Image>(2, 1, Data{shade, 0, 0, 255, 0, shade, 0, 255});
}

}  // namespace dayward
