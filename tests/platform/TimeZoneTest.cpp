// Zones against an independent reader of the same database, and files that are broken on purpose.
#include "platform/TimeZone.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <map>
#include <random>
#include <set>
#include <sstream>

#include "platform/ZoneRules.h"

namespace dayward {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t kYear1970 = 0, kYear2060 = 2840140800;

Date instant(std::int64_t since1970) { return Date::since1970(static_cast<double>(since1970)); }
std::int64_t since1970(Date date) { return static_cast<std::int64_t>(date.secondsSince1970()); }
std::int64_t offsetAt(const TimeZone& zone, std::int64_t at) { return zone.secondsFromUTC(instant(at)); }
std::int64_t instantOfLocal(const TimeZone& zone, std::int64_t local) {
    return since1970(zone.instantOfLocal(static_cast<double>(local) - Date::kReferenceSince1970));
}

TimeZone zoneNamed(const std::string& name) {
    auto zone = TimeZone::named(name);
    EXPECT_TRUE(zone) << name;
    return zone ? *zone : TimeZone::utc();
}

class FreshDirectory {
public:
    FreshDirectory() {
        std::string path = (fs::temp_directory_path() / "dayward-zones-XXXXXX").string();
        EXPECT_NE(::mkdtemp(path.data()), nullptr);
        path_ = path;
    }
    ~FreshDirectory() { fs::remove_all(path_); }
    [[nodiscard]] const fs::path& path() const { return path_; }
    void write(const std::string& name, std::string_view content) const {
        fs::create_directories((path_ / name).parent_path());
        std::ofstream(path_ / name, std::ios::binary) << content;
    }

private:
    fs::path path_;
};

/// Sets a variable of the process, and gives it its old value back.
class Variable {
public:
    Variable(const char* name, const std::string& value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        ::setenv(name, value.c_str(), 1);
    }
    ~Variable() { old_ ? ::setenv(name_, old_->c_str(), 1) : ::unsetenv(name_); }

private:
    const char* name_;
    std::optional<std::string> old_;
};

std::string contentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::int64_t> transitionsOf(const TimeZone& zone) {
    std::vector<std::int64_t> result;
    for (auto next = zone.nextTransitionAfter(instant(kYear1970)); next && since1970(*next) < kYear2060;
         next = zone.nextTransitionAfter(*next)) {
        result.push_back(since1970(*next));
    }
    return result;
}

struct Questions {
    std::vector<std::int64_t> instants, locals;
};

Questions questionsFor(const TimeZone& zone) {
    Questions questions;
    for (const std::int64_t change : transitionsOf(zone)) {
        for (const std::int64_t at : {change - 1, change}) questions.instants.push_back(at);
        const std::int64_t before = offsetAt(zone, change - 1), after = offsetAt(zone, change);
        for (const std::int64_t local : {change + before - 1, change + before, change + after - 1, change + after,
                                         change + (before + after) / 2}) {
            questions.locals.push_back(local);
        }
    }
    constexpr std::int64_t kMonth = 2629746;
    for (const std::int64_t start :
         {std::int64_t{-6000000000}, std::int64_t{-2000000000}, std::int64_t{2208988800}, std::int64_t{4102444800},
          std::int64_t{14745801600}, std::int64_t{16725225600}, std::int64_t{32503680000},
          std::int64_t{221845392000}}) {  // before 1800, 1906, 2040, 2100, 2437, 2500, 3000, 9000
        for (std::int64_t month = 0; month < 14; ++month) {
            questions.instants.push_back(start + month * kMonth);
            questions.locals.push_back(start + month * kMonth);
        }
    }
    return questions;
}

std::string joined(const std::vector<std::int64_t>& numbers) {
    std::string text;
    for (const std::int64_t number : numbers) text += std::to_string(number) + ' ';
    return text;
}

std::vector<std::string> answersOf(const std::string& input) {
    const FreshDirectory directory;
    directory.write("questions", input);
    const std::string command =
        std::string("/usr/bin/python3 ") + DAYWARD_ZONE_ANSWERS + " < " + (directory.path() / "questions").string();
    std::FILE* pipe = ::popen(command.c_str(), "r");
    std::string output;
    char buffer[65536];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, pipe)) output.append(buffer, count);
    EXPECT_EQ(::pclose(pipe), 0) << "the other reader failed";
    std::vector<std::string> lines;
    std::istringstream stream(output);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

