#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include "support/TestPaths.h"

namespace dayward {
namespace {

using Table = std::map<std::string, std::string>;

Table readTable(const std::string& language, const std::string& name) {
    std::ifstream file(testResources() + "/strings/" + language + "/" + name + ".json");
    return nlohmann::json::parse(file).get<Table>();
}

std::multiset<char> places(const std::string& text) {
    std::multiset<char> kinds;
    for (auto at = text.find('%'); at != std::string::npos; at = text.find('%', at + 1))
        kinds.insert(text[text.find_first_of("@diu% ", at + 1)]);
    return kinds;
}

bool hasRussianLetters(const std::string& text) {
    return text.find("\xD0") != std::string::npos || text.find("\xD1") != std::string::npos;
}

TEST(StringTables, LanguagesHaveTheSameKeysAndPlaces) {
    for (const char* name : {"Main", "XELLocale", "Gallery"}) {
        const auto english = readTable("en", name);
        const auto russian = readTable("ru", name);
        EXPECT_GT(english.size(), 10U);
        for (const auto& [key, text] : english) {
            EXPECT_TRUE(russian.contains(key)) << name << ": " << key;
            EXPECT_EQ(places(text), places(key)) << key;
        }
        for (const auto& [key, text] : russian) {
            EXPECT_TRUE(english.contains(key)) << name << ": " << key;
            EXPECT_EQ(places(text), places(key)) << key;
            EXPECT_TRUE(hasRussianLetters(text) || key.find('?') != std::string::npos) << key;
        }
    }
}

TEST(StringTables, UnitsHaveTheirFormsInBothLanguages) {
    for (const char* language : {"en", "ru"}) {
        const auto table = readTable(language, "XIDLocale");
        for (const char* unit : {"year", "month", "week", "day", "hour", "minute", "second"})
            for (const char* style : {"", "-short", "-symbol"})
                for (const char* form : {"##1", "##plural"})
                    EXPECT_TRUE(table.contains(std::string(unit) + style + form)) << language << unit << style << form;
    }
}

TEST(StringTables, EnglishTextsAreTheirKeys) {
    for (const char* name : {"Main", "Gallery"}) {
        for (const auto& [key, text] : readTable("en", name)) {
            if (text.starts_with("{")) continue;  // the unit names, which are tables themselves
            EXPECT_EQ(text, key);
        }
    }
}

}  // namespace
}  // namespace dayward
