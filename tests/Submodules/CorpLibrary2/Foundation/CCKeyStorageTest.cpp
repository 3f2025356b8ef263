#include "Submodules/CorpLibrary2/Foundation/CCKeyStorage.h"

#include <gmock/gmock.h>

#include <thread>

#include "FoundationFixture.h"
#include "Submodules/CorpLibrary2/Foundation/ArchivedFile.h"
#include "Submodules/CorpLibrary2/Foundation/CCCacheKeyStorage.h"
#include "platform/KeyedArchiver.h"
#include "platform/UnreadableFiles.h"
#include "platform/UserDefaults.h"
#include "platform/linux/AsioQueues.h"

namespace dayward {
namespace {

class CCKeyStorageTest : public FoundationTest {
protected:
    std::unique_ptr<CCKeyStorage> open() { return std::make_unique<CCKeyStorage>(KeyStorageFile{path}); }
    /// Another process that holds the same file.
    void writeAsOther(const Dictionary& values, const std::vector<std::string>& removed = {}) {
        CCKeyStorage other(KeyStorageFile{path});
        for (const auto& [key, value] : values) other.setValue(value, key);
        for (const auto& key : removed) other.removeValueForKey(key);
        other.write();
    }
    void letDelayPass() { environment.queues->advance(TimeInterval(1)); }
};

TEST_F(CCKeyStorageTest, ReadsTheArchiveThatAnotherWriterMade) {
    store(path, storedArchive("dictionary.archive"));
    const auto storage = open();
    EXPECT_EQ(storage->count(), 4u);
    EXPECT_EQ(storage->valueForKey("count"), 3);
    EXPECT_EQ(storage->valueForKey("name"), "День");
    EXPECT_EQ(storage->valueForKey("list"), Object(Array{"a", "b"}));
    EXPECT_EQ(storage->valueForKey("since"), environment.at("2016-01-01"));
}

TEST_F(CCKeyStorageTest, AnythingElseThanADictionaryOpensEmptyAndIsReplacedByTheNextWrite) {
    const Data whole = storedArchive("dictionary.archive");
    const std::vector<Data> contents = {{},
                                        dataOf("no archive"),
                                        storedArchive("array.archive"),
                                        Data(whole.begin(), whole.end() - 20),
                                        KeyedArchiver::archivedDataWithRootObject("text"),
                                        Data(4096, 0xFF)};
    for (const auto& content : contents) {
        store(path, content);
        const auto storage = open();
        EXPECT_TRUE(storage->isEmpty());
        storage->setValue(1, "key");
        storage->write();
        EXPECT_EQ(onDisk(path), Object(Dictionary{{"key", 1}}));
    }
    // Those that are no archive are kept beside, each once.
    int number = 1;
    for (const int kept : {0, 1, 3, 5}) EXPECT_EQ(*files->readFile(unreadableCopyPath(path, number++)), contents[kept]);
}

TEST_F(CCKeyStorageTest, ALaterChangeDefersTheWrite) {
    const auto storage = open();
    storage->setTimeOutWrite(TimeInterval(10));
    storage->setValue(1, "a");
    environment.queues->advance(TimeInterval(9));
    storage->setValue(2, "a");
    environment.queues->advance(TimeInterval(9));
    EXPECT_EQ(writeCount(), 0u);
    environment.queues->advance(TimeInterval(1));
    EXPECT_EQ(writeCount(), 1u);
}

TEST_F(CCKeyStorageTest, WriteTakesThePlaceOfThePendingOne) {
    const auto storage = open();
    storage->setValue(1, "a");
    storage->write();
    EXPECT_EQ(onDisk(path), Object(Dictionary{{"a", 1}}));
    // A request made after the write is no request made before it.
    storage->setTimeOutWrite(TimeInterval(10));
    storage->setValue(2, "a");
    environment.queues->advance(TimeInterval(5));
    EXPECT_EQ(writeCount(), 1u);
    environment.queues->advance(TimeInterval(5));
    EXPECT_EQ(writeCount(), 2u);
}

TEST_F(CCKeyStorageTest, OnlyChangesAskForAWrite) {
    const auto storage = open();
    EXPECT_TRUE(storage->removeValueForKey("absent").isNull());
    storage->setValue(nullptr, "absent");
    EXPECT_EQ(environment.queues->pendingCount(), 0u);

    storage->setValue("value", "key");
    EXPECT_TRUE(storage->containsKey("key"));
    EXPECT_EQ(storage->removeValueForKey("key"), "value");
    storage->setValue("value", "key");
    storage->setValue(nullptr, "key");
    EXPECT_FALSE(storage->containsKey("key"));
    storage->write();
    EXPECT_EQ(onDisk(path), Object(Dictionary()));
}

TEST_F(CCKeyStorageTest, ADestroyedStorageWritesWhatIsPending) {
    open()->setValue(1, "a");
    EXPECT_EQ(onDisk(path), Object(Dictionary{{"a", 1}}));
    letDelayPass();
    EXPECT_EQ(writeCount(), 1u);
}

TEST_F(CCKeyStorageTest, AFailedWriteKeepsTheOldFileAndTheValues) {
    writeAsOther({{"old", 1}});
    const std::size_t before = files->operationCount();
    open()->setValue(2, "new");
    const std::size_t steps = files->operationCount() - before;
    ASSERT_GT(steps, 5u);
    for (std::size_t step = 2; step <= steps; ++step) {
        writeAsOther({{"old", 1}}, {"new"});
        const auto storage = open();
        storage->setValue(2, "new");
        files->failOperation(step);
        storage->write();
        files->heal();
        EXPECT_EQ(onDisk(path).dictionary()->at("old"), 1) << "step " << step;
        EXPECT_EQ(storage->valueForKey("new"), 2) << "step " << step;
        storage->setValue(3, "next");
        storage->write();
        EXPECT_EQ(onDisk(path), Object(Dictionary{{"old", 1}, {"new", 2}, {"next", 3}})) << "step " << step;
        storage->removeValueForKey("next");
        storage->write();
    }
    EXPECT_THAT(environment.log->errors(), testing::Contains(testing::HasSubstr("CCKeyStorage write: " + path)));
}

TEST_F(CCKeyStorageTest, TwoHoldersOfAFileKeepEachOthersKeys) {
    writeAsOther({{"both", 0}, {"gone", 0}, {"mine", 0}});
    const auto storage = open();
    writeAsOther({{"both", 1}, {"theirs", 1}}, {"gone"});
    storage->setValue(2, "both");
    storage->setValue(2, "mine");
    storage->write();
    const Dictionary expected{{"both", 2}, {"mine", 2}, {"theirs", 1}};
    EXPECT_EQ(onDisk(path), Object(expected));
    EXPECT_EQ(storage->values(), expected);
}

TEST_F(CCKeyStorageTest, RemoveAllRemovesTheOthersKeysToo) {
    const auto storage = open();
    writeAsOther({{"theirs", 1}});
    storage->setValue(1, "before");
    storage->removeAll();
    storage->setValue(2, "after");
    files->failOperation(1);
    storage->write();
    storage->setValue(3, "later");
    storage->write();
    EXPECT_EQ(onDisk(path), Object(Dictionary{{"after", 2}, {"later", 3}}));
}

TEST_F(CCKeyStorageTest, AFileThatVanishedIsWrittenWhole) {
    writeAsOther({{"a", 1}});
    const auto storage = open();
    ASSERT_TRUE(files->removeFile(path));
    storage->setValue(2, "b");
    storage->write();
    EXPECT_EQ(onDisk(path), Object(Dictionary{{"a", 1}, {"b", 2}}));
}

TEST_F(CCKeyStorageTest, TheDefaultsHoldTheDictionaryUnderOneKey) {
    environment->standardDefaults().setObject("untouched", "other");
    {
        CCKeyStorage storage(KeyStorageDefaultsKey{"settings"});
        EXPECT_EQ(storage.sourceType(), CCKeyStorage::SourceType::userDefaults);
        EXPECT_EQ(storage.fileURL(), std::nullopt);
        storage.setValue(5, "size");
    }
    EXPECT_EQ(environment->standardDefaults().objectForKey("settings"), Object(Dictionary{{"size", 5}}));
    EXPECT_EQ(CCKeyStorage(KeyStorageDefaultsKey{"settings"}).valueForKey("size"), 5);
    EXPECT_TRUE(CCKeyStorage(KeyStorageDefaultsKey{"other"}).isEmpty());
    {
        const TestEnvironment process(withFoundationClasses(files));
        CCKeyStorage(KeyStorageDefaultsKey{"settings"}).setValue(6, "theirs");
    }
    CCKeyStorage(KeyStorageDefaultsKey{"settings"}).setValue(7, "mine");
    EXPECT_EQ(environment->standardDefaults().objectForKey("settings"),
              Object(Dictionary{{"mine", 7}, {"size", 5}, {"theirs", 6}}));
}

TEST(CCKeyStorageThreadsTest, HoldersOnManyThreadsLoseNoConfirmedKey) {
    constexpr int kHolders = 4;
    constexpr int kKeys = 25;
    const auto queues = std::make_shared<AsioQueues>();
    auto options = withFoundationClasses();
    options.queues = queues;
    TestEnvironment environment(std::move(options));
    const KeyStorageFile file{joinPath(environment->paths().applicationSupport, "storage")};
    CCKeyStorage shared(file);
    const auto change = [&](int holder) {
        const EnvironmentScope scope(&*environment);
        CCKeyStorage own(file);
        for (int i = 0; i < kKeys; ++i) {
            own.setValue(i, std::to_string(holder) + "-own-" + std::to_string(i));
            shared.setValue(i, std::to_string(holder) + "-shared-" + std::to_string(i));
            if (i % 5 == 0) own.write();
        }
    };
    {
        std::vector<std::jthread> threads;
        for (int holder = 0; holder < kHolders; ++holder) threads.emplace_back(change, holder);
    }
    shared.write();
    // Delayed writes that are due find that there is nothing left to do.
    queues->main().after(shared.timeOutWrite(), [&] { queues->mainLoop().stop(); });
    queues->mainLoop().run();
    EXPECT_EQ(CCKeyStorage(file).count(), std::size_t{2} * kHolders * kKeys);
}

class CCCacheKeyStorageTest : public FoundationTest {};

TEST_F(CCCacheKeyStorageTest, LifeDecidesWhatIsAliveButNotWhatIsRead) {
    CCCacheKeyStorage storage(KeyStorageFile{path});
    storage.setValue("now", "plain");
    storage.setValue("tomorrow", "dated", environment.at("2026-03-11"));
    storage.setValue("minute", "timed", TimeInterval(60));
    EXPECT_FALSE(storage.isLifeValueForKey("plain"));
    EXPECT_EQ(storage.lifeDateForKey("plain"), environment->now());
    EXPECT_TRUE(storage.isLifeValueForKey("timed"));
    environment.clock->advance(TimeInterval(60));
    EXPECT_FALSE(storage.isLifeValueForKey("timed"));
    storage.clean();
    EXPECT_EQ(storage.count(), 1u);
    EXPECT_EQ(storage.valueForKey("dated"), "tomorrow");
    storage.setValue(nullptr, "dated");
    EXPECT_TRUE(storage.isEmpty());
}

TEST_F(CCCacheKeyStorageTest, ReadsStoredValuesAndCleansWhatIsNone) {
    store(path, storedArchive("cache.archive"));
    CCCacheKeyStorage storage(KeyStorageFile{path});
    EXPECT_EQ(storage.count(), 5u);
    EXPECT_EQ(storage.valueForKey("alive"), "yes");
    EXPECT_EQ(storage.valueForKey("undated"), "no");
    EXPECT_TRUE(storage.valueForKey("foreign").isNull());
    for (const char* key : {"dead", "undated", "misdated", "foreign", "missing"}) {
        EXPECT_FALSE(storage.isLifeValueForKey(key)) << key;
    }
    storage.clean();
    storage.write();
    EXPECT_EQ(CCCacheKeyStorage(KeyStorageFile{path}).lifeDateForKey("alive"), environment.at("2026-03-11"));
    EXPECT_EQ(onDisk(path).dictionary()->size(), 1u);
}

}  // namespace
}  // namespace dayward
