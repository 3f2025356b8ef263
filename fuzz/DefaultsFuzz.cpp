// Files of values: the first byte chooses which file the rest is the content of. What is read stays when
// something else is written, and no content hinders writing or is lost unread.
#include <algorithm>

#include "Classes/App/ArchiveRegistration.h"
#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Event/FileExamination.h"
#include "Classes/Settings/AppSettings.h"
#include "Submodules/CorpLibrary2/App/CCAppHistory.h"
#include "Submodules/CorpLibrary2/App/CCAppValues.h"
#include "Submodules/CorpLibrary2/App/XXAppData.h"
#include "Submodules/CorpLibrary2/Foundation/AESCrypt.h"
#include "Submodules/CorpLibrary2/Foundation/CCCacheKeyStorage.h"
#include "Submodules/CorpLibrary2/Foundation/XXCacheKeyStorage.h"
#include "platform/FileSystem.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/UnreadableFiles.h"
#include "platform/UserDefaults.h"
#include "resources/FavoriteData.h"
#include "support/FaultFileSystem.h"
#include "support/Fuzz.h"
#include "support/TestEnvironment.h"

namespace {

using namespace dayward;

constexpr const char* kKey = "added by the fuzzer";
constexpr const char* kCipherKey = "0123456789";

const std::shared_ptr<const ArchiveClasses>& classes() {
    static const auto made = allArchiveClasses();
    return made;
}

/// Each check stores the content under a path, reads it, adds a key, and reads again.
struct Home {
    std::shared_ptr<FaultFileSystem> files = std::make_shared<FaultFileSystem>();
    TestEnvironment environment{{.files = files, .archiveClasses = classes()}};
    const Paths& paths = environment->paths();
    Data content;

