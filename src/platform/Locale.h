// The user's language and region. An immutable value; any thread.
#pragma once

#include <string>

namespace dayward {

class Locale {
public:
    Locale() : Locale("en_US") {}
    /// "en_US", "ru-RU", "ru_RU.UTF-8", "en_US_POSIX"; an empty name, "C" and "POSIX" mean "en_US_POSIX".
    explicit Locale(std::string identifier);
    /// From $LC_ALL, $LC_TIME, $LANG, in this order.
    static Locale system();

    [[nodiscard]] const std::string& identifier() const { return identifier_; }
    [[nodiscard]] const std::string& languageCode() const { return languageCode_; }
    /// 1 (Sunday) to 7 (Saturday), by the region's custom.
    [[nodiscard]] int firstWeekday() const { return firstWeekday_; }
    [[nodiscard]] int minimumDaysInFirstWeek() const { return minimumDaysInFirstWeek_; }

    bool operator==(const Locale& other) const { return identifier_ == other.identifier_; }

private:
    std::string identifier_;
    std::string languageCode_;
    int firstWeekday_ = 1;
    int minimumDaysInFirstWeek_ = 1;
};

}  // namespace dayward
