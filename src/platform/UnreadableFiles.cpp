#include "platform/UnreadableFiles.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <sstream>

#include "platform/Log.h"

namespace dayward {

namespace {

/// One line of a record: a line break would end it.
std::string oneLine(std::string_view text) {
    std::string line(text);
    std::ranges::replace(line, '\n', ' ');
    return line;
}

/// FNV-1a, 64 bits: a file's name that is the same in every process.
std::string digestName(std::string_view text) {
    std::uint64_t digest = 0xcbf29ce484222325U;
    for (const unsigned char byte : text) digest = (digest ^ byte) * 0x100000001b3U;
    char name[24];
    std::snprintf(name, sizeof name, "%016llx", static_cast<unsigned long long>(digest));
    return name;
}

}  // namespace

std::string unreadableCopyPath(const std::string& path, int number) {
    return path + (number == 1 ? "" : "." + std::to_string(number)) + ".unreadable";
}

UnreadableFiles::UnreadableFiles(FileSystem& files, std::string directory)
    : files_(files), directory_(std::move(directory)) {
    reload();
}

void UnreadableFiles::reload() {
    std::map<std::string, Entry> entries;
    const auto names = files_.listDirectory(directory_);
    if (!names && names.error().code != ENOENT)
        logError("the unreadable files are not known: " + names.error().description());
    for (const std::string& name : names.value_or(std::vector<std::string>())) {
        const auto content = files_.readFile(joinPath(directory_, name));
        if (!content || isTemporaryName(name)) continue;
        std::istringstream lines(textOf(*content));
        std::string path;
        Entry entry;
        if (std::getline(lines, path) && std::getline(lines, entry.stamp) && std::getline(lines, entry.reason))
            entries[path] = std::move(entry);
    }
    const Lock lock(mutex_);
    entries_ = std::move(entries);
}

std::string UnreadableFiles::entryPath(const std::string& path) const { return joinPath(directory_, digestName(path)); }

bool UnreadableFiles::isEmpty() const {
    const Lock lock(mutex_);
    return entries_.empty();
}

std::optional<std::string> UnreadableFiles::reasonToLeaveOut(const std::string& path, std::string_view stamp) const {
    const Lock lock(mutex_);
    const auto found = entries_.find(oneLine(path));
    if (found == entries_.end() || found->second.stamp != stamp) return {};
    return found->second.reason;
}

void UnreadableFiles::add(const std::string& path, std::string_view stamp, std::string_view reason) {
    Entry entry{oneLine(stamp), oneLine(reason)};
    const Data content = dataOf(oneLine(path) + '\n' + entry.stamp + '\n' + entry.reason + '\n');
    auto written = files_.createDirectories(directory_);
    if (written) written = writeFileAtomically(files_, entryPath(path), content);
    if (!written) logError("cannot record an unreadable file: " + written.error().description());
    const Lock lock(mutex_);
    entries_[oneLine(path)] = std::move(entry);
}

void UnreadableFiles::forget(const std::string& path) {
    {
        const Lock lock(mutex_);
        if (entries_.empty() || entries_.erase(oneLine(path)) == 0) return;
    }
    const auto removed = files_.removeFile(entryPath(path));
    if (!removed) logError("cannot drop the record of a file: " + removed.error().description());
}

UnreadableFiles::Reading::Reading(UnreadableFiles& record, std::string path, Stamp stamp)
    : record_(record), path_(std::move(path)), stamp_(std::move(stamp)), context_(path_, onFatal, this) {}

void UnreadableFiles::Reading::onFatal(const std::string&, std::string_view text, void* reading) {
    const auto& self = *static_cast<Reading*>(reading);
    self.record_.add(self.path_, self.stamp_(), text);
}

}  // namespace dayward
