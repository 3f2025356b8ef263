// Our archives and our listings of archives against those of an independent reader.
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "platform/ArchiveDump.h"
#include "platform/ArchiveFixture.h"
#include "support/TestPaths.h"

namespace dayward {
namespace {

using Json = nlohmann::ordered_json;

/// What Python lists of the file.
Json listed(const std::string& path) {
    const std::string command =
        "/usr/bin/python3 " + testData() + "/archives/list-archive.py '" + path + "'";
    std::FILE* pipe = popen(command.c_str(), "r");
    std::string output;
    char part[4096];
    while (const std::size_t count = std::fread(part, 1, sizeof part, pipe)) output.append(part, count);
    EXPECT_EQ(pclose(pipe), 0) << path;
    return Json::parse(output, nullptr, false);
}

Json listed(const Data& archive) {
    const auto path = std::filesystem::temp_directory_path() / ("dayward-listing-" + std::to_string(getpid()));
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(archive.data()), static_cast<std::streamsize>(archive.size()));
    Json json = listed(path.string());
    std::filesystem::remove(path);
    return json;
}

TEST(ArchiveListing, theLayoutIsAsPublished) {
    const auto record = std::make_shared<TestRecord>();
    record->text = "text";
    record->count = -3;
    record->flag = true;
    record->ratio = 0.5;
    record->date = Date::sinceReference(12.25);
    record->data = Data{1, 2, 3};
    record->list = Array{Dictionary{{"key", "text"}}, nullptr};
    const Json raw = listed(KeyedArchiver::archivedDataWithRootObject(record))["raw"];
    EXPECT_EQ(raw, Json::parse(R"({
        "$version": 100000, "$archiver": "NSKeyedArchiver", "$top": {"root": {"UID": 1}},
        "$objects": [
            "$null",
            {"tst001": 0, "text": {"UID": 2}, "count": -3, "flag": true, "ratio": 0.5, "date": {"UID": 3},
             "data": {"UID": 5}, "list": {"UID": 6}, "child": {"UID": 0}, "$class": {"UID": 13}},
            "text",
            {"NS.time": 12.25, "$class": {"UID": 4}},
            {"$classname": "NSDate", "$classes": ["NSDate", "NSObject"]},
            {"data": "AQID"},
            {"NS.objects": [{"UID": 7}, {"UID": 10}], "$class": {"UID": 12}},
            {"NS.keys": [{"UID": 8}], "NS.objects": [{"UID": 2}], "$class": {"UID": 9}},
            "key",
            {"$classname": "NSDictionary", "$classes": ["NSDictionary", "NSObject"]},
            {"$class": {"UID": 11}},
            {"$classname": "NSNull", "$classes": ["NSNull", "NSObject"]},
            {"$classname": "NSArray", "$classes": ["NSArray", "NSObject"]},
            {"$classname": "tst001", "$classes": ["tst001", "tst000", "NSObject"]}
        ]})"))
        << raw.dump(2);
}

TEST(ArchiveListing, ourListingIsPythons) {
    for (const char* name : {"good-values.plist", "good-values.xml", "good-record.plist", "good-record-reversed.plist",
                             "good-unknown.plist", "good-number-keys.plist", "good-grey.plist", "good-nested.plist",
                             "good-two-entries.plist"}) {
        const auto json = archiveAsJSON(storedArchive(name));
        ASSERT_TRUE(json) << name << ": " << json.error().description();
        const Json expected = listed(testData() + "/archives/" + name)["root"];
        EXPECT_EQ(Json::parse(*json), expected) << name << "\n" << *json;
    }
}

/// What we read and write again lists as before.
TEST(ArchiveListing, nothingIsLostOnTheWay) {
    for (const char* name : {"good-values.plist", "good-number-keys.plist", "good-grey.plist", "good-nested.plist"}) {
        const Data again = KeyedArchiver::archivedDataWithRootObject(rootOf(storedArchive(name)));
        const Json before = listed(testData() + "/archives/" + name)["root"];
        const Json after = listed(again)["root"];
        EXPECT_EQ(nlohmann::json(after), nlohmann::json(before)) << name;
        EXPECT_EQ(Json::parse(*archiveAsJSON(again)), after) << name;
    }
}

/// More than 65535 objects, so that references are wider; texts of many lengths and scripts.
TEST(ArchiveListing, largeArchivesAreReadByPython) {
    Array values;
    for (int i = 0; i < 70000; ++i) values.emplace_back(i % 3 ? Object(i) : Object("ü" + std::to_string(i)));
    const Data archive = KeyedArchiver::archivedDataWithRootObject(values);
    EXPECT_EQ(Json::parse(*archiveAsJSON(archive)), listed(archive)["root"]);
}

TEST(ArchiveListing, numbersThatJSONLacksAreTexts) {
    const Data archive = KeyedArchiver::archivedDataWithRootObject(Array{std::nan(""), HUGE_VAL, -HUGE_VAL, Data{255}});
    EXPECT_EQ(Json::parse(*archiveAsJSON(archive)), Json::parse(R"(["nan", "inf", "-inf", {"$data": "/w=="}])"));
}

}  // namespace
}  // namespace dayward
