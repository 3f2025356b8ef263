// Records and files for the tests of keyed archives.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/PropertyList.h"
#include "support/TestPaths.h"

namespace dayward {

/// A record with a field of each kind, class "tst001".
class TestRecord final : public Archivable {
public:
    std::string text;
    std::optional<std::int64_t> count;
    std::optional<bool> flag;
    std::optional<double> ratio;
    std::optional<Date> date;
    std::optional<Data> data;
    Object list;
    std::shared_ptr<Archivable> child;

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {"tst001", "tst000"}; }

    void encodeWithCoder(KeyedArchiver& coder) const override {
        coder.encodeVersion(0, "tst001");
        coder.encodeObject(text, "text");
        if (count) coder.encodeInteger(*count, "count");
        if (flag) coder.encodeBool(*flag, "flag");
        if (ratio) coder.encodeDouble(*ratio, "ratio");
        coder.encodeObject(date, "date");
        coder.encodeObject(data, "data");
        coder.encodeObject(list, "list");
        coder.encodeObject(child, "child");
    }

    [[nodiscard]] bool isEqual(const Archivable& other) const override {
        const auto* record = dynamic_cast<const TestRecord*>(&other);
        return record && record->text == text && record->count == count && record->flag == flag &&
               record->ratio == ratio && record->date == date && record->data == data && record->list == list &&
               Object(record->child) == Object(child);
    }

    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder) {
        auto record = std::make_shared<TestRecord>();
        record->child = coder.decodeObject("child").record();
        record->list = coder.decodeObject("list");
        record->data = coder.decodeData("data");
        record->date = coder.decodeDate("date");
        record->ratio = coder.decodeDouble("ratio");
        record->flag = coder.decodeBool("flag");
        record->count = coder.decodeInteger("count");
        record->text = coder.decodeString("text").value_or("");
        return record;
    }
};

inline ArchiveClasses testClasses() {
    ArchiveClasses classes;
    classes.add("tst001", TestRecord::read);
    return classes;
}

inline Data storedArchive(const std::string& name) {
    std::ifstream file(testData() + "/archives/" + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    return Data(std::istreambuf_iterator<char>(file), {});
}

inline Result<Object> unarchived(const Data& data) {
    return KeyedUnarchiver::unarchiveObjectWithData(data, testClasses());
}

/// The root object; a test that gets an error has failed.
inline Object rootOf(const Data& data) {
    const auto root = unarchived(data);
    EXPECT_TRUE(root) << root.error().description();
    return root.value_or(Object());
}

using Fields = PropertyList::Fields;

/// An archive of "$null" and these; the first of them is the root.
inline Data archiveOfObjects(PropertyList::List objects) {
    objects.insert(objects.begin(), {std::string("$null")});
    return binaryPropertyList({Fields{{"$version", {std::int64_t{100000}}},
                                      {"$archiver", {std::string("NSKeyedArchiver")}},
                                      {"$top", {Fields{{"root", {ArchiveUID{1}}}}}},
                                      {"$objects", {std::move(objects)}}}});
}

inline PropertyList classRecord(std::string name) { return {Fields{{"$classname", {std::move(name)}}}}; }

}  // namespace dayward