    std::string store(const std::string& directory, const std::string& name) const {
        const std::string path = joinPath(directory, name);
        files->store(path, content);
        (void)faultsOfFile(path);
        return path;
    }
};

/// As bytes, since values that are no numbers equal nothing.
Data withAddition(Dictionary dictionary) {
    dictionary[kKey] = 1;
    return KeyedArchiver::archivedDataWithRootObject(dictionary);
}

void checkSuite(const Home& home) {
    const std::string path = home.store(home.paths.config, "values.defaults");
    UserDefaults suite(home.files, classes(), path);
    for (const auto& [key, value] : suite.dictionaryRepresentation()) (void)suite.unarchiveObjectForKey(key);
    const Data expected = withAddition(suite.dictionaryRepresentation());
    const bool isFaulty = !KeyedUnarchiver::unarchiveObjectWithData(home.content);
    suite.setObject(1, kKey);
    require(suite.synchronize().has_value(), "a suite is written");
    const UserDefaults again(home.files, classes(), path);
    require(withAddition(again.dictionaryRepresentation()) == expected, "a suite keeps its values");
    require(!isFaulty || home.files->readFile(path + ".unreadable") == home.content,
            "no unreadable suite is lost");
}

template <class Storage>
void checkStorage(const Home& home, const std::string& path) {
    Data expected;
    {
        Storage storage(KeyStorageFile{path});
        expected = withAddition(storage.values());
        storage.setValue(1, kKey);
        require(storage.write().has_value(), "a storage is written");
    }
    home.environment.queues->runAll();
    auto values = Storage(KeyStorageFile{path}).values();
    require(withAddition(std::move(values)) == expected, "a storage keeps its values");
}

void checkStorages(const Home& home) {
    checkStorage<CCKeyStorage>(home, home.store(home.paths.library, "values.dat"));
    const std::string path = home.store(home.paths.library, "cache.dat");
    CCCacheKeyStorage cache{KeyStorageFile{path}};
    for (const auto& [key, value] : cache.values()) {
        (void)cache.valueForKey(key);
        (void)cache.isLifeValueForKey(key);
    }
    cache.clean();
}

template <class Storage>
void checkOlderStorage(const std::string& path, const std::optional<std::string>& cipherKey) {
    const auto open = [&] {
        auto storage = std::make_unique<Storage>(KeyStorageFile{path});
        storage->setCryptoKey(cipherKey);
        return storage;
    };
    const auto storage = open();
    for (const std::string& key : storage->allKeys()) (void)storage->valueForKey(key);
    storage->setValue(1, kKey);
    const Data expected = KeyedArchiver::archivedDataWithRootObject(storage->storage());
    storage->synchronize();
    require(KeyedArchiver::archivedDataWithRootObject(open()->storage()) == expected,
            "a storage keeps its values");
}

void checkOlderStorages(const Home& home) {
    const std::string path = home.store(home.paths.library, "older.dat");
    checkOlderStorage<XXKeyStorage>(path, std::nullopt);
    checkOlderStorage<XXCacheKeyStorage>(home.store(home.paths.library, "cache.dat"), std::nullopt);
    home.files->store(path, AES256EncryptWithKey(home.content, kCipherKey).value());
    checkOlderStorage<XXKeyStorage>(path, kCipherKey);
    home.files->store(path,
                      KeyedArchiver::archivedDataWithRootObject(AES256EncryptWithKey(home.content, kCipherKey)));
    checkOlderStorage<XXKeyStorage>(path, kCipherKey);
}

void checkApplication(const Home& home) {
    home.store(home.paths.library, "CCAppValues.dat");
    home.store(home.paths.library, "CCAppHistory.dat");
    for (const char* name : {XXAppData::kValuesFileName, XXAppData::kEventsFileName})
        home.store(home.paths.applicationSupport, name);
    CCAppValues::setValue(1, kKey);
    CCAppValues::synchronize();
    const std::size_t starts = CCAppHistory::countEvent(CCAppHistoryKeys::start, {}, {});
    CCAppHistory::addEvent(CCAppHistoryKeys::start);
    (void)CCAppHistory::dateToLastEvent(CCAppHistoryKeys::start, 1);
    CCAppHistory::synchronize();
    require(CCAppHistory::countEvent(CCAppHistoryKeys::start, {}, {}) <= starts + 1, "one more start is one more");
    XXAppData::addEvent("start");
    (void)XXAppData::dateToFirstEvent("start");
    XXAppData::events_writeToFile();
    XXAppData::setValue(1, kKey);
    XXAppData::values_writeToFile();
}

void checkFavorites(const Home& home) {
    home.store(home.paths.applicationSupport, "favoriteData.dat");
    const auto root = KeyedUnarchiver::unarchiveObjectWithData(home.content);
    const Dictionary known = root && root->dictionary() ? *root->dictionary() : Dictionary();
    const auto ofOtherKinds = [&known] {
        Array favorites;
        for (const auto& [kind, objects] : known)
            if (kind != kKey) favorites.push_back(FavoriteData::getObjectsForKey(kind, FavoriteData::kMost));
        return KeyedArchiver::archivedDataWithRootObject(favorites);
    };
    const Data before = ofOtherKinds();
    FavoriteData::addObject(1, kKey);
    require(FavoriteData::getObjectsForKey(kKey, 1) == Array{1}, "what was chosen last comes first");
    require(ofOtherKinds() == before, "favourites of other kinds stay");
}

void checkSettings(const Home& home) {
    home.store(home.paths.applicationSupport, AppSettings::kFileName);
    const auto order = AppSettings::tableSortIdentifiers();
    const auto alerts = AppSettings::defaultAlerts();
    (void)AppSettings::defaultIntervalFormat().countdownToDate(home.environment->now());
    (void)AppSettings::defaultTime();
    (void)AppSettings::old_defaultTextColor();
    AppSettings::setTableCellIconShow(!AppSettings::tableCellIconShow());
    require(AppSettings::synchronize().has_value(), "settings are written");
    require(AppSettings::tableSortIdentifiers() == order && AppSettings::defaultAlerts().size() == alerts.size(),
            "settings keep their values");
}

void checkCategories(const Home& home) {
    home.store(home.paths.config, "standard.defaults");
    auto& store = CategoryLocalStore::shared();
    for (const auto& category : store.sortCategories()) {
        if (category->eventIcon) (void)category->eventIcon->getImage();
        if (category->eventBackgroundTpl) (void)category->eventBackgroundTpl->getPicture()->getImage();
    }
    const std::size_t count = store.getCategories().size();
    store.updateCategory(store.createCategory(), CategoryLocalStore::Initialize::no);
    store.refreshFromDisk();
    require(store.getCategories().size() == count + 1, "a category more is one more");
}

void checkUnreadable(const Home& home) {
    const std::string directory = joinPath(home.paths.state, "unreadable");
    home.store(directory, "entry");
    UnreadableFiles record(*home.files, directory);
    record.add("/a", "stamp", textOf(home.content));
    record.reload();
    require(record.reasonToLeaveOut("/a", "stamp").has_value(), "a recorded file is left out");
    record.forget("/a");
    require(!record.reasonToLeaveOut("/a", "stamp"), "a forgotten file is read");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    constexpr void (*kChecks[])(const Home&) = {checkSuite,    checkStorages,   checkOlderStorages, checkApplication,
                                                checkSettings, checkCategories, checkUnreadable,    checkFavorites};
    FuzzInput input(bytes, size);
    const auto chosen = static_cast<std::uint8_t>(input.number(1));
    Home home{.content = input.rest()};
    runOrStop([&] {
        kChecks[chosen % std::size(kChecks)](home);
        home.environment.queues->runAll();
    });
    return 0;
}