void compare(const TimeZone& zone, const Questions& questions, const std::string& answers) {
    SCOPED_TRACE(zone.name());
    const auto firstBar = answers.find('|'), secondBar = answers.find('|', firstBar + 1);
    std::istringstream offsets(answers.substr(0, firstBar));
    for (const std::int64_t at : questions.instants) {
        std::int64_t expected = 0;
        ASSERT_TRUE(offsets >> expected);
        ASSERT_EQ(offsetAt(zone, at), expected) << "at " << at;
    }
    std::istringstream instants(answers.substr(firstBar + 1, secondBar - firstBar - 1));
    for (const std::int64_t local : questions.locals) {
        std::int64_t expected = 0;
        ASSERT_TRUE(instants >> expected);
        ASSERT_EQ(instantOfLocal(zone, local), expected) << "local " << local;
    }
    const auto own = transitionsOf(zone);
    const std::set<std::int64_t> known(own.begin(), own.end());
    std::istringstream changes(answers.substr(secondBar + 1));
    for (std::string change; changes >> change;) {
        const std::int64_t at = std::stoll(change);
        ASSERT_TRUE(known.contains(at)) << "missed the change at " << at;
        ASSERT_EQ(offsetAt(zone, at), std::stoll(change.substr(change.find(':') + 1)));
    }
}

TEST(TimeZone, EveryZoneAgreesWithAnIndependentReader) {
    const auto names = TimeZone::knownNames();
    ASSERT_GT(names.size(), 400U);
    std::vector<std::pair<TimeZone, Questions>> asked;
    std::string input;
    std::map<std::string, std::string> nameOfContent;  // aliases are copies of the same file
    for (const std::string& name : names) {
        const TimeZone zone = zoneNamed(name);
        if (!nameOfContent.emplace(contentOf("/usr/share/zoneinfo/" + name), name).second) continue;
        Questions questions = questionsFor(zone);
        input += name + '|' + joined(questions.instants) + '|' + joined(questions.locals) + '\n';
        asked.emplace_back(zone, std::move(questions));
    }
    const auto answers = answersOf(input);
    ASSERT_EQ(answers.size(), asked.size());
    for (std::size_t i = 0; i < asked.size(); ++i) {
        compare(asked[i].first, asked[i].second, answers[i]);
        if (HasFatalFailure()) return;
    }
}

TEST(TimeZone, RepeatedTimesAreTheFirstPass) {
    const TimeZone berlin = zoneNamed("Europe/Berlin");
    const std::int64_t firstPass = instantOfLocal(berlin, 1792895400);  // 2026-10-25 02:30
    EXPECT_EQ(offsetAt(berlin, firstPass), 7200);
    EXPECT_TRUE(berlin.isDaylightSaving(instant(firstPass)));
    EXPECT_EQ(offsetAt(berlin, firstPass + 3600), 3600);
    EXPECT_FALSE(berlin.isDaylightSaving(instant(firstPass + 3600)));
    EXPECT_EQ(berlin.localOfInstant(instant(firstPass)), berlin.localOfInstant(instant(firstPass + 3600)));
}

