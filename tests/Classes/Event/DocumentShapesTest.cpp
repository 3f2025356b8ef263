// Every shape that "general.t" has had, from archives made by another writer.
#include <gmock/gmock.h>
#include <stdio.h>

#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Category/ImageEventBackgroundPicture.h"
#include "Classes/Category/ImageEventIconPicture.h"
#include "Classes/Category/NamedEventBackgroundPicture.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Event/EventJSONValue.h"
#include "Classes/Event/EventTestSupport.h"
#include "Classes/Event/HHGeneralEventDocumentData.h"
#include "Classes/Event/LoadEventBackgroundPicture.h"
#include "Classes/Event/LoadEventIconPicture.h"
#include "platform/ArchiveDump.h"
#include "support/TestPaths.h"

namespace dayward {
namespace {

using DocumentData = HHGeneralEventDocumentData;

class DocumentShapesTest : public testing::Test {
protected:
    /// The stored document as an event in JSON; null where it holds none.
    static JSON read(const std::string& name) {
        const auto data = readStored<DocumentData>(name);
        if (!data) return nullptr;
        HHEvent event("key");
        event.fillStoreInfo(*data);
        return eventJSONValue(event);
    }
    static std::string categoryKeyOf(const char* name) {
        for (const auto& category : CategoryLocalStore::shared().getCategories()) {
            if (category->name == name) return category->key;
        }
        return "no category";
    }

    TestEnvironment environment_{eventOptions()};
};

TEST_F(DocumentShapesTest, EveryShapeReads) {
    const JSON nothing = JSON::parse(R"({"categoryKey": "default", "name": null, "dateSeconds": 794836800.0,
        "times": [0], "rrule": null, "duration": null, "showAge": false,
        "intervalFormat": {"units": 16, "textStyle": 3}, "alerts": {"list": null, "soundName": null},
        "appearance": {"fontName": null, "textColor": null}, "icon": {"kind": "document"},
        "background": {"kind": "document"}, "randomBackground": null, "note": null, "version": 0.0})");
    // Each shape with what differs from an empty archive.
    const std::pair<const char*, const char*> shapes[] = {
        {"empty", "{}"},
        {"full", R"({"name": "Trip to the sea", "categoryKey": "c-17", "dateSeconds": 473299200.25,
            "times": [540, 1080], "duration": {"day": 2, "hour": 0}, "rrule": "FREQ=YEARLY;INTERVAL=1",
            "showAge": true, "intervalFormat": {"units": 48, "textStyle": 2},
            "alerts": {"list": [{"day": 1}, {}, {"hour": -2}], "soundName": "bell.mp3"},
            "appearance": {"fontName": "Papyrus", "textColor": "#FF0080FF", "textColorComponents": [1.0, 0.0, 0.5, 1.0]},
            "note": "Take the blue bag", "icon": {"kind": "named", "name": "heart4.png"},
            "background": {"kind": "color", "color": "#00FF0033"},
            "randomBackground": {"kind": "named", "name": "bg-37.jpg"}, "version": 1795221234.25,
            "sourceInfo": {"importer": "calendar", "number": 3}})"},
        {"category-wins", R"({"categoryKey": "c-9"})"},
        {"type-9", R"({"name": "Of no known type"})"},
        {"no-date", R"({"rrule": "FREQ=DAILY;INTERVAL=3", "times": [60]})"},
        {"no-rule", R"({"dateSeconds": 1000.0, "times": [60, 120]})"},
        {"times-empty", R"({"dateSeconds": 1000.0})"},
        {"times-mixed", R"({"dateSeconds": 1000.0})"},
        {"times-reals", R"({"dateSeconds": 1000.0, "times": [60, -30, 1]})"},
        {"date-nan", R"({"rrule": "FREQ=DAILY;INTERVAL=1"})"},
        {"calendar-anniversary", R"({"dateSeconds": 86400.0, "times": [480], "rrule": "FREQ=YEARLY;INTERVAL=1"})"},
        {"calendar-standard",
         R"({"dateSeconds": 86400.0, "times": [480, 600], "rrule": "FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,WE"})"},
        {"calendar-custom", R"({"dateSeconds": 86400.0, "rrule": "FREQ=YEARLY;INTERVAL=1;BYMONTHDAY=1,2;BYMONTH=5"})"},
        {"calendar-beside-date", R"({"dateSeconds": 1000.0})"},
        {"names-of-resources", R"({"icon": {"kind": "named", "name": "heart4.png"},
            "background": {"kind": "named", "name": "bg-37.jpg"}})"},
        {"names-without-extension", R"({"icon": {"kind": "named", "name": "heart4"},
            "background": {"kind": "named", "name": "heart4"}})"},
        {"names-gone", R"({"background": {"kind": "color", "color": "#FF0000FF"}})"},
        {"names-absolute", "{}"},
        {"null-flags", R"({"icon": null, "background": null})"},
        {"pictures-over-flags", R"({"icon": {"kind": "named", "name": "heart4.png"},
            "background": {"kind": "color", "color": "#0000FFFF"}})"},
        {"picture-without-name", R"({"icon": null})"},
        {"background-as-icon", R"({"icon": null})"},
        {"max-units", R"({"intervalFormat": {"units": 20, "textStyle": 1}})"},
        {"nested-mistyped", "{}"},
        {"mistyped", "{}"},
    };
    for (const auto& [name, differs] : shapes) {
        const JSON event = read(name);
        ASSERT_TRUE(event.is_object()) << name;
        JSON expected = nothing;
        const JSON differences = JSON::parse(differs);
        for (const auto& [key, value] : differences.items()) expected[key] = value;
        for (const auto& [key, value] : expected.items()) EXPECT_EQ(event[key], value) << name << " " << key;
    }
    EXPECT_TRUE(read("no-event").is_null());
}

