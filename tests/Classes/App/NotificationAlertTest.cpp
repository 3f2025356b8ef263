// A notification that fires while the program is in sight: the alert over its screens.
#include "Classes/App/NotificationAlertPresenter.h"

#include "AppFixture.h"
#include "alerts/NotificationsManager.h"

namespace dayward {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class NotificationAlertTest : public testing::Test {
protected:
    NotificationAlertTest() {
        NotificationsManager::setPresenter(alerts);
        process.application.launch({});
        process.presenter.take();
        process.take();
    }
    std::vector<std::string> receive(const std::string& event) {
        LocalNotification notification = AppProcess::notification(event);
        notification.alertBody = event + " is happening!";
        NotificationsManager::showNotification(notification);
        process.environment.queues->runAll();
        return process.presenter.take();
    }

    AppProcess process{std::make_shared<FaultFileSystem>()};
    std::shared_ptr<NotificationAlertPresenter> alerts =
        std::make_shared<NotificationAlertPresenter>(process.presenter.navigation);
};

TEST_F(NotificationAlertTest, TakesThePlaceOfTheOneBefore) {
    EXPECT_THAT(receive("Tea"), ElementsAre("alert "));
    EXPECT_EQ(process.presenter.alert.message, "Tea is happening!");
    EXPECT_THAT(receive("Cake"), ElementsAre("dismiss alert Tea is happening!", "alert "));
    process.presenter.answer("OK");
    EXPECT_THAT(process.take(), IsEmpty());
    EXPECT_THAT(receive("Dinner"), ElementsAre("alert "));
}

TEST_F(NotificationAlertTest, OpensItsEvent) {
    receive("Tea");
    process.presenter.answer("Show");
    EXPECT_THAT(process.take(), Contains("present Tea"));
}

TEST_F(NotificationAlertTest, LeavesOtherQuestionsAlone) {
    process.presenter.navigation.alert({"Delete event?", "", {{"Delete"}}});
    process.presenter.take();
    EXPECT_THAT(receive("Tea"), ElementsAre("alert "));
}

}  // namespace
}  // namespace dayward
