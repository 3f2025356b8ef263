#include "platform/TimeZone.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>

#include "platform/Data.h"
#include "platform/Mutex.h"

namespace dayward {

namespace {

constexpr std::size_t kGreatestFile = 1 << 20;

namespace fs = std::filesystem;

std::string databaseDirectory() {
    const char* directory = std::getenv("TZDIR");
    return directory != nullptr && *directory == '/' ? directory : "/usr/share/zoneinfo";
}

/// Relative, of plain characters, and without "." and ".." on the way.
bool isSoundName(std::string_view name) {
    const auto isPlain = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '+' ||
               c == '-' || c == '/';
    };
    return !name.empty() && name.size() < 256 && name.front() != '/' && name.back() != '/' &&
           name.find("//") == std::string_view::npos && std::ranges::all_of(name, isPlain);
}

Result<Data> readZoneFile(const std::string& path) {
    std::error_code error;
    if (!fs::is_regular_file(path, error)) return failure("time zone", 0, {{"path", path}, {"reason", "no such zone"}});
    const auto size = fs::file_size(path, error);
    if (error || size > kGreatestFile) return failure("time zone", 0, {{"path", path}, {"reason", "too big"}});
    Data bytes(size);
    std::ifstream file(path, std::ios::binary);
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size));
    if (!file) return failure("time zone", 0, {{"path", path}, {"reason", "cannot be read"}});
    return bytes;
}

bool isZoneFile(const fs::path& path) {
    char magic[4] = {};
    std::ifstream(path, std::ios::binary).read(magic, sizeof magic);
    return std::string_view(magic, sizeof magic) == "TZif";
}

std::int64_t instantOf(Date date) { return wholeSeconds(date.secondsSinceReference()) + kReferenceSeconds; }

}  // namespace

namespace {

/// The zones that were asked for, by the path of their files.
template <class T>
class ZoneCache {
public:
    std::shared_ptr<const T> find(const std::string& path) {
        const Lock lock(mutex_);
        const auto found = zones_.find(path);
        return found == zones_.end() ? nullptr : found->second;
    }
    std::shared_ptr<const T> keep(const std::string& path, std::shared_ptr<const T> zone) {
        const Lock lock(mutex_);
        return zones_.try_emplace(path, std::move(zone)).first->second;
    }

private:
    Mutex mutex_;
    std::map<std::string, std::shared_ptr<const T>> zones_ DAYWARD_GUARDED_BY(mutex_);
};

/// The name in the database of a path such as /usr/share/zoneinfo/Europe/Berlin.
std::string nameOfPath(const std::string& path) {
    for (const std::string& prefix : {databaseDirectory() + "/", std::string("/zoneinfo/")}) {
        const auto found = path.find(prefix);
        if (found != std::string::npos) return path.substr(found + prefix.size());
    }
    return {};
}

std::string nameOfLocalTimeLink() {
    std::error_code error;
    const auto target = fs::read_symlink("/etc/localtime", error);
    return error ? std::string() : nameOfPath(target.string());
}

std::string nameOfTimeZoneFile() {
    std::ifstream file("/etc/timezone");
    std::string name;
    std::getline(file, name);
    return name.substr(0, name.find_last_not_of(" \t\r") + 1);
}

}  // namespace

Result<TimeZone> TimeZone::named(const std::string& name) {
    static ZoneCache<Rules> cache;
    if (name == "UTC") return utc();
    if (!isSoundName(name)) return failure("time zone", 0, {{"name", name}, {"reason", "no zone name"}});
    const std::string path = databaseDirectory() + "/" + name;
    if (auto known = cache.find(path)) return TimeZone(std::move(known));
    const Data bytes = TRY(readZoneFile(path));
    auto rules = ZoneRules::parse(bytes);
    if (!rules) {
        rules.error().userInfo.emplace("path", path);
        return std::unexpected(rules.error());
    }
    return TimeZone(cache.keep(path, std::make_shared<const Rules>(Rules{name, *std::move(rules)})));
}

TimeZone TimeZone::utc() {
    static const auto rules = std::make_shared<const Rules>(Rules{"UTC", ZoneRules::fixed(0)});
    return TimeZone(rules);
}

Result<TimeZone> TimeZone::ofFile(const std::string& path) {
    const Data bytes = TRY(readZoneFile(path));
    auto rules = TRY(ZoneRules::parse(bytes));
    return TimeZone(std::make_shared<const Rules>(Rules{path, std::move(rules)}));
}

TimeZone TimeZone::system() {
    if (const char* variable = std::getenv("TZ")) {
        std::string text = variable;
        if (text.starts_with(':')) text.erase(0, 1);
        if (text.empty()) return utc();
        if (auto zone = named(text.starts_with('/') ? nameOfPath(text) : text)) return *std::move(zone);
        if (text.starts_with('/')) {
            if (auto zone = ofFile(text)) return *std::move(zone);
        }
        if (auto rules = ZoneRules::ofPosixText(text)) {
            return TimeZone(std::make_shared<const Rules>(Rules{text, *std::move(rules)}));
        }
    }
    for (const std::string& name : {nameOfLocalTimeLink(), nameOfTimeZoneFile()}) {
        if (auto zone = named(name)) return *std::move(zone);
    }
    return ofFile("/etc/localtime").value_or(utc());
}

std::vector<std::string> TimeZone::knownNames() {
    std::vector<std::string> names;
    const fs::path root = databaseDirectory();
    std::error_code error;
    for (auto entry = fs::recursive_directory_iterator(root, error); !error && entry != fs::end(entry);
         entry.increment(error)) {
        const std::string name = entry->path().lexically_relative(root).string();
        std::error_code ignored;
        if (entry->is_directory(ignored)) {
            // "posix" repeats the database, "right" counts leap seconds.
            if (name == "posix" || name == "right") entry.disable_recursion_pending();
        } else if (name != "localtime" && name != "posixrules" && isSoundName(name) && isZoneFile(entry->path())) {
            names.push_back(name);
        }
    }
    std::ranges::sort(names);
    return names;
}

const std::string& TimeZone::name() const { return rules_->name; }

std::int64_t TimeZone::secondsFromUTC(Date instant) const { return rules_->rules.offsetAt(instantOf(instant)); }

bool TimeZone::isDaylightSaving(Date instant) const { return rules_->rules.at(instantOf(instant)).isDaylightSaving; }

Date TimeZone::instantOfLocal(double localSeconds) const {
    const std::int32_t offset = rules_->rules.offsetOfLocal(wholeSeconds(localSeconds) + kReferenceSeconds);
    return Date::sinceReference(localSeconds - offset);
}

double TimeZone::localOfInstant(Date instant) const {
    return instant.secondsSinceReference() + static_cast<double>(secondsFromUTC(instant));
}

std::optional<Date> TimeZone::nextTransitionAfter(Date instant) const {
    const auto next = rules_->rules.nextTransitionAfter(instantOf(instant));
    if (!next) return std::nullopt;
    return Date::sinceReference(static_cast<double>(*next - kReferenceSeconds));
}

}  // namespace dayward
