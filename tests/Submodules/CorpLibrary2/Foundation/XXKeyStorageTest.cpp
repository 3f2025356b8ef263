#include "Submodules/CorpLibrary2/Foundation/XXKeyStorage.h"

#include <gmock/gmock.h>

#include "FoundationFixture.h"
#include "Submodules/CorpLibrary2/Foundation/XXCacheKeyStorage.h"
#include "platform/KeyedArchiver.h"
#include "platform/UserDefaults.h"

namespace dayward {
namespace {

using testing::ElementsAre;

constexpr const char* kKey = "пять5";

class XXKeyStorageTest : public FoundationTest {
protected:
    [[nodiscard]] Dictionary content(const std::optional<std::string>& key = std::nullopt) const {
        XXKeyStorage storage(KeyStorageFile{path});
        storage.setCryptoKey(key);
        return storage.storage();
    }
};

TEST_F(XXKeyStorageTest, IsWrittenBySynchronizeOnly) {
    XXKeyStorage storage(KeyStorageFile{path});
    storage.setObject(1, "a");
    storage.setValue(2, "b");
    storage.setObject(nullptr, "a");
    EXPECT_EQ(writeCount(), 0u);
    storage.synchronize();
    EXPECT_EQ(onDisk(path), Object(Dictionary{{"b", 2}}));
    storage.setAutoSynchronize(true);
    storage.setDictionary({{"c", 3}, {"d", 4}, {"e", 5}});
    EXPECT_EQ(content(), (Dictionary{{"c", 3}, {"d", 4}, {"e", 5}}));
    storage.removeObjectsForKeys({"c", "e", "absent"});
    EXPECT_EQ(content(), (Dictionary{{"d", 4}}));
    storage.removeAllObjects();
    EXPECT_EQ(content(), Dictionary());
    EXPECT_EQ(writeCount(), 4u);
}

TEST_F(XXKeyStorageTest, TheDefaultsKeyWinsOverTheFile) {
    XXKeyStorage storage(KeyStorageFile{path});
    storage.setUserDefaultsKey("older");
    storage.setObject(1, "a");
    storage.synchronize();
    EXPECT_FALSE(files->exists(path));
    EXPECT_EQ(environment->standardDefaults().objectForKey("older"), Object(Dictionary{{"a", 1}}));
    EXPECT_EQ(XXKeyStorage(KeyStorageDefaultsKey{"older"}).objectForKey("a"), 1);
}

TEST_F(XXKeyStorageTest, AFailedWriteIsLoggedAndMayBeRepeated) {
    XXKeyStorage storage(KeyStorageFile{path});
    storage.setObject(1, "a");
    files->fillDiskAt(1);
    storage.synchronize();
    EXPECT_THAT(environment.log->errors(), ElementsAre(testing::HasSubstr("XXKeyStorage write: " + path)));
    files->heal();
    storage.synchronize();
    EXPECT_EQ(content(), (Dictionary{{"a", 1}}));
}

TEST_F(XXKeyStorageTest, TwoHoldersKeepEachOthersKeys) {
    for (const auto& key : {std::optional<std::string>(), std::optional<std::string>(kKey)}) {
        XXKeyStorage one(KeyStorageFile{path});
        XXKeyStorage other(KeyStorageFile{path});
        for (auto* storage : {&one, &other}) storage->setCryptoKey(key);
        one.setDictionary({{"both", 1}, {"gone", 1}, {"one's", 1}});
        one.synchronize();
        (void)other.storage();
        one.setObject(nullptr, "gone");
        one.synchronize();
        other.setObject(2, "both");
        other.synchronize();
        EXPECT_EQ(content(key), (Dictionary{{"both", 2}, {"one's", 1}}));
        one.setFilePath(path + ".moved");
        one.synchronize();
        EXPECT_EQ(XXKeyStorage(KeyStorageFile{path + ".moved"}).storage().empty(), key.has_value());
    }
}

TEST_F(XXKeyStorageTest, AFailedReadIsLoggedAndCountsAsNoData) {
    store(path, dataOf("no archive"));
    EXPECT_EQ(content(), Dictionary());
    EXPECT_THAT(
        environment.log->errors(),
        ElementsAre(testing::ContainsRegex("XXKeyStorage::load.* \\[Line [0-9]+\\] Exception: .+ reason: " + path)));
}

TEST_F(XXKeyStorageTest, OpensTheEncipheredContentOfAnotherWriter) {
    store(path, storedArchive("enciphered.archive"));
    EXPECT_EQ(content(kKey), (Dictionary{{"secret", "плов"}}));
    EXPECT_EQ(content(), Dictionary());
    for (const char* wrongKey : {"", "пять", "пять5 ", "a key that is longer than thirty-two bytes"}) {
        EXPECT_EQ(content(wrongKey), Dictionary()) << wrongKey;
    }
}

TEST_F(XXKeyStorageTest, WritesEncipheredWhatItsKeyOpens) {
    XXKeyStorage storage(KeyStorageDefaultsKey{"enciphered"});
    storage.setCryptoKey(kKey);
    storage.setObject("плов", "secret");
    storage.synchronize();
    const Object stored = environment->standardDefaults().objectForKey("enciphered");
    EXPECT_EQ(XXKeyStorage::objectFromCryptoData(stored, kKey), Object(Dictionary{{"secret", "плов"}}));
    EXPECT_TRUE(XXKeyStorage::objectFromCryptoData(stored, "other").isNull());
}

TEST_F(XXKeyStorageTest, NothingComesOutOfWhatIsNoContainer) {
    EXPECT_EQ(XXKeyStorage::cryptoDataFromObject(nullptr, kKey), std::nullopt);
    const auto data = XXKeyStorage::cryptoDataFromObject(Dictionary{{"a", 1}}, kKey);
    ASSERT_TRUE(data);
    EXPECT_TRUE(XXKeyStorage::objectFromCryptoData(nullptr, kKey).isNull());
    EXPECT_TRUE(XXKeyStorage::objectFromCryptoData("text", kKey).isNull());
    EXPECT_TRUE(XXKeyStorage::objectFromCryptoData(Data(), kKey).isNull());
    for (std::size_t length = 0; length < data->size(); ++length) {
        const Data cut(data->begin(), data->begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_TRUE(XXKeyStorage::objectFromCryptoData(cut, kKey).isNull()) << length;
    }
    for (std::size_t at = 0; at < data->size(); ++at) {
        Data flipped = *data;
        flipped[at] ^= 0x10;
        static_cast<void>(XXKeyStorage::objectFromCryptoData(flipped, kKey));  // must not crash
    }
}

class XXCacheKeyStorageTest : public FoundationTest {
protected:
    XXCacheKeyStorage storage{KeyStorageFile{path}};
};

TEST_F(XXCacheKeyStorageTest, EntriesDieWhenTheirDateHasPassed) {
    storage.setObject("brief", "a", TimeInterval(10));
    storage.setObject("long", "b", environment.at("2026-03-11"));
    EXPECT_EQ(storage.objectForKey("a"), "brief");
    environment.clock->advance(TimeInterval(10));
    EXPECT_TRUE(storage.containsKey("a")) << "the very moment is not past";
    environment.clock->advance(TimeInterval(0.5));
    EXPECT_FALSE(storage.containsKey("a"));
    EXPECT_TRUE(storage.valueForKey("a").isNull());
    EXPECT_FALSE(storage.equalsObject("brief", "a"));
    EXPECT_TRUE(storage.equalsObject("long", "b"));
    EXPECT_EQ(storage.allKeys().size(), 2u);
    EXPECT_EQ(storage.count(), 1u);
    EXPECT_EQ(storage.allKeys().size(), 1u);
}

TEST_F(XXCacheKeyStorageTest, SettingSweepsTheDead) {
    storage.setObject(1, "a", TimeInterval(-1));
    storage.setObject(2, "b", TimeInterval(60));
    EXPECT_THAT(storage.allKeys(), ElementsAre("b"));
}

TEST_F(XXCacheKeyStorageTest, APlainValueGetsTheDefaultLife) {
    storage.setDefaultLifeTime(TimeInterval(60));
    storage.setObject(1, "a");
    storage.setValue(2, "b");
    storage.setDictionary({{"c", 3}});
    environment.clock->advance(TimeInterval(59));
    EXPECT_EQ(storage.count(), 3u);
    environment.clock->advance(TimeInterval(2));
    EXPECT_EQ(storage.count(), 0u);
}

TEST_F(XXCacheKeyStorageTest, ReadsForeignEntriesAsOld) {
    store(path, storedArchive("dictionary.archive"));
    EXPECT_FALSE(storage.containsKey("name"));
    EXPECT_TRUE(storage.objectForKey("count").isNull());
    EXPECT_EQ(storage.count(), 0u);
}

}  // namespace
}  // namespace dayward
