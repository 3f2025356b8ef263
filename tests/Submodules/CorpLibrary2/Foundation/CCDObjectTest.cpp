#include "Submodules/CorpLibrary2/Foundation/CCDObject.h"

#include <cmath>
#include <limits>

#include "FoundationFixture.h"
#include "platform/KeyedArchiver.h"

namespace dayward {
namespace {

class CCDObjectTest : public FoundationTest {
protected:
    CCDObject object{Dictionary{{"name", "День \"☂\""},
                                {"count", std::int64_t{9007199254740993}},
                                {"price", 1.5},
                                {"flag", true},
                                {"list", Array{1, nullptr, Dictionary()}}}};
};

TEST_F(CCDObjectTest, IsWrittenAsJSON) {
    EXPECT_EQ(object.jsonString(),
              R"({"count":9007199254740993,"flag":true,"list":[1,null,{}],"name":"День \"☂\"","price":1.5})");
    EXPECT_EQ(object.jsonData(), dataOf(object.description()));
    EXPECT_EQ(CCDObject().description(), "{}");
}

TEST_F(CCDObjectTest, WhatJSONHasNotIsAnError) {
    Object deep = 1;
    for (int i = 0; i < 2000; ++i) deep = Array{std::move(deep)};
    const double infinity = std::numeric_limits<double>::infinity();
    for (const auto& value : {Object(Data{1}), Object(Date()), Object(std::make_shared<CCDObject>()),
                              Object(std::nan("")), Object(infinity), Object("\xFF"), Object(Array{Data{1}}), deep}) {
        const CCDObject bad(Dictionary{{"value", value}});
        EXPECT_EQ(bad.jsonData(), std::nullopt);
        EXPECT_EQ(bad.description(), "error");
    }
}

TEST_F(CCDObjectTest, DatesAreTextsInAZone) {
    const TimeZone tokyo = TimeZone::named("Asia/Tokyo").value();
    const Date date = environment.at("2026-03-10T12:00:00");
    object.setDate(date, "utc");
    object.setDate(date, "tokyo", CCDObject::kDefaultDateFormat, tokyo);
    object.setDate(date, "day", "dd.MM.yyyy");
    EXPECT_EQ(object.stringForKey("utc"), "2026-03-10T12:00:00");
    EXPECT_EQ(object.stringForKey("tokyo"), "2026-03-10T21:00:00");
    EXPECT_EQ(object.stringForKey("day"), "10.03.2026");
    EXPECT_EQ(object.dateForKey("tokyo", CCDObject::kDefaultDateFormat, tokyo), date);
    EXPECT_EQ(object.dateForKey("utc"), date);
    EXPECT_EQ(object.dateForKey("day"), std::nullopt) << "another format";
    EXPECT_EQ(object.dateForKey("count"), std::nullopt) << "mistyped";
    object.setDate(std::nullopt, "day");
    EXPECT_TRUE(object.valueForKey("day").isNull());
}

TEST_F(CCDObjectTest, CopiesAndArchivesAreIndependent) {
    CCDObject copy = object;
    copy.setDate(environment->now(), "name");
    EXPECT_EQ(object.stringForKey("name"), "День \"☂\"");
    const Data archive = KeyedArchiver::archivedDataWithRootObject(std::make_shared<CCDObject>(object));
    const auto read = KeyedUnarchiver::unarchiveObjectWithData(archive).value().as<CCDObject>();
    ASSERT_NE(read, nullptr);
    EXPECT_TRUE(read->isEqual(object));
    EXPECT_FALSE(read->isEqual(copy));
}

}  // namespace
}  // namespace dayward