TEST(TimeZone, KeepsFractionsAndBearsAnyNumber) {
    const TimeZone berlin = zoneNamed("Europe/Berlin");
    EXPECT_EQ(berlin.localOfInstant(Date::sinceReference(-0.25)), 3599.75);
    EXPECT_EQ(berlin.instantOfLocal(3599.75), Date::sinceReference(-0.25));
    // A quarter of a second before the clocks change is still before.
    EXPECT_EQ(berlin.secondsFromUTC(Date::since1970(1774746000 - 0.25)), 3600);
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const double number : {1e15, -1e15, 1e18, -1e18, 1e300, -1e300, kInfinity, -kInfinity, std::nan("")}) {
        const std::int64_t offset = berlin.secondsFromUTC(Date::sinceReference(number));
        EXPECT_TRUE(offset == 3600 || offset == 7200 || offset == 3208)
            << number;  // 3208 before there was a standard time
        (void)berlin.instantOfLocal(number);
        (void)berlin.nextTransitionAfter(Date::sinceReference(number));
    }
    EXPECT_FALSE(TimeZone::utc().nextTransitionAfter(Date()));
    EXPECT_FALSE(berlin.nextTransitionAfter(instant(-30000000000)));  // in the year 1019
}

TEST(TimeZone, RefusesHostileNames) {
    for (const std::string name :
         {"", "/", "..", "../../etc/passwd", "/etc/localtime", "/usr/share/zoneinfo/UTC", "Europe", "Europe/",
          "/Europe/Berlin", "Europe//Berlin", "Europe/../Europe/Berlin", "Europe/Nowhere", "./Europe/Berlin",
          "zone.tab", "right/Europe/Berlin", "Europe/Berlin\n", "a b"}) {
        const auto zone = TimeZone::named(name);
        ASSERT_FALSE(zone) << name;
        EXPECT_EQ(zone.error().domain, "time zone");
    }
    EXPECT_FALSE(TimeZone::named(std::string("Europe/Berlin\0x", 15)));
    EXPECT_FALSE(TimeZone::named(std::string(100000, 'a')));
}

TEST(TimeZone, FindsTheZoneOfTheDevice) {
    const std::pair<const char*, const char*> cases[] = {
        {"Europe/Moscow", "Europe/Moscow"},
        {":Asia/Tokyo", "Asia/Tokyo"},
        {"", "UTC"},
        {"/usr/share/zoneinfo/America/Lima", "America/Lima"},
        {"<+0330>-3:30", "<+0330>-3:30"},
        {":/usr/share/zoneinfo/Asia/Tokyo", "Asia/Tokyo"},
    };
    for (const auto& [value, name] : cases) {
        const Variable variable("TZ", value);
        EXPECT_EQ(TimeZone::system().name(), name) << value;
    }
    const Variable variable("TZ", "<+0330>-3:30");
    EXPECT_EQ(offsetAt(TimeZone::system(), 0), 12600);
    const FreshDirectory directory;
    const std::string copy = directory.path() / "zone";
    fs::copy_file("/usr/share/zoneinfo/Asia/Kathmandu", copy);
    const Variable file("TZ", copy);
    EXPECT_EQ(TimeZone::system().name(), copy);
    EXPECT_EQ(offsetAt(TimeZone::system(), 600000000), 20700);
    for (const char* text : {"../../etc/passwd", "/etc/passwd", "/", "/dev/zero"}) {
        const Variable nonsense("TZ", text);
        EXPECT_NE(TimeZone::system().name(), text) << "falls through to what the machine says, or UTC";
    }
}

/// The quick lookup says what the table says, around each of the first changes after 1900.
void expectTheSameOffsetsByBucket(const ZoneRules& rules) {
    std::optional<std::int64_t> change = -2208988800;
    for (int left = 500; left > 0 && change; --left, change = rules.nextTransitionAfter(*change)) {
        for (const std::int64_t at : {*change - 1, *change, *change + 90000})
            ASSERT_EQ(rules.offsetAt(at), rules.at(at).offset) << at;
    }
}

