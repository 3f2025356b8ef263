// What an alert says: its time where it is late, markup that is none, counts in their forms.
#include <gtest/gtest.h>

#include "agent/desktop/AlertTexts.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

TestEnvironment::Options in(const std::string& locale) {
    TestEnvironment::Options options;
    options.zone = "Europe/Moscow";
    options.locale = locale;
    return options;
}

DueAlert alert(const std::string& body, Date due, bool isLate) {
    DueAlert made;
    made.notification.alertBody = body;
    made.due = due;
    made.isLate = isLate;
    return made;
}

std::string plain(std::string text) {
    for (const std::string_view blank : {"\u202f", "\u00a0"}) {
        for (std::size_t at = 0; (at = text.find(blank)) != std::string::npos;) text.replace(at, blank.size(), " ");
    }
    return text;
}

TEST(AlertTexts, ALateAlertTellsItsOwnTimeInTheLocalesCustoms) {
    const TestEnvironment english(in("en_US"));
    const Date morning = english.at("2026-03-10T09:05:00"), yesterday = english.at("2026-03-09T21:30:00");
    EXPECT_EQ(textOfAlert(alert("Fair!", morning, false), BodyKind::plain).body, "Fair!");
    EXPECT_EQ(plain(textOfAlert(alert("Fair!", morning, true), BodyKind::plain).body), "Fair!\n9:05 AM");
    EXPECT_EQ(plain(textOfAlert(alert("Fair!", yesterday, true), BodyKind::plain).body), "Fair!\nMar 9, 2026, 9:30 PM");
    EXPECT_EQ(plain(textOfAlert(alert("Fair!", morning, true), BodyKind::none).summary), "9:05 AM – Fair!");
    const TestEnvironment russian(in("ru_RU"));
    EXPECT_EQ(textOfAlert(alert("Ярмарка", morning, true), BodyKind::plain).body, "Ярмарка\n09:05");
}

TEST(AlertTexts, OnlyAServiceThatKnowsMarkupGetsItEscaped) {
    const TestEnvironment environment(in("en_US"));
    const DueAlert due = alert("<b>Fish & \"chips\"</b>", environment->now(), false);
    EXPECT_EQ(textOfAlert(due, BodyKind::markup).body, "&lt;b&gt;Fish &amp; \"chips\"&lt;/b&gt;");
    EXPECT_EQ(textOfAlert(due, BodyKind::plain).body, "<b>Fish & \"chips\"</b>");
    EXPECT_EQ(textOfAlert(due, BodyKind::none).summary, "<b>Fish & \"chips\"</b>");
}

TEST(AlertTexts, ADigestCountsInTheFormsOfTheLanguage) {
    const auto title = [](const TestEnvironment& environment, std::size_t count) {
        return textOfDigest(std::vector(count, alert("x", environment->now(), true)), BodyKind::plain).summary;
    };
    {
        const TestEnvironment english(in("en_GB"));
        EXPECT_EQ(title(english, 1), "1 missed alert");
        EXPECT_EQ(title(english, 3), "3 missed alerts");
    }
    const TestEnvironment russian(in("ru_RU"));
    EXPECT_EQ(title(russian, 3), "3 пропущенных напоминания");
    EXPECT_EQ(title(russian, 5), "5 пропущенных напоминаний");
    EXPECT_EQ(title(russian, 21), "21 пропущенное напоминание");
}

TEST(AlertTexts, ADigestListsTheFirstAndCountsTheRest) {
    const TestEnvironment environment(in("en_GB"));
    std::vector<DueAlert> alerts;
    for (int minute = 10; minute < 22; ++minute) {
        alerts.push_back(alert("E" + std::to_string(minute),
                               environment.at("2026-03-10T08:" + std::to_string(minute) + ":00"), true));
    }
    const std::vector<DueAlert> ten(alerts.begin(), alerts.begin() + 10);
    EXPECT_TRUE(textOfDigest(ten, BodyKind::plain).body.ends_with("08:18 – E18\n08:19 – E19"));
    const std::string body = textOfDigest(alerts, BodyKind::plain).body;
    EXPECT_TRUE(body.starts_with("08:10 – E10\n08:11 – E11\n"));
    EXPECT_TRUE(body.ends_with("08:18 – E18\nand 3 more")) << body;
    EXPECT_EQ(textOfDigest(alerts, BodyKind::none).body, "");
}

TEST(AlertTexts, TheApplicationIsToldADigestAsOneNotification) {
    const TestEnvironment environment(in("en_GB"));
    std::vector<DueAlert> alerts{alert("A", environment.at("2026-03-10T08:10:00"), true),
                                 alert("B", environment.at("2026-03-10T08:20:00"), true)};
    alerts[0].notification.soundName = "Harp.wav";
    alerts[1].notification.userInfo = {{"objectKey", "B's"}};
    const LocalNotification digest = notificationOfDigest(alerts);
    EXPECT_EQ(digest.alertBody, "2 missed alerts\n08:10 – A\n08:20 – B");
    EXPECT_EQ(digest.soundName, "Harp.wav");
    EXPECT_EQ(digest.userInfo, alerts[1].notification.userInfo);
}

}  // namespace
}  // namespace dayward
