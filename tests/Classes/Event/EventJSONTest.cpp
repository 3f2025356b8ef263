#include "Classes/Event/EventJSON.h"

#include <gmock/gmock.h>

#include "Classes/Category/HHBackgroundInfo.h"
#include "Classes/Category/ImageEventBackgroundPicture.h"
#include "Classes/Event/EventJSONValue.h"
#include "Classes/Event/EventTestSupport.h"
#include "Submodules/CorpLibrary2/Foundation/AESCrypt.h"
#include "Classes/Event/LoadEventIconPicture.h"
#include "Classes/Event/RandomEvents.h"
#include "support/TestPaths.h"

namespace dayward {
namespace {

using testing::HasSubstr;

class EventJSONTest : public testing::Test {
protected:
    TestEnvironment environment_{eventOptions()};
};

TEST_F(EventJSONTest, RandomEventsComeBackAsTheyWere) {
    for (std::uint32_t seed = 1; seed <= 200; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const auto event = RandomEvents(seed).next();
        const auto text = eventJSON(*event);
        const auto back = eventFromJSON(text);
        ASSERT_TRUE(back) << back.error().description() << "\n" << text;
        EXPECT_EQ(eventJSON(**back), text);
        EXPECT_EQ((*back)->sourceInfo(), event->sourceInfo()) << text;
        EXPECT_EQ((*back)->date(), event->date());
        EXPECT_EQ((*back)->appearance(), event->appearance());
    }
}

TEST_F(EventJSONTest, AbsentAndNullFieldsAreThoseOfANewEvent) {
    const auto made = *eventFromJSON(R"({"identifier": "i"})");
    const auto nulls = *eventFromJSON(R"({"identifier": "i", "name": null, "date": null, "times": null, "rrule": null,
        "duration": null, "showAge": null, "intervalFormat": null, "alerts": null, "appearance": null, "icon": null,
        "background": null, "note": null, "version": null, "sourceInfo": null, "something": [1]})");
    EXPECT_EQ(eventJSON(*made), eventJSON(HHEvent("i")));
    EXPECT_EQ(eventJSON(*nulls), eventJSON(HHEvent("i")));
    EXPECT_EQ((*eventFromJSON("{}"))->identifier().size(), 36U);
}

TEST_F(EventJSONTest, RawNumbersWinOverTexts) {
    EXPECT_EQ((*eventFromJSON(R"({"date": "2020-01-01", "dateSeconds": 12.5})"))->date(), Date::sinceReference(12.5));
    EXPECT_EQ((*eventFromJSON(R"({"date": "2001-01-01T01:00:00+01:00"})"))->date(), Date());
    EXPECT_EQ((*eventFromJSON(R"({"date": "2001-01-02T00:00:00"})"))->date(), Date::sinceReference(86400));
}

TEST_F(EventJSONTest, ComputedFields) {
    const auto event = *eventFromJSON(R"({"name": "Trip", "date": "2025-03-14", "times": [540], "showAge": true,
        "rrule": "FREQ=YEARLY;INTERVAL=1", "intervalFormat": {"units": 16, "textStyle": 3}})");
    const auto value = eventJSONValue(*event, {.computedFields = true});
    EXPECT_EQ(value["nextDate"], "2026-03-14T09:00:00+00:00");
    EXPECT_EQ(value["nextDateSeconds"], environment_.at("2026-03-14T09:00:00").secondsSinceReference());
    EXPECT_EQ(value["isComing"], false);
    EXPECT_EQ(value["title"], "Trip (1)");
    EXPECT_THAT(value["dateText"].get<std::string>(), HasSubstr("March"));
    EXPECT_THAT(value["countdown"].get<std::string>(), HasSubstr("4 Days"));
    EXPECT_FALSE(eventJSONValue(*event).contains("nextDate"));

    HHEvent never;
    never.setTimes({});
    const auto empty = eventJSONValue(never, {.computedFields = true});
    for (const char* field : {"nextDate", "nextDateSeconds", "dateText"}) EXPECT_TRUE(empty[field].is_null()) << field;
}

TEST_F(EventJSONTest, PicturesOfEveryKind) {
    const std::string file = testData() + "/resources/";
    const auto event = *eventFromJSON(R"({"identifier": "i", "icon": {"kind": "image", "file": ")" + file +
                                      R"(heart4.png"}, "background": {"kind": "image", "file": ")" + file +
                                      R"(bg-37.jpg", "source": "me"}})");
    const auto value = eventJSONValue(*event);
    EXPECT_EQ(value["icon"]["format"], "png");
    EXPECT_EQ(value["background"]["format"], "jpeg");
    EXPECT_EQ(value["background"]["source"], "me");
    const auto back = *eventFromJSONValue(value);
    EXPECT_TRUE(back->icon()->isEqual(*event->icon()));
    EXPECT_TRUE(back->background()->isEqual(*event->background()));
    EXPECT_EQ(eventJSONValue(*back), value);

    const auto inDocument = *eventFromJSON(R"({"icon": {"kind": "document"}, "identifier": "i"})");
    EXPECT_TRUE(inDocument->icon()->isEqual(LoadEventIconPicture("i")));
}