TEST_F(DocumentShapesTest, AnOldTypeMakesItsCategory) {
    EXPECT_EQ(categoryKeyOf("Holiday"), "no category");
    const JSON event = read("type-5");
    EXPECT_EQ(event["name"], "Old holiday");
    EXPECT_EQ(event["times"], JSON::array({0}));
    EXPECT_EQ(event["categoryKey"], categoryKeyOf("Holiday"));
    EXPECT_EQ(read("type-5")["categoryKey"], event["categoryKey"]);
}

TEST_F(DocumentShapesTest, AnUnknownSourceIsWrittenBackAsItWas) {
    const auto data = readStored<DocumentData>("source-of-unknown-class");
    ASSERT_TRUE(data->sourceInfo.record());
    const auto dump = *archiveAsJSON(KeyedArchiver::archivedDataWithRootObject(data));
    for (const char* part : {"Importer", "Inside", "Flag"}) EXPECT_THAT(dump, testing::HasSubstr(part));
    const auto back = rewritten(data);
    EXPECT_EQ(back->sourceInfo, data->sourceInfo);
}

TEST_F(DocumentShapesTest, CorruptFormatsStopTheProcess) {
    EXPECT_DEATH((void)read("units-negative"), "");
    EXPECT_DEATH((void)read("style-4"), "");
}

TEST_F(DocumentShapesTest, KeysComeOutInTheirOrder) {
    HHEvent event("key");
    event.setName("n");
    const JSON root = JSON::parse(*archiveAsJSON(KeyedArchiver::archivedDataWithRootObject(event.getStoreInfo())));
    std::vector<std::string> keys;
    for (const auto& [key, value] : root.items()) {
        if (!key.starts_with('$')) keys.push_back(key);
    }
    EXPECT_THAT(keys, testing::ElementsAre("Type", "SourceInfo", "Name", "Category", "Date", "Times", "Duration",
                                           "RRule", "ShowYear", "DateFormat", "Alerts", "Appearance", "Note",
                                           "IconSystemName", "BackgroundSystemName", "BackgroundColor", "p001", "p004",
                                           "p002", "p003", "p005", "p006"));
    EXPECT_EQ(root["Type"], 0);
    EXPECT_EQ(root["Appearance"]["HHEventAppearance"], 1);
    EXPECT_EQ(root["Alerts"]["HHEventAlerts"], 0);
    EXPECT_EQ(root["DateFormat"]["HHEventDateFormat"], 0);
    EXPECT_TRUE(root["IconSystemName"].is_null());
}

