// What tests of events and documents stand on.
#pragma once

#include <memory>
#include <string>

#include "Classes/Category/PictureTestSupport.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Other/Date/HHEventDateFormat.h"
#include "intervals/IntervalClasses.h"
#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "recurrence/RecurrenceClasses.h"

namespace dayward {

inline TestEnvironment::Options eventOptions() {
    auto options = pictureOptions();
    auto classes = pictureClasses();
    registerIntervalClasses(*classes);
    registerRecurrenceClasses(*classes);
    registerDateFormatClasses(*classes);
    registerEventClasses(*classes);
    options.archiveClasses = classes;
    return options;
}

/// A directory with these files, as another program would have left it.
inline std::string writePackage(const std::string& path, const std::vector<PackageFile>& content) {
    auto& files = Environment::current().files();
    EXPECT_TRUE(files.createDirectories(path));
    for (const auto& file : content) EXPECT_TRUE(writeFileAtomically(files, joinPath(path, file.name), file.bytes));
    return path;
}

inline Data fileOf(const std::string& package, const std::string& name) {
    return Environment::current().files().readFile(joinPath(package, name)).value_or(Data());
}

}  // namespace dayward