TEST_F(EventJSONTest, OlderTemplatesTellWhatTheyStandFor) {
    const Color red{1, 0, 0, 1};
    const auto image = std::make_shared<const Image>(1, 1, Data{255, 0, 0, 255});
    const std::pair<HHBackgroundInfo, const char*> templates[] = {
        {{0, "bg-37.jpg", red, image}, R"({"kind": "named", "name": "bg-37.jpg"})"},
        {{9, "bg-37.jpg", red, image}, R"({"kind": "named", "name": "bg-37.jpg"})"},
        {{0, {}, red, image}, R"({"kind": "random"})"},
        {{1, "bg-37.jpg", red, image}, R"({"kind": "random"})"},
        {{2, "bg-37.jpg", red, image}, R"({"kind": "color", "color": "#FF0000FF"})"},
        {{2, "bg-37.jpg", {}, image}, R"({"kind": "randomColor"})"},
        {{3, "bg-37.jpg", red, image}, R"({"kind": "randomColor"})"},
        {{4, "bg-37.jpg", red, nullptr}, "null"},
    };
    for (const auto& [info, text] : templates) {
        EXPECT_EQ(pictureJSONValue(std::make_shared<HHBackgroundInfo>(info)), JSON::parse(text)) << info.type();
    }
    const auto withImage = std::make_shared<HHBackgroundInfo>(4, std::nullopt, std::nullopt, image);
    EXPECT_EQ(pictureJSONValue(withImage)["format"], "jpeg");
    const ImageEventBackgroundPicture kept(image, {}, *image->pngData());
    EXPECT_EQ(pictureJSONValue(std::make_shared<ImageEventBackgroundPicture>(kept))["format"], "png");
}

TEST_F(EventJSONTest, FaultsNameTheirField) {
    const std::string deep(100, '[');
    const std::pair<std::string, const char*> faults[] = {
        {"", "no JSON"},
        {"{", "no JSON"},
        {"[]", "must be an object"},
        {"null", "must be an object"},
        {R"({"identifier": 5})", "field identifier: must be a text"},
        {R"({"name": ["x"]})", "field name: must be a text"},
        {R"({"date": "tomorrow"})", "field date"},
        {R"({"date": 5})", "field date: must be a text"},
        {R"({"dateSeconds": "5"})", "field dateSeconds: must be a number"},
        {R"({"dateSeconds": 1e999})", "no JSON"},
        {R"({"times": 540})", "field times"},
        {R"({"times": [1.5]})", "field times"},
        {R"({"times": [18446744073709551615]})", "field times"},
        {R"({"times": [1e300]})", "field times"},
        {R"({"duration": 5})", "field duration: must be an object"},
        {R"({"duration": {"hour": "2"}})", "field duration.hour: must be a number"},
        {R"({"showAge": 1})", "field showAge"},
        {R"({"intervalFormat": {"units": -1}})", "field intervalFormat.units"},
        {R"({"intervalFormat": {"textStyle": 4}})", "field intervalFormat.textStyle"},
        {R"({"alerts": []})", "field alerts: must be an object"},
        {R"({"alerts": {"list": {}}})", "field alerts.list"},
        {R"({"alerts": {"list": [5]}})", "field alerts.list"},
        {R"({"appearance": {"textColor": "red"}})", "field appearance.textColor"},
        {R"({"appearance": {"textColorComponents": [1, 2, 3]}})", "field appearance.textColorComponents"},
        {R"({"appearance": {"textColorComponents": [1, 2, 0, 1]}})", "field appearance.textColorComponents"},
        {R"({"icon": "heart4.png"})", "field icon: must be an object"},
        {R"({"icon": {"name": "heart4.png"}})", "field icon.kind"},
        {R"({"icon": {"kind": "named"}})", "field icon.name: missing"},
        {R"({"icon": {"kind": "color", "color": "#FF0000"}})", "field icon.kind"},
        {R"({"icon": {"kind": "image"}})", "field icon.file: missing"},
        {R"({"icon": {"kind": "image", "file": "/no/such/file.png"}})", "field icon.file"},
        {R"({"icon": {"kind": "image", "bytes": "!"}})", "field icon.bytes: no base64"},
        {R"({"icon": {"kind": "image", "bytes": "AAAA"}})", "field icon"},
        {R"({"background": {"kind": "color"}})", "field background.color: missing"},
        {R"({"randomBackground": {"kind": "random"}})", "field randomBackground.kind"},
        {R"({"version": "1"})", "field version"},
        {R"({"sourceInfo": {"archive": "AAAA"}})", "field sourceInfo.archive"},
        {R"({"sourceInfo": {"archive": ")" + base64Encoding(storedArchive("style-4")) + "\"}}", "is no text style"},
        {R"({"sourceInfo": )" + deep + std::string(100, ']') + "}", "field sourceInfo: is nested too deeply"},
        {R"({"sourceInfo": )" + std::string(200000, '['), "no JSON"},
    };
    for (const auto& [text, reason] : faults) {
        const auto event = eventFromJSON(text);
        ASSERT_FALSE(event) << text.substr(0, 80);
        EXPECT_EQ(event.error().domain, "event json");
        EXPECT_THAT(event.error().userInfo.at("reason"), HasSubstr(reason));
    }
}

TEST_F(EventJSONTest, TextThatIsNoUTF8IsStillJSON) {
    HHEvent event("i");
    event.setName("\xFF\xFE broken");
    EXPECT_TRUE(eventFromJSON(eventJSON(event)));
}

}  // namespace
}  // namespace dayward
