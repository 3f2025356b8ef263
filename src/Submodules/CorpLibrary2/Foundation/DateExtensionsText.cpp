#include <map>
#include <tuple>

#include "Submodules/CorpLibrary2/Foundation/DateExtensions.h"
#include "platform/Environment.h"

namespace dayward {

namespace {

using Style = DateFormatter::Style;

/// Formatters are costly to build, so that each environment keeps one for each pair of styles and zone.
class StyleFormatters {
public:
    explicit StyleFormatters(Environment& environment) : environment_(environment) {}

    DateFormatter formatter(Style dateStyle, Style timeStyle) {
        const TimeZone zone = environment_.timeZone();
        const Lock lock(mutex_);
        const auto key = std::tuple(dateStyle, timeStyle, zone.name());
        auto found = formatters_.find(key);
        if (found == formatters_.end()) {
            const auto made = DateFormatter::withStyles(dateStyle, timeStyle, environment_.locale(), zone);
            found = formatters_.emplace(key, made).first;
        }
        return found->second;
    }

private:
    Environment& environment_;
    Mutex mutex_;
    std::map<std::tuple<Style, Style, std::string>, DateFormatter> formatters_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace

std::string stringWithDateStyle(Date date, Style dateStyle, Style timeStyle) {
    return Environment::current().shared<StyleFormatters>().formatter(dateStyle, timeStyle).stringFromDate(date);
}

std::string shortString(Date date) { return stringWithDateStyle(date, Style::short_, Style::short_); }
std::string mediumString(Date date) { return stringWithDateStyle(date, Style::medium, Style::medium); }
std::string longString(Date date) { return stringWithDateStyle(date, Style::long_, Style::long_); }
std::string shortTimeString(Date date) { return stringWithDateStyle(date, Style::none, Style::short_); }
std::string mediumTimeString(Date date) { return stringWithDateStyle(date, Style::none, Style::medium); }
std::string longTimeString(Date date) { return stringWithDateStyle(date, Style::none, Style::long_); }
std::string shortDateString(Date date) { return stringWithDateStyle(date, Style::short_, Style::none); }
std::string mediumDateString(Date date) { return stringWithDateStyle(date, Style::medium, Style::none); }
std::string longDateString(Date date) { return stringWithDateStyle(date, Style::long_, Style::none); }

}  // namespace dayward
