// Homes with events on the build's disk, and the same work done by plain system calls.
//
// Everything lies in one directory that goes when the program ends, not between two runs: a file system
// that is to reuse the inodes of a moment ago becomes slow, and whoever comes next would pay for it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Data.h"
#include "platform/Environment.h"
#include "platform/LocalNotifications.h"

namespace dayward::bench {

/// A path for a new home or directory; nothing is there yet.
std::string freshPath();
/// The environment of the real program over that home, with another schedule of notifications where one is given.
std::unique_ptr<Environment> linuxEnvironment(const std::string& home,
                                              std::shared_ptr<LocalNotifications> notifications = nullptr);

/// "general.t" of the typical event with that number.
Data typicalArchive(int number);
/// The documents directory of a home with so many typical events, its files read once. Made on first use.
const std::string& documentsOf(int count);
const std::string& homeOf(int count);

/// Opens and reads "general.t" of every package in the directory.
void readPackages(const std::string& documents, const std::function<void(const Data&)>& use);

/// One sync for each file, before it gets its name.
void saveEach(const std::string& directory, const std::vector<Data>& archives);
/// Everything beside, one sync of the file system, the names, one sync of the directory.
void saveWithOneSync(const std::string& directory, const std::vector<Data>& archives);

}  // namespace dayward::bench
