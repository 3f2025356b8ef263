// Locales, texts of numbers and dates, symbols, the plain order of strings, and string tables.
#include <gtest/gtest.h>

#include <limits>
#include <thread>

#include "platform/Calendar.h"
#include "platform/Collation.h"
#include "platform/DateFormatter.h"
#include "platform/FileSystem.h"
#include "platform/NumberFormatter.h"
#include "platform/Strings.h"
#include "support/FaultFileSystem.h"

namespace dayward {
namespace {

using Style = DateFormatter::Style;

TEST(Locale, ReadsEveryWritingOfAName) {
    struct Case {
        const char* name;
        const char* identifier;
        const char* language;
        int firstWeekday;
    };
    const Case cases[] = {
        {"en_US", "en_US", "en", 1},           {"ru_RU.UTF-8", "ru_RU", "ru", 2},   {"de-DE", "de_DE", "de", 2},
        {"de_DE@euro", "de_DE", "de", 2},      {"C", "en_US_POSIX", "en", 1},       {"", "en_US_POSIX", "en", 1},
        {"POSIX", "en_US_POSIX", "en", 1},     {"C.UTF-8", "en_US_POSIX", "en", 1}, {"ar_EG", "ar_EG", "ar", 7},
        {"../../etc", "en_US_POSIX", "en", 1}, {"%n%s", "en_US_POSIX", "en", 1},
    };
    for (const Case& c : cases) {
        const Locale locale(c.name);
        EXPECT_EQ(locale.identifier(), c.identifier);
        EXPECT_EQ(locale.languageCode(), c.language) << c.name;
        EXPECT_EQ(locale.firstWeekday(), c.firstWeekday) << c.name;
    }
    EXPECT_EQ(Locale("de_DE").minimumDaysInFirstWeek(), 4);
    EXPECT_EQ(Locale("en_US").minimumDaysInFirstWeek(), 1);
    EXPECT_EQ(Locale(std::string(100000, 'x')).identifier(), "en_US_POSIX");
}

TEST(NumberFormatter, GroupsAndRoundsHalfToEven) {
    const Locale english("en_US"), russian("ru_RU");
    struct Case {
        const Locale& locale;
        int minimum, maximum;
        double value;
        const char* text;
    };
    const Case cases[] = {
        {english, 0, 0, 1234567.0, "1,234,567"},
        {english, 0, 0, 0.5, "0"},
        {english, 0, 0, 2.5, "2"},
        {english, 2, 2, 0.125, "0.12"},
        {english, 3, 1, 0.5, "0.500"},
        {russian, 2, 2, 1234.5, "1\u00A0234,50"},
        {english, 0, 0, 1e15, "1,000,000,000,000,000"},
    };
    for (const Case& c : cases) EXPECT_EQ(NumberFormatter(c.locale, c.minimum, c.maximum).string(c.value), c.text);
    EXPECT_EQ(NumberFormatter(english, 0, 0).string(std::numeric_limits<double>::infinity()), "∞");
}

class DateText : public ::testing::Test {
protected:
    DateFormatter pattern(const char* text, const TimeZone& zone = TimeZone::utc()) {
        return DateFormatter::withPattern(text, Locale("en_US"), zone);
    }
    TimeZone berlin = *TimeZone::named("Europe/Berlin");
    Date september = Date::since1970(1790000000);  // 2026-09-21 14:13:20 UTC
    Date january = Date::since1970(1800000000);    // 2027-01-15 08:00:00 UTC
};

TEST_F(DateText, FollowsOurZoneData) {
    const char* fields = "yyyy-MM-dd HH:mm:ss ZZZZZ zzzz";
    EXPECT_EQ(pattern(fields, berlin).stringFromDate(september),
              "2026-09-21 16:13:20 +02:00 Central European Summer Time");
    EXPECT_EQ(pattern(fields, berlin).stringFromDate(january),
              "2027-01-15 09:00:00 +01:00 Central European Standard Time");
    const Calendar calendar(berlin);
    for (int year : {1700, 1893, 1945, 2026, 2040, 2500}) {
        const Date july = calendar.date({year, 7, 1, 12});
        EXPECT_EQ(pattern("yyyy-MM-dd HH:mm", berlin).stringFromDate(july), std::to_string(year) + "-07-01 12:00");
    }
    // No Julian calendar: the day before 15 October 1582 is the 14th.
    EXPECT_EQ(pattern("yyyy-MM-dd").stringFromDate(Calendar(TimeZone::utc()).date({1582, 10, 14})), "1582-10-14");
    for (const double number : {1e300, -1e300, std::numeric_limits<double>::infinity(), std::nan("")}) {
        EXPECT_EQ(pattern(fields, berlin).stringFromDate(Date::sinceReference(number)), "");
    }
}

TEST_F(DateText, ParsesWholeTextsOnly) {
    const DateFormatter format = pattern("yyyyMMdd'T'HHmmss'Z'");
    const auto date = format.dateFromString("20200131T101112Z");
    ASSERT_TRUE(date);
    EXPECT_EQ(date->secondsSince1970(), 1580465472);
    for (const char* text : {"", "20200131", "20200131T101112", "20200131T101112Zx", " 20200131T101112Z",
                             "20200131T101112Z ", "2020131T101112Z", "20200231T101112Z", "20201301T101112Z",
                             "20200131T241112Z", "20200131T106112Z", "20200131t101112Z", "20200131T101112z",
                             "2020-01-31T10:11:12Z", "+0200131T101112Z", "٢٠٢٠0131T101112Z", "abcd0131T101112Z"}) {
        EXPECT_FALSE(format.dateFromString(text)) << text;
    }
    EXPECT_FALSE(format.dateFromString(std::string(1000000, '1')));
    EXPECT_FALSE(format.dateFromString(std::string_view("20200131T101112Z\0", 17)));
    const auto named = pattern("d MMMM yyyy").dateFromString("5 March 2026");
    EXPECT_EQ(named, Calendar(TimeZone::utc()).date({2026, 3, 5}));
}

TEST_F(DateText, TemplatesAndBrokenPatterns) {
    EXPECT_EQ(DateFormatter::withStyles(Style::short_, Style::none, Locale("th_TH"), berlin).stringFromDate(september),
              "21/9/26")
        << "Gregorian in every region";
    EXPECT_EQ(DateFormatter::dateFormatFromTemplate("jmm", Locale("ru_RU")), "HH:mm");
    EXPECT_EQ(pattern("").stringFromDate(september), "");
    EXPECT_EQ(pattern("'open").stringFromDate(september), "open");
    (void)pattern("bogus QQQQQQQQ jjjj").stringFromDate(september);
    (void)DateFormatter::dateFormatFromTemplate("???", Locale("en_US"));
}

TEST_F(DateText, ThreadsShareFormattersAndZones) {
    const DateFormatter format = pattern("HH:mm", berlin);
    std::atomic<int> wrong = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&, i] {
            const Date date = i % 2 == 0 ? september : january;
            const std::string expected = i % 2 == 0 ? "16:13" : "09:00";
            for (int round = 0; round < 500; ++round) {
                const auto zone = TimeZone::named(round % 2 == 0 ? "Asia/Kolkata" : "America/Denver");
                if (format.stringFromDate(date) != expected) ++wrong;
                if (zone->instantOfLocal(zone->localOfInstant(date)) != date) ++wrong;
            }
        });
    }
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(wrong, 0);
}