/// Asks all that can be asked; the sanitizers watch.
void exercise(const ZoneRules& rules) {
    expectTheSameOffsetsByBucket(rules);
    for (const std::int64_t at : {std::int64_t{-4000000000000000000}, std::int64_t{-1} << 60, std::int64_t{-5364662401},
                                  std::int64_t{0}, std::int64_t{17000000000}, std::int64_t{4000000000000000000}}) {
        ASSERT_LE(std::abs(rules.at(at).offset), 26 * 3600);
        ASSERT_LE(std::abs(rules.offsetOfLocal(at)), 26 * 3600);
        (void)rules.nextTransitionAfter(at);
    }
}

Result<ZoneRules> parse(const std::string& content) {
    return ZoneRules::parse(std::span(reinterpret_cast<const std::uint8_t*>(content.data()), content.size()));
}

TEST(ZoneRules, EveryTruncationIsAnError) {
    const std::string content = contentOf("/usr/share/zoneinfo/Europe/Berlin");
    ASSERT_TRUE(parse(content));
    for (std::size_t length = 0; length < content.size(); ++length)
        ASSERT_FALSE(parse(content.substr(0, length))) << length;
}

TEST(ZoneRules, DamagedFilesNeitherCrashNorLoop) {
    std::random_device device;
    const unsigned seed = device();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    for (const char* name : {"Europe/Berlin", "Etc/UTC", "Africa/Casablanca"}) {
        const std::string content = contentOf(std::string("/usr/share/zoneinfo/") + name);
        for (int round = 0; round < 3000; ++round) {
            std::string damaged = content;
            for (unsigned flips = 1 + random() % 4; flips > 0; --flips) {
                // Half of the damage goes into the header, where the counts are.
                const std::size_t range =
                    random() % 2 == 0 ? std::min<std::size_t>(44, damaged.size()) : damaged.size();
                damaged[random() % range] = static_cast<char>(random());
            }
            if (const auto rules = parse(damaged)) exercise(*rules);
        }
    }
}

/// A version 2 file with one type, no transitions in the first block and the given ones in the second.
std::string handMade(const std::vector<std::int64_t>& transitions, std::string_view footer,
                     std::int32_t offset = 3600) {
    const auto number = [](std::int64_t value, int size) {
        std::string bytes;
        for (int shift = (size - 1) * 8; shift >= 0; shift -= 8) bytes += static_cast<char>(value >> shift);
        return bytes;
    };
    const auto block = [&](const std::vector<std::int64_t>& times) {
        std::string bytes = "TZif2" + std::string(15, '\0');
        for (const std::size_t count :
             {std::size_t{0}, std::size_t{0}, std::size_t{0}, times.size(), std::size_t{2}, std::size_t{4}}) {
            bytes += number(static_cast<std::int64_t>(count), 4);
        }
        for (const std::int64_t time : times) bytes += number(time, 8);
        for (std::size_t i = 0; i < times.size(); ++i) bytes += static_cast<char>(i % 2 == 0 ? 1 : 0);
        bytes += number(0, 4) + std::string(2, '\0') + number(offset, 4) + std::string(2, '\0');
        return bytes + std::string("LMT\0", 4);
    };
    return block({}) + block(transitions) + "\n" + std::string(footer) + "\n";
}