TEST_F(DocumentShapesTest, AnotherReaderOfTheFormatListsTheSame) {
    const auto archive = KeyedArchiver::archivedDataWithRootObject(readStored<DocumentData>("full"));
    const auto path = joinPath(environment_.home, "general.t");
    ASSERT_TRUE(writeFileAtomically(environment_->files(), path, archive));
    const auto command = "/usr/bin/python3 " + testData() + "/documents/list_archive.py " + path;
    FILE* output = popen(command.c_str(), "r");
    ASSERT_TRUE(output);
    std::string listed;
    for (int byte = fgetc(output); byte != EOF; byte = fgetc(output)) listed += static_cast<char>(byte);
    EXPECT_EQ(pclose(output), 0);
    for (const char* line : {
             "HHGeneralEventDocumentData NSObject\nType: 0\nSourceInfo: NSDictionary(",
             "\nName: Trip to the sea\nCategory: c-17\nDate: date 473299200.25\nTimes: [540, 1080]\n"
             "Duration: XDIDateInterval(XDIDateInterval 0, Day 2, Hour 0)\nRRule: FREQ=YEARLY;INTERVAL=1\n"
             "ShowYear: True\nDateFormat: HHEventDateFormat(HHEventDateFormat 0, Units 48, UnitsFormatType 2)\n"
             "Alerts: HHEventAlerts(HHEventAlerts 0, List [XDIDateInterval(XDIDateInterval 0, Day 1), "
             "XDIDateInterval(XDIDateInterval 0), XDIDateInterval(XDIDateInterval 0, Hour -2)], SoundName bell.mp3)\n"
             "Appearance: HHEventAppearance(HHEventAppearance 1, FontName Papyrus, FontColor UIColor(",
             "\nNote: Take the blue bag\nIconSystemName: $null\nBackgroundSystemName: $null\n"
             "BackgroundColor: $null\np001: c002(p001 heart4.png)\np004: False\np002: c006(p001 UIColor(",
             "\np003: c004(p001 bg-37.jpg)\np005: False\np006: _csy001(v 1795221234.25)\n",
         }) {
        EXPECT_THAT(listed, testing::HasSubstr(line));
    }
}

TEST_F(DocumentShapesTest, OnlyNamedAndColoredPicturesGoIntoTheArchive) {
    const auto image = testImage();
    HHEvent event("key");
    const auto info = [&] { return event.getStoreInfo(); };
    EXPECT_TRUE(info()->icon_is_null && info()->background_is_null);
    EXPECT_EQ(info()->syncVersion, CCSyncItemVersion::zero());

    const auto named = std::make_shared<NamedEventIconPicture>("n");
    event.setIcon(named);
    event.setBackground(std::make_shared<NamedEventBackgroundPicture>("b"));
    event.setRandomBackground(std::make_shared<ColorEventBackgroundPicture>(Color::white()));
    EXPECT_EQ(info()->icon, named);
    EXPECT_EQ(info()->background, event.background());
    EXPECT_EQ(info()->randomBackground, event.randomBackground());

    event.setIcon(std::make_shared<ImageEventIconPicture>(image));
    event.setBackground(std::make_shared<ImageEventBackgroundPicture>(image));
    event.setRandomBackground(std::make_shared<ImageEventBackgroundPicture>(image));
    EXPECT_FALSE(info()->icon || info()->background || info()->randomBackground);
    EXPECT_FALSE(info()->icon_is_null || info()->background_is_null);
}

TEST_F(DocumentShapesTest, FillingDropsTheKeptCalculation) {
    HHEvent event("key");
    const auto before = event.datesCalculation();
    event.fillStoreInfo(DocumentData());
    EXPECT_NE(event.datesCalculation(), before);
}

}  // namespace
}  // namespace dayward
