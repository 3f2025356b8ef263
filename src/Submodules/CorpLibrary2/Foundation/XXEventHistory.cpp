#include "Submodules/CorpLibrary2/Foundation/XXEventHistory.h"

#include "Submodules/CorpLibrary2/Foundation/ArchivedFile.h"
#include "Submodules/CorpLibrary2/Foundation/EventHistoryDates.h"
#include "platform/Environment.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/Log.h"

namespace dayward {

namespace {

constexpr const char* kDataKey = "data";
constexpr const char* kMaxDatesKey = "_maxDatesForEvent";

constexpr auto kDateItself = [](Date date) { return date; };

}  // namespace

XXEventHistory XXEventHistory::historyWithContentsOfFile(const std::string& path) {
    const auto root = readArchivedFile(Environment::current(), path);
    const auto history = root && *root ? (*root)->as<XXEventHistory>() : nullptr;
    return history ? *history : XXEventHistory();
}

Result<> XXEventHistory::writeToFile(const std::string& path) const {
    auto written = writeArchivedFile(Environment::current(), path, std::make_shared<XXEventHistory>(*this));
    if (!written) logError("XXEventHistory writeToFile: " + path + ", error: " + written.error().description());
    return written;
}

void XXEventHistory::addEvent(const std::string& name) { addEvent(name, Environment::current().now()); }

void XXEventHistory::addEvent(const std::string& name, Date withDate) {
    eventHistory::add(data_[name], withDate, maxDatesForEvent_, kDateItself);
}

std::vector<Date> XXEventHistory::datesForEvent(const std::string& name, std::optional<Date> fromDate,
                                                std::optional<Date> toDate) const {
    const auto found = data_.find(name);
    if (found == data_.end()) return {};
    const auto [first, last] = eventHistory::range(found->second, fromDate, toDate, kDateItself);
    return {first, last};
}

std::size_t XXEventHistory::countEvent(const std::string& name, std::optional<Date> fromDate,
                                       std::optional<Date> toDate) const {
    const auto found = data_.find(name);
    if (found == data_.end()) return 0;
    const auto [first, last] = eventHistory::range(found->second, fromDate, toDate, kDateItself);
    return static_cast<std::size_t>(last - first);
}

std::size_t XXEventHistory::countEventLastDays(const std::string& name, double days) const {
    return countEvent(name, Environment::current().now() - eventHistory::kDay * days);
}

bool XXEventHistory::isExistsEvent(const std::string& name) const { return countEvent(name) > 0; }

std::optional<Date> XXEventHistory::dateToFirstEvent(const std::string& name) const {
    return isExistsEvent(name) ? std::optional(data_.find(name)->second.front()) : std::nullopt;
}

std::optional<Date> XXEventHistory::dateToLastEvent(const std::string& name) const {
    return isExistsEvent(name) ? std::optional(data_.find(name)->second.back()) : std::nullopt;
}

std::optional<TimeInterval> XXEventHistory::timeIntervalToLastEvent(const std::string& name) const {
    const auto date = dateToLastEvent(name);
    return date ? std::optional(Environment::current().now() - *date) : std::nullopt;
}

void XXEventHistory::removeEvent(const std::string& name) { data_.erase(name); }

void XXEventHistory::removeAllEvents() { data_.clear(); }

void XXEventHistory::encodeWithCoder(KeyedArchiver& coder) const {
    Dictionary data;
    for (const auto& [name, dates] : data_) data.emplace(name, Array(dates.begin(), dates.end()));
    coder.encodeVersion(0, kArchiveClassName);
    coder.encodeObject(data, kDataKey);
    coder.encodeInteger(maxDatesForEvent_, kMaxDatesKey);
}

bool XXEventHistory::isEqual(const Archivable& other) const {
    const auto* history = dynamic_cast<const XXEventHistory*>(&other);
    return history && history->data_ == data_ && history->maxDatesForEvent_ == maxDatesForEvent_;
}

std::shared_ptr<Archivable> XXEventHistory::read(KeyedUnarchiver& coder) {
    if (coder.decodeVersion(kArchiveClassName).value_or(0) != 0) return nullptr;
    auto history = std::make_shared<XXEventHistory>();
    history->maxDatesForEvent_ = coder.decodeInteger(kMaxDatesKey).value_or(kDefaultMaxDatesForEvent);
    const Object data = coder.decodeObject(kDataKey);
    if (!data.dictionary()) return history;
    for (const auto& [name, objects] : *data.dictionary()) {
        if (!objects.array()) continue;
        auto& dates = history->data_[name];
        for (const auto& object : *objects.array()) {
            if (const auto date = object.date()) dates.push_back(*date);
        }
        eventHistory::sort(dates, kDateItself);
    }
    return history;
}

}  // namespace dayward
