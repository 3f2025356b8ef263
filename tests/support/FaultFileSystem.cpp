#include "support/FaultFileSystem.h"

#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <ranges>
#include <set>
#include <utility>

namespace dayward {

namespace {

std::unexpected<Error> fileFailure(int code, const char* operation, const std::string& path) {
    return failure("file", code, {{"path", path}, {"operation", operation}, {"reason", std::strerror(code)}});
}

std::vector<std::string> componentsOf(const std::string& path) {
    std::vector<std::string> components;
    for (std::size_t at = 0; at < path.size();) {
        const auto end = std::min(path.find('/', at), path.size());
        if (end > at) components.push_back(path.substr(at, end - at));
        at = end + 1;
    }
    return components;
}

/// The name that a temporary of this process would have if one that is gone had made it: beyond the highest
/// process id of Linux.
std::string orphanedName(std::string name) {
    const std::string own = "-" + std::to_string(getpid()) + "-";
    const auto at = isTemporaryName(name) ? name.rfind(own) : std::string::npos;
    if (at != std::string::npos) name.replace(at, own.size(), "-4194305-");
    return name;
}

}  // namespace

struct FaultFileSystem::Node {
    /// In a change, null stands for a name that goes.
    using Entries = std::map<std::string, NodePointer>;

    FileStatus::Kind kind = FileStatus::Kind::file;
    std::uint64_t inode = 0;
    Date modified;
    Data content;
    Data durableContent;
    Entries entries;
    Entries durableEntries;
    std::vector<Entries> changes;  ///< of the entries since the last sync, each of them atomic
    std::map<std::string, Data> attributes;

    [[nodiscard]] bool isDirectory() const { return kind == FileStatus::Kind::directory; }

    void change(Entries change) {
        apply(change, entries);
        changes.push_back(std::move(change));
    }

    static void apply(const Entries& change, Entries& entries) {
        for (const auto& [name, node] : change) {
            entries.erase(name);
            if (node) entries.emplace(name, node);
        }
    }

    /// Changes of other names may overtake each other; one that is kept brings the earlier ones of its names along.
    void loseChanges(CrashLoss loss, std::mt19937& random) {
        constexpr std::size_t kAll = 4;
        std::size_t kept = loss == CrashLoss::allUnsynced || loss == CrashLoss::unsyncedEntries ? 0 : kAll;
        if (loss == CrashLoss::byChance) kept = random() % (kAll + 1);
        std::vector<const Entries*> keptChanges;
        std::set<std::string> names;
        for (const Entries& change : std::views::reverse(changes)) {
            const bool isNeeded = std::ranges::any_of(change, [&](const auto& e) { return names.contains(e.first); });
            if (!isNeeded && random() % kAll >= kept) continue;
            keptChanges.push_back(&change);
            for (const auto& [name, node] : change) names.insert(name);
        }
        entries = durableEntries;
        for (const Entries* change : std::views::reverse(keptChanges)) apply(*change, entries);
        changes.clear();
    }

    void lose(CrashLoss loss, std::mt19937& random) {
        std::size_t kept = loss == CrashLoss::allUnsynced || loss == CrashLoss::unsyncedContents ? 0 : 2;
        if (loss == CrashLoss::byChance) kept = random() % 3;
        if (kept == 0) content = durableContent;
        if (kept == 1 && content != durableContent) content.resize(content.size() / 2);
        durableContent = content;
        loseChanges(loss, random);
        durableEntries.clear();
        for (const auto& [name, node] : entries) {
            node->lose(loss, random);
            durableEntries.emplace(orphanedName(name), node);
        }
        entries = durableEntries;
    }

    void syncEntries() {
        durableEntries = entries;
        changes.clear();
    }

    void becomeDurable() {
        durableContent = content;
        syncEntries();
        for (const auto& [name, node] : entries) node->becomeDurable();
    }

    void collect(const std::string& prefix, std::map<std::string, Data>& files) const {
        for (const auto& [name, node] : entries) {
            if (node->isDirectory()) {
                node->collect(prefix + name + "/", files);
            } else {
                files[prefix + name] = node->content;
            }
        }
    }
};

/// A name in an existing directory, and what stands there, if anything.
struct FaultFileSystem::Place {
    NodePointer directory;
    std::string name;
    NodePointer node;
};

/// Numbers count all operations from the first.
struct FaultFileSystem::Faults {
    std::vector<std::string> operations;
    std::map<std::size_t, int> failing;
    std::optional<std::size_t> fullFrom;
    std::optional<std::size_t> deadFrom;

