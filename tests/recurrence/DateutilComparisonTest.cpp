// Next dates and dates between against an independent evaluator, over random rules and 30 years. Every
// difference needs a cause that the evaluator confirms; what it cannot explain fails.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "recurrence/XELRRuleMath.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

constexpr unsigned kSeed = 19700101;
constexpr int kRulesInUTC = 2600;
constexpr int kRulesInNewYork = 600;

class Cases {
public:
    std::string rule() {
        static const std::vector<std::string> frequencies = {"DAILY", "WEEKLY", "MONTHLY", "YEARLY"};
        const std::string& frequency = frequencies[static_cast<std::size_t>(number(0, 3))];
        const bool isLong = frequency == "MONTHLY" || frequency == "YEARLY";
        std::string text = "FREQ=" + frequency;
        if (chance(2)) text += ";INTERVAL=" + std::to_string(number(1, frequency == "YEARLY" ? 4 : 9));
        if (chance(3)) text += ";BYDAY=" + days(isLong && chance(2));
        if (chance(4)) text += ";BYMONTH=" + list(1, 12, false);
        const bool hasPositions = chance(isLong ? 5 : 15) && text.contains(";BY");
        // libical counts a day twice that is named twice, also as 31 and -1, so positions go without.
        if (chance(4) && frequency != "WEEKLY") text += ";BYMONTHDAY=" + list(1, 31, !hasPositions);
        if (hasPositions) text += ";BYSETPOS=" + list(1, 3, true);
        if (chance(5)) {
            text += ";COUNT=" + std::to_string(number(1, 400));
        } else if (chance(4)) {
            char until[32];
            std::snprintf(until, sizeof until, ";UNTIL=%04d%02d%02dT%02d3000Z", number(2005, 2060), number(1, 12),
                          number(1, 28), number(0, 23));
            text += until;
        }
        return text;
    }

    /// A local time; every third on a day that months or years lack.
    std::string time(int firstYear, int lastYear) {
        const int year = number(firstYear, lastYear);
        const int day = chance(3) ? number(29, 31) : number(1, 28);
        const int month = day > 28 ? 1 + 2 * number(0, 3) : number(1, 12);
        char text[32];
        std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:00", year, month, day, number(0, 23),
                      chance(2) ? 0 : 30);
        return chance(12) ? std::to_string(year / 4 * 4) + "-02-29T09:00:00" : text;
    }

    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine_); }
    bool chance(int oneIn) { return number(1, oneIn) == 1; }

private:
    std::string list(int low, int high, bool mayBeNegative) {
        std::set<int> values;
        for (int i = number(1, 3); i > 0; --i) {
            values.insert(mayBeNegative && chance(4) ? -number(low, high) : number(low, high));
        }
        std::string text;
        for (const int value : values) text += (text.empty() ? "" : ",") + std::to_string(value);
        return text;
    }

    std::string days(bool numbered) {
        static const std::vector<std::string> words = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};
        std::string text;
        int day = number(0, 2);
        for (int i = number(1, 3); i > 0; --i, day += 2) {
            if (numbered) text += std::to_string(chance(3) ? -number(1, 2) : number(1, 5));
            text += words[static_cast<std::size_t>(day % 7)] + (i > 1 ? "," : "");
        }
        return text;
    }

    std::mt19937 engine_{kSeed};
};

std::string seconds(Date date) { return std::to_string(static_cast<long long>(date.secondsSince1970())); }

class DateutilComparisonTest : public ::testing::Test {
protected:
    /// Asks about so many rules in a zone and writes the questions with our answers.
    static void addCases(std::vector<std::string>& lines, Cases& cases, const std::string& zone, int howMany) {
        const TestEnvironment environment(TestEnvironment::Options{.zone = zone});
        for (int i = 0; i < howMany; ++i) {
            const std::string rule = cases.rule();
            const int startYear = cases.number(2000, 2030);
            // The evaluator walks every occurrence, so that far targets are the exception.
            const bool isNear = !cases.chance(rule.starts_with("FREQ=DAILY") ? 8 : 3);
            const std::string start = cases.time(startYear, startYear);
            std::string from = cases.time(startYear - 1, startYear + (isNear ? 3 : 30));
            if (cases.chance(4)) from = from.substr(0, 10) + start.substr(10);
            const Date to = environment.at(from) + TimeInterval(cases.number(1, 900) * 86400.0);
            const int most = cases.number(1, 12);
            const XELRRuleMath math(rule, environment.at(start));
            const auto next = math.dateAfterDate(environment.at(from));
            std::string between;
            for (const Date date : math.datesFromDate(environment.at(from), to, static_cast<std::size_t>(most))) {
                between += (between.empty() ? "" : " ") + seconds(date);
            }
            lines.push_back(zone + "\t" + rule + "\t" + start + "\t" + from + "\t" + environment.text(to) + "\t" +
                            std::to_string(most) + "\t" + (next ? seconds(*next) : "-") + "\t" +
                            (between.empty() ? "-" : between));
        }
    }

    static std::vector<std::string> verdicts(const std::vector<std::string>& lines, const std::string& home) {
        const std::string questions = home + "/questions";
        const std::string answers = home + "/answers";
        std::ofstream output(questions);
        for (const std::string& line : lines) output << line << "\n";
        output.close();
        const std::string command =
            "/usr/bin/python3 " + std::string(DAYWARD_DATEUTIL_SCRIPT) + " <" + questions + " >" + answers;
        if (std::system(command.c_str()) != 0) ADD_FAILURE() << "the evaluator failed; is python3-dateutil there?";
        std::vector<std::string> result;
        std::ifstream input(answers);
        for (std::string line; std::getline(input, line);) result.push_back(line);
        return result;
    }
};

TEST_F(DateutilComparisonTest, EveryDifferenceHasItsCause) {
    std::printf("seed %u\n", kSeed);
    Cases cases;
    std::vector<std::string> lines;
    addCases(lines, cases, "UTC", kRulesInUTC);
    addCases(lines, cases, "America/New_York", kRulesInNewYork);
    const TestEnvironment environment;
    const auto results = verdicts(lines, environment.home);
    ASSERT_EQ(results.size(), lines.size());

    std::map<std::string, int> table;
    int unexplained = 0;
    for (std::size_t i = 0; i < results.size(); ++i) {
        const bool isExplained = !results[i].starts_with("UNEXPLAINED");
        ++table[isExplained ? results[i] : "UNEXPLAINED"];
        if (!isExplained && ++unexplained <= 20) ADD_FAILURE() << lines[i] << "\n" << results[i];
    }
    for (const auto& [cause, count] : table) std::printf("%6d  %s\n", count, cause.c_str());
    EXPECT_EQ(unexplained, 0);
    EXPECT_GT(table["same"], static_cast<int>(lines.size()) / 2);
}

}  // namespace
}  // namespace dayward
