#include "support/StoreHome.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <map>

#include "Classes/Event/HHGeneralEventDocumentData.h"
#include "platform/KeyedArchiver.h"
#include "platform/linux/LinuxEnvironment.h"
#include "support/TypicalEvent.h"

namespace dayward::bench {

namespace {

constexpr const char* kGeneralFile = "/general.t";

/// Removed at the end of the program.
class Scratch {
public:
    Scratch() : path_(DAYWARD_BENCH_DIRECTORY "/bench-XXXXXX") {
        if (mkdtemp(path_.data()) == nullptr) std::abort();
    }
    ~Scratch() { std::filesystem::remove_all(path_); }

    std::string next() { return path_ + "/" + std::to_string(++last_); }

private:
    std::string path_;
    int last_ = 0;
};

/// A descriptor that the program cannot do without.
class Descriptor {
public:
    Descriptor(const std::string& path, int flags) : number_(open(path.c_str(), flags | O_CLOEXEC, 0600)) {
        if (number_ < 0) std::abort();
    }
    ~Descriptor() { close(number_); }
    operator int() const { return number_; }  // NOLINT: it stands for the number

private:
    int number_;
};

void need(bool done) {
    if (!done) std::abort();
}

void writePackage(const std::string& path, const Data& archive, bool synced) {
    need(mkdir(path.c_str(), 0700) == 0);
    const Descriptor file(path + kGeneralFile, O_WRONLY | O_CREAT);
    need(write(file, archive.data(), archive.size()) == static_cast<ssize_t>(archive.size()));
    if (synced) need(fsync(file) == 0);
}

std::string packageName(std::size_t number) { return "/5D3C5C54-9F0E-4B9F-9F43-" + std::to_string(number) + ".evn"; }
std::string temporaryName(std::size_t number) { return "/.temporary-" + std::to_string(number); }

void nameIt(const std::string& directory, std::size_t number) {
    need(rename((directory + temporaryName(number)).c_str(), (directory + packageName(number)).c_str()) == 0);
}

}  // namespace

std::string freshPath() {
    static Scratch scratch;
    return scratch.next();
}

std::unique_ptr<Environment> linuxEnvironment(const std::string& home,
                                              std::shared_ptr<LocalNotifications> notifications) {
    LinuxOptions options;
    options.home = home;
    options.resources = DAYWARD_BENCH_RESOURCES;
    options.archiveClasses = allArchiveClasses();
    auto services = *makeLinuxServices(options);
    if (notifications) services.localNotifications = std::move(notifications);
    return std::make_unique<Environment>(std::move(services));
}

Data typicalArchive(int number) {
    plainEnvironment();
    return KeyedArchiver::archivedDataWithRootObject(typicalEvent(number).getStoreInfo());
}

const std::string& homeOf(int count) {
    static std::map<int, std::string> homes;
    std::string& home = homes[count];
    if (!home.empty()) return home;
    home = freshPath();
    const std::string documents = linuxEnvironment(home)->paths().documents;
    for (int number = 0; number < count; ++number)
        writePackage(documents + packageName(static_cast<std::size_t>(number)), typicalArchive(number), false);
    sync();
    return home;
}

const std::string& documentsOf(int count) {
    static std::map<int, std::string> directories;
    std::string& directory = directories[count];
    if (directory.empty()) directory = linuxEnvironment(homeOf(count))->paths().documents;
    return directory;
}

void readPackages(const std::string& documents, const std::function<void(const Data&)>& use) {
    DIR* const directory = opendir(documents.c_str());
    Data bytes(65536);
    while (const dirent* const entry = readdir(directory)) {
        if (entry->d_name[0] == '.') continue;
        const Descriptor file(documents + "/" + entry->d_name + kGeneralFile, O_RDONLY);
        bytes.resize(65536);
        const ssize_t length = read(file, bytes.data(), bytes.size());
        need(length > 0);
        bytes.resize(static_cast<std::size_t>(length));
        use(bytes);
    }
    closedir(directory);
}

void saveEach(const std::string& directory, const std::vector<Data>& archives) {
    for (std::size_t number = 0; number < archives.size(); ++number) {
        writePackage(directory + temporaryName(number), archives[number], true);
        nameIt(directory, number);
    }
}

void saveWithOneSync(const std::string& directory, const std::vector<Data>& archives) {
    const Descriptor handle(directory, O_RDONLY | O_DIRECTORY);
    for (std::size_t number = 0; number < archives.size(); ++number)
        writePackage(directory + temporaryName(number), archives[number], false);
    need(syncfs(handle) == 0);
    for (std::size_t number = 0; number < archives.size(); ++number) nameIt(directory, number);
    need(fsync(handle) == 0);
}

}  // namespace dayward::bench
