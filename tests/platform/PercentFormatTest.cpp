#include "platform/PercentFormat.h"

#include <gtest/gtest.h>

#include "platform/TextCase.h"

namespace dayward {
namespace {

TEST(PercentFormat, InsertsArgumentsAndLeavesTheRest) {
    struct Case {
        const char* format;
        std::initializer_list<std::string_view> arguments;
        const char* text;
    };
    const Case cases[] = {
        {"", {"a"}, ""},
        {"%@ is happening!", {"Party"}, "Party is happening!"},
        {"%@##x%lu", {"day", "3"}, "day##x3"},
        {"%d %i %u %ld %li %hd", {"1", "2", "3", "4", "5", "6"}, "1 2 3 4 5 6"},
        {"%2$@, %1$@", {"first", "second"}, "second, first"},
        {"%1$@ %1$lu %@", {"a"}, "a a a"},
        {"100 %% of %@", {"%@"}, "100 % of %@"},
        {"%@ and %@", {"one"}, "one and "},
        {"%0$@|%9$@|%99999999999999999999999$@", {"x"}, "||%99999999999999999999999$@"},
        {"50 % of", {"x"}, "50 % of"},
        {"%", {"x"}, "%"},
        {"%1$", {"x"}, "%1$"},
        {"%s%5@", {"x"}, "%s%5@"},
    };
    for (const auto& each : cases) EXPECT_EQ(formatText(each.format, each.arguments), each.text) << each.format;
}

TEST(TextCase, CapitalisesEachWord) {
    EXPECT_EQ(capitalized("two words", Locale("en")), "Two Words");
    EXPECT_EQ(capitalized("дней И ЧАСОВ", Locale("ru")), "Дней И Часов");
    EXPECT_EQ(capitalized("", Locale("en")), "");
    EXPECT_EQ(capitalized("\xff!", Locale("en")), "\xEF\xBF\xBD!");
}

}  // namespace
}  // namespace dayward
