// The application's identity: its numbers and names, when it was installed and updated, how often
// it was started. Class operations act on the current environment; the main thread.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/Date.h"
#include "platform/NotificationCenter.h"

namespace dayward {

class Environment;

class CCApp {
public:
    /// What the program says about itself; nothing where it says nothing.
    struct Information {
        std::optional<std::string> bundleIdentifier;
        std::optional<std::string> displayName;
        std::optional<std::string> shortVersion;
        std::optional<std::string> bundleVersion;
    };

    /// To be called before initializeAppWithAppId().
    static void setInformation(Information information);
    /// Records the install, a change of version, and this start; writes history and values; reports
    /// the launch; from then on both are written whenever the platform says that the launch finished
    /// or the background was entered.
    static void initializeAppWithAppId(const std::string& appId, const std::string& appleId);

    static std::string appId();
    static std::string appleId();
    static std::string companyId();
    static void setCompanyId(const std::string& identifier);
    static std::string feedbackMail();
    static void setFeedbackMail(const std::string& address);
    static std::string marketName();
    static void setMarketName(const std::string& name);
    /// Scheme and host of the store, before the path of shareLink().
    static void setStoreAddress(const std::string& address);

    static std::optional<std::string> bundleIdentifier();
    static std::optional<std::string> displayName();
    static std::optional<std::string> shortVersion();
    static std::optional<std::string> bundleVersion();

    /// Of the newest install event; now where there is none.
    static Date installDate();
    /// Of the newest update event, else of the install; now where there is neither.
    static Date releaseDate();
    /// This is the first recorded start.
    static bool isFirstStart();
    /// Starts up to now.
    static std::size_t startCount();
    /// Starts from releaseDate() up to now.
    static std::size_t releaseStartCount();
    /// The application's page in the store.
    static std::string shareLink();

    /// Writes history and values, in this order.
    static void synchronize();

    explicit CCApp(Environment& environment);
    ~CCApp();

private:
    class AppDelegateHelper;

    static CCApp& shared();

    Environment& environment_;
    Information information_;
    std::string appId_, appleId_, companyId_, feedbackMail_, marketName_, storeAddress_;
    std::unique_ptr<AppDelegateHelper> helper_;
};

}  // namespace dayward