TEST(ZoneRules, ReadsWhatTheFormatAllowsAndRefusesTheRest) {
    struct Case {
        const char* what;
        std::string content;
        bool isSound;
    };
    std::vector<std::int64_t> many(70000);
    for (std::size_t i = 0; i < many.size(); ++i) many[i] = static_cast<std::int64_t>(i);
    const Case cases[] = {
        {"no footer", handMade({0, 10}, ""), true},
        {"extreme times", handMade({INT64_MIN, INT64_MAX}, "CET-1CEST,M3.5.0,M10.5.0/3"), true},
        {"rule for all times", handMade({}, "CET-1CEST,M3.5.0,M10.5.0/3"), true},
        {"not sorted", handMade({10, 0}, ""), false},
        {"too many", handMade(many, ""), false},
        {"offset of 30 hours", handMade({0}, "", 108000), false},
        {"nonsense in the footer", handMade({0}, "CET-1CEST,M13.5.0,M10.5.0"), false},
    };
    for (const Case& c : cases) {
        const auto rules = parse(c.content);
        EXPECT_EQ(rules.has_value(), c.isSound) << c.what;
        if (rules) exercise(*rules);
    }
    const auto forAllTimes = parse(cases[2].content);
    EXPECT_EQ(forAllTimes->at(-3013000000).offset, 7200);  // a July of 1874
    EXPECT_EQ(forAllTimes->at(1782864000).offset, 7200);
    EXPECT_EQ(forAllTimes->at(1767225600).offset, 3600);
}

TEST(PosixZone, RulesOfTheFooter) {
    struct Case {
        const char* text;
        std::int64_t at;
        std::int64_t offset;
    };
    constexpr std::int64_t kJanuary2026 = 1767225600, kJuly2026 = 1782864000;
    const Case cases[] = {
        {"<+03>-3", kJuly2026, 10800},
        {"EST5EDT", kJuly2026, -14400},
        {"IST-1GMT0,M10.5.0,M3.5.0/1", kJanuary2026, 0},
        {"IST-1GMT0,M10.5.0,M3.5.0/1", kJuly2026, 3600},
        {"<+1030>-10:30<+11>-11,M10.1.0,M4.1.0", kJanuary2026, 39600},
        {"XXX3EDT4,0/0,J365/23", kJanuary2026, -14400},  // daylight saving all the year
        {"XXX3EDT4,0/0,J365/23", kJanuary2026 - 1, -14400},
        {"AAA0BBB,J60,J61/2", 1772330400, 3600},  // 1 March 2026 02:00 in a common year,
        {"AAA0BBB,J60,J61/2", 1835488800, 3600},  // and in a leap year
        {"AAA0BBB,J60,J61/2", 1835488799, 0},
        {"AAA0BBB,59,60/2", 1835402400, 3600},                   // the 60th day of a leap year is 29 February
        {"<-02>2<-01>,M3.5.0/-1,M10.5.0/0", 1774745999, -7200},  // the evening before the last Sunday
        {"<-02>2<-01>,M3.5.0/-1,M10.5.0/0", 1774746000, -3600},
        {"IST-2IDT,M3.4.4/26,M10.5.0", 1774569599, 7200},  // 26 hours into the fourth Thursday
        {"IST-2IDT,M3.4.4/26,M10.5.0", 1774569600, 10800},
    };
    for (const Case& c : cases) {
        const auto rules = ZoneRules::ofPosixText(c.text);
        ASSERT_TRUE(rules) << c.text;
        EXPECT_EQ(rules->at(c.at).offset, c.offset) << c.text << " at " << c.at;
        expectTheSameOffsetsByBucket(*rules);
    }
    std::istringstream broken(
        "X XX3 XXX XXX3YYY4, XXX3YYY4,M3.5.0 XXX3YYY4,M3.5.0, XXX3YYY4,M3.5.0,M10.5.0, <+033 <>3 XXX25 XXX3:60 "
        "XXX3YYY,M0.1.0,M10.5.0 XXX3YYY,M3.6.0,M10.5.0 XXX3YYY,M3.5.7,M10.5.0 XXX3YYY,J0,J365 XXX3YYY,366,1 "
        "XXX3YYY,M3.5.0/168,M10.5.0 XXX99999999999999999 XXX--3");
    EXPECT_FALSE(PosixZone::parse(""));
    EXPECT_FALSE(PosixZone::parse("XXX3 "));
    for (std::string text; broken >> text;) {
        EXPECT_FALSE(PosixZone::parse(text)) << text;
    }
}

}  // namespace
}  // namespace dayward
