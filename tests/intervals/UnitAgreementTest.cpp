#include "intervals/UnitAgreement.h"

#include <gtest/gtest.h>

#include "support/TestEnvironment.h"

namespace dayward {
namespace {

TEST(UnitAgreement, BringsRussianUnitsIntoTheFormOfTheirNumbers) {
    const TestEnvironment environment({.locale = "ru_RU"});
    const std::pair<const char*, const char*> texts[] = {
        {"1 День", "1 День"},
        {"2 Дней", "2 Дня"},
        {"4 Лет 11 Месяцев", "4 Года 11 Месяцев"},
        {"5 Недель", "5 Недель"},
        {"21 Часов", "21 Час"},
        {"22 Минут", "22 Минуты"},
        {"25 Секунд", "25 Секунд"},
        {"111 Лет", "111 Лет"},
        {"1 002 Дней", "1 002 Дня"},
        {"- 2 Дней 3 Часов", "- 2 Дня 3 Часа"},
        {"(2 Недель), до 31.01.2020", "(2 Недели), до 31.01.2020"},
    };
    for (const auto& [text, right] : texts) EXPECT_EQ(unitsInAgreement(text, UnitRole::alone), right);
    EXPECT_EQ(unitsInAgreement("Каждые 21 Недель", UnitRole::period), "Каждые 21 Неделю");
    EXPECT_EQ(unitsInAgreement("Каждые 31 Минут", UnitRole::period), "Каждые 31 Минуту");
    EXPECT_EQ(unitsInAgreement("Каждые 111 Недель", UnitRole::period), "Каждые 111 Недель");
    EXPECT_EQ(unitsInAgreement("Каждые 22 Дней", UnitRole::period), "Каждые 22 Дня");
}

TEST(UnitAgreement, LeavesEverythingElse) {
    const char* texts[] = {"", " ", "Дней", "2", "2 ", "2  Дней", "x2 Дней", "2.5 Дней", "2 Домов", "99999999999999999999 Дней"};
    const TestEnvironment russian({.locale = "ru_RU"});
    for (const char* text : texts) EXPECT_EQ(unitsInAgreement(text, UnitRole::alone), text);
    const TestEnvironment english;
    for (const char* text : {"2 Weeks", "1 Day", "Every 21 Minutes (13, 2)", "1,000 Days"}) {
        EXPECT_EQ(unitsInAgreement(text, UnitRole::period), text);
    }
}

}  // namespace
}  // namespace dayward