    [[nodiscard]] bool reached(const std::optional<std::size_t>& number) const {
        return number && operations.size() >= *number;
    }
};

class FaultFileSystem::Handle final : public FileHandle {
public:
    Handle(FaultFileSystem& files, NodePointer node, std::uint64_t life, std::string path)
        : files_(files), node_(std::move(node)), life_(life), path_(std::move(path)) {}

    Result<> write(std::span<const std::uint8_t> bytes) override { return files_.writeTo(*node_, life_, path_, bytes); }
    Result<> sync() override { return files_.handleStep(*node_, life_, "sync", path_); }
    Result<> close() override { return files_.handleStep(*node_, life_, "close", path_); }

private:
    FaultFileSystem& files_;
    NodePointer node_;
    std::uint64_t life_;
    std::string path_;
};

class FaultFileSystem::WholeSync final : public DeviceSync {
public:
    WholeSync(FaultFileSystem& files, std::uint64_t life, std::string path)
        : files_(files), life_(life), path_(std::move(path)) {}

    Result<> sync() override { return files_.syncAll(life_, path_); }

private:
    FaultFileSystem& files_;
    std::uint64_t life_;
    std::string path_;
};

class FaultFileSystem::HeldLock final : public FileLock {
public:
    HeldLock(FaultFileSystem& files, std::string path, bool exclusive)
        : files_(files), path_(std::move(path)), exclusive_(exclusive) {}
    ~HeldLock() override { files_.unlock(path_, exclusive_); }

private:
    FaultFileSystem& files_;
    std::string path_;
    bool exclusive_;
};

FaultFileSystem::FaultFileSystem() : faults_(std::make_unique<Faults>()) {
    const Lock lock(mutex_);
    root_ = makeNode(FileStatus::Kind::directory);
}

FaultFileSystem::~FaultFileSystem() = default;

std::size_t FaultFileSystem::operationCount() const {
    const Lock lock(mutex_);
    return faults_->operations.size();
}

std::vector<std::string> FaultFileSystem::operations() const {
    const Lock lock(mutex_);
    return faults_->operations;
}

void FaultFileSystem::failOperation(std::size_t number, int code) {
    const Lock lock(mutex_);
    faults_->failing[faults_->operations.size() + number] = code;
}

void FaultFileSystem::fillDiskAt(std::size_t number) {
    const Lock lock(mutex_);
    faults_->fullFrom = faults_->operations.size() + number;
}

void FaultFileSystem::crashAt(std::size_t number) {
    const Lock lock(mutex_);
    faults_->deadFrom = faults_->operations.size() + number;
}

void FaultFileSystem::restart(CrashLoss loss, std::uint32_t seed) {
    heal();
    const Lock lock(mutex_);
    std::mt19937 random(seed);
    root_->lose(loss, random);
    ++life_;
}

void FaultFileSystem::forbidExchange() {
    const Lock lock(mutex_);
    hasExchange_ = false;
}

void FaultFileSystem::forbidDeviceSync() {
    const Lock lock(mutex_);
    hasDeviceSync_ = false;
}

void FaultFileSystem::heal() {
    const Lock lock(mutex_);
    faults_->failing.clear();
    faults_->fullFrom.reset();
    faults_->deadFrom.reset();
}

void FaultFileSystem::store(const std::string& path, const Data& bytes) {
    const Lock lock(mutex_);
    NodePointer directory = root_;
    auto components = componentsOf(path);
    const std::string name = components.back();
    components.pop_back();
    for (const std::string& component : components) {
        NodePointer next = directory->entries[component];
        if (!next) next = makeNode(FileStatus::Kind::directory);
        putDurably(*directory, component, next);
        directory = next;
    }
    NodePointer file = makeNode(FileStatus::Kind::file);
    file->content = file->durableContent = bytes;
    putDurably(*directory, name, file);
}

void FaultFileSystem::putDurably(Node& directory, const std::string& name, const NodePointer& node) {
    directory.entries[name] = directory.durableEntries[name] = node;
}

std::map<std::string, Data> FaultFileSystem::tree(const std::string& directory) const {
    const Lock lock(mutex_);
    std::map<std::string, Data> files;
    if (const NodePointer node = find(directory)) node->collect("", files);
    return files;
}

std::optional<Data> FaultFileSystem::extendedAttribute(const std::string& path, const std::string& name) const {
    const Lock lock(mutex_);
    const NodePointer node = find(path);
    if (!node || !node->attributes.contains(name)) return std::nullopt;
    return node->attributes.at(name);
}

Result<> FaultFileSystem::begin(const char* operation, const std::string& path, Need need) const {
    faults_->operations.emplace_back(operation);
    if (faults_->reached(faults_->deadFrom)) return fileFailure(EIO, operation, path);
    const auto failing = faults_->failing.find(faults_->operations.size());
    if (failing != faults_->failing.end()) return fileFailure(failing->second, operation, path);
    if (need == Need::space && faults_->reached(faults_->fullFrom)) return fileFailure(ENOSPC, operation, path);
    return {};
}

Result<> FaultFileSystem::writeTo(Node& node, std::uint64_t life, const std::string& path,
                                  std::span<const std::uint8_t> bytes) {
    const Lock lock(mutex_);
    if (life != life_) return fileFailure(EIO, "write", path);
    const auto begun = begin("write", path, Need::space);
    const auto written = begun ? bytes : bytes.first(bytes.size() / 2);
    node.content.insert(node.content.end(), written.begin(), written.end());
    return begun;
}

Result<> FaultFileSystem::handleStep(Node& node, std::uint64_t life, const char* operation, const std::string& path) {
    const Lock lock(mutex_);
    if (life != life_) return fileFailure(EIO, operation, path);
    TRY_VOID(begin(operation, path));
    if (std::string_view(operation) == "sync") node.durableContent = node.content;
    return {};
}

FaultFileSystem::NodePointer FaultFileSystem::find(const std::string& path) const {
    NodePointer node = root_;
    for (const std::string& component : componentsOf(path)) {
        const auto next = node->entries.find(component);
        if (next == node->entries.end()) return nullptr;
        node = next->second;
    }
    return node;
}

Result<FaultFileSystem::Place> FaultFileSystem::place(const char* operation, const std::string& path) const {
    const NodePointer directory = find(parentPath(path));
    if (!directory) return fileFailure(ENOENT, operation, path);
    if (!directory->isDirectory()) return fileFailure(ENOTDIR, operation, path);
    const std::string name = lastPathComponent(path);
    const auto found = directory->entries.find(name);
    return Place{directory, name, found == directory->entries.end() ? nullptr : found->second};
}

FaultFileSystem::NodePointer FaultFileSystem::makeNode(FileStatus::Kind kind) {
    auto node = std::make_shared<Node>();
    node->kind = kind;
    node->inode = ++lastInode_;
    node->modified = Date::sinceReference(static_cast<double>(lastInode_));
    return node;
}

Result<std::optional<FileStatus>> FaultFileSystem::status(const std::string& path) const {
    const Lock lock(mutex_);
    TRY_VOID(begin("status", path));
    const NodePointer node = find(path);
    if (!node) return std::nullopt;
    return FileStatus{node->kind, node->content.size(), node->modified, node->inode};
}

Result<Data> FaultFileSystem::readFile(const std::string& path) const {
    const Lock lock(mutex_);
    TRY_VOID(begin("read", path));
    const NodePointer node = find(path);
    if (!node) return fileFailure(ENOENT, "read", path);
    if (node->isDirectory()) return fileFailure(EISDIR, "read", path);
    return node->content;
}

Result<std::vector<std::string>> FaultFileSystem::listDirectory(const std::string& path) const {
    const Lock lock(mutex_);
    TRY_VOID(begin("list", path));
    const NodePointer node = find(path);
    if (!node) return fileFailure(ENOENT, "list", path);
    if (!node->isDirectory()) return fileFailure(ENOTDIR, "list", path);
    std::vector<std::string> names;
    for (const auto& [name, entry] : node->entries) names.push_back(name);
    return names;
}

Result<> FaultFileSystem::createDirectory(const std::string& path) {
    const Lock lock(mutex_);
    TRY_VOID(begin("create directory", path, Need::space));
    const Place at = TRY(place("create directory", path));
    if (at.node && !at.node->isDirectory()) return fileFailure(EEXIST, "create directory", path);
    if (!at.node) at.directory->change({{at.name, makeNode(FileStatus::Kind::directory)}});
    return {};
}

Result<std::unique_ptr<FileHandle>> FaultFileSystem::openForWriting(const std::string& path) {
    const Lock lock(mutex_);
    TRY_VOID(begin("open", path, Need::space));
    Place at = TRY(place("open", path));
    if (at.node && at.node->isDirectory()) return fileFailure(EISDIR, "open", path);
    if (!at.node) {
        at.node = makeNode(FileStatus::Kind::file);
        at.directory->change({{at.name, at.node}});
    }
    at.node->content.clear();
    at.node->modified = Date::sinceReference(static_cast<double>(++lastInode_));
    return std::make_unique<Handle>(*this, at.node, life_, path);
}

void FaultFileSystem::change(const Place& one, const NodePointer& newOne, const Place& other,
                             const NodePointer& newOther) {
    if (one.directory == other.directory) return one.directory->change({{one.name, newOne}, {other.name, newOther}});
    one.directory->change({{one.name, newOne}});
    other.directory->change({{other.name, newOther}});
}

Result<> FaultFileSystem::rename(const std::string& from, const std::string& to) {
    const Lock lock(mutex_);
    TRY_VOID(begin("rename", to));
    const Place source = TRY(place("rename", from));
    const Place target = TRY(place("rename", to));
    if (!source.node) return fileFailure(ENOENT, "rename", from);
    if (target.node == source.node) return {};
    if (target.node) {
        if (source.node->isDirectory() && !target.node->isDirectory()) return fileFailure(ENOTDIR, "rename", to);
        if (!source.node->isDirectory() && target.node->isDirectory()) return fileFailure(EISDIR, "rename", to);
        if (!target.node->entries.empty()) return fileFailure(ENOTEMPTY, "rename", to);
    }
    change(source, nullptr, target, source.node);
    return {};
}

Result<> FaultFileSystem::exchange(const std::string& a, const std::string& b) {
    const Lock lock(mutex_);
    TRY_VOID(begin("exchange", b));
    if (!hasExchange_) return fileFailure(EINVAL, "exchange", b);
    const Place first = TRY(place("exchange", a));
    const Place second = TRY(place("exchange", b));
    if (!first.node || !second.node) return fileFailure(ENOENT, "exchange", b);
    change(first, second.node, second, first.node);
    return {};
}

Result<> FaultFileSystem::removeFile(const std::string& path) {
    const Lock lock(mutex_);
    TRY_VOID(begin("remove", path));
    const Place at = TRY(place("remove", path));
    if (!at.node) return fileFailure(ENOENT, "remove", path);
    if (at.node->isDirectory()) return fileFailure(EISDIR, "remove", path);
    at.directory->change({{at.name, nullptr}});
    return {};
}

Result<> FaultFileSystem::removeEmptyDirectory(const std::string& path) {
    const Lock lock(mutex_);
    TRY_VOID(begin("remove directory", path));
    const Place at = TRY(place("remove directory", path));
    if (!at.node) return fileFailure(ENOENT, "remove directory", path);
    if (!at.node->isDirectory()) return fileFailure(ENOTDIR, "remove directory", path);
    if (!at.node->entries.empty()) return fileFailure(ENOTEMPTY, "remove directory", path);
    at.directory->change({{at.name, nullptr}});
    return {};
}

Result<> FaultFileSystem::syncDirectory(const std::string& path) {
    const Lock lock(mutex_);
    TRY_VOID(begin("sync directory", path));
    const NodePointer node = find(path);
    if (!node) return fileFailure(ENOENT, "sync directory", path);
    node->syncEntries();
    return {};
}

Result<std::unique_ptr<DeviceSync>> FaultFileSystem::openDeviceSync(const std::string& directory) {
    const Lock lock(mutex_);
    TRY_VOID(begin("open for sync", directory));
    if (!hasDeviceSync_) return fileFailure(EOPNOTSUPP, "open for sync", directory);
    if (!find(directory)) return fileFailure(ENOENT, "open for sync", directory);
    return std::make_unique<WholeSync>(*this, life_, directory);
}

Result<> FaultFileSystem::syncAll(std::uint64_t life, const std::string& path) {
    const Lock lock(mutex_);
    if (life != life_) return fileFailure(EIO, "sync all", path);
    TRY_VOID(begin("sync all", path));
    root_->becomeDurable();
    return {};
}

Result<std::unique_ptr<FileLock>> FaultFileSystem::lock(const std::string& path, bool exclusive) {
    const Lock lock(mutex_);
    TRY_VOID(begin("lock", path));
    Place at = TRY(place("lock", path));
    if (!at.node) at.directory->change({{at.name, makeNode(FileStatus::Kind::file)}});
    int& holders = holders_[path];
    while (exclusive ? holders != 0 : holders < 0) unlocked_.wait(mutex_);
    holders += exclusive ? -1 : 1;
    return std::make_unique<HeldLock>(*this, path, exclusive);
}

void FaultFileSystem::unlock(const std::string& path, bool exclusive) {
    const Lock lock(mutex_);
    holders_[path] += exclusive ? 1 : -1;
    unlocked_.notify_all();
}

Result<> FaultFileSystem::setExtendedAttribute(const std::string& path, const std::string& name, const Data& value) {
    const Lock lock(mutex_);
    TRY_VOID(begin("set attribute", path));
    const NodePointer node = find(path);
    if (!node) return fileFailure(ENOENT, "set attribute", path);
    node->attributes[name] = value;
    return {};
}

}  // namespace dayward