TEST(PlainStringOrder, BytesForAsciiAndCollationOtherwise) {
    struct Case {
        const char* smaller;
        const char* greater;
    };
    for (const Case& c :
         {Case{"", "a"}, Case{"a", "aa"}, Case{"B", "a"}, Case{"Z", "a"}, Case{"a b", "ab"}, Case{"1", "A"},
          Case{"é", "f"}, Case{"e", "é"}, Case{"ä", "b"}, Case{"а", "Б"}, Case{"Б", "в"}, Case{"z", "а"}}) {
        EXPECT_EQ(plainStringOrder(c.smaller, c.greater), std::strong_ordering::less) << c.smaller << " " << c.greater;
        EXPECT_EQ(plainStringOrder(c.greater, c.smaller), std::strong_ordering::greater)
            << c.smaller << " " << c.greater;
    }
    EXPECT_EQ(plainStringOrder("é", "é"), std::strong_ordering::equal);
    // The same letter in two encodings collates equally and is told apart by its code points.
    EXPECT_NE(plainStringOrder("\u00e9", "e\u0301"), std::strong_ordering::equal);
    EXPECT_NE(plainStringOrder("\xff\xfe", "é"), std::strong_ordering::equal);
}

class StringTables : public ::testing::Test {
protected:
    void write(const std::string& path, std::string_view content) {
        ASSERT_TRUE(files.createDirectories(parentPath(path)));
        const Data bytes = dataOf(content);
        ASSERT_TRUE(writeFileAtomically(files, path, bytes));
    }
    FaultFileSystem files;
};

TEST_F(StringTables, LoadALanguageOrEnglish) {
    write("/r/en/Main.json", R"({"Sunday": "Sunday!"})");
    write("/r/ru/Main.json", R"({"Sunday": "Воскресенье"})");
    write("/r/ru/XELLocale.json", R"({"every": "каждый"})");
    write("/r/ru/notes.txt", "no table");
    const auto russian = *Strings::load(files, "/r", "ru");
    EXPECT_EQ(russian->localized("every", "XELLocale"), "каждый");
    EXPECT_EQ(russian->localized("every"), "every");
    EXPECT_EQ(russian->localized("Sunday", "no such table"), "Sunday");
    EXPECT_FALSE(russian->contains("Sunday", "XELLocale"));
    for (const char* language : {"fr", "", "..", "../r/ru", "."}) {
        const auto strings = Strings::load(files, "/r", language);
        ASSERT_TRUE(strings) << language;
        EXPECT_EQ((*strings)->localized("Sunday"), "Sunday!") << language;
    }
}

TEST_F(StringTables, BrokenTablesAreErrorsThatNameTheFile) {
    for (const char* content :
         {"", "{", "[]", "null", R"({"a": 1})", R"({"a": {"b": "c"}})", "\xff\xfe", R"({"a": "b"} x)"}) {
        write("/r/en/Main.json", content);
        const auto strings = Strings::load(files, "/r", "en");
        ASSERT_FALSE(strings) << content;
        EXPECT_EQ(strings.error().userInfo.at("path"), "/r/en/Main.json");
    }
    EXPECT_FALSE(Strings::load(files, "/nowhere", "en"));
    EXPECT_EQ(Strings().localized("key"), "key");
}

}  // namespace
}  // namespace dayward
