#include "Submodules/CorpLibrary2/Foundation/CCEventHistory.h"

#include "Submodules/CorpLibrary2/Foundation/ArchivedFile.h"
#include "Submodules/CorpLibrary2/Foundation/EventHistoryDates.h"
#include "platform/Environment.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/Log.h"

namespace dayward {

namespace {

using Entry = CCEventHistory::Entry;

constexpr const char* kDataKey = "data";
constexpr const char* kMaxDatesKey = "maxDatesForEvent";
constexpr const char* kDateKey = "date";
constexpr const char* kUserInfoKey = "userInfo";

Date dateOf(const Entry& entry) { return entry.date; }

Object objectOf(const Entry& entry) {
    Dictionary object{{kDateKey, entry.date}};
    if (entry.userInfo) object.insert_or_assign(kUserInfoKey, *entry.userInfo);
    return object;
}

std::optional<Entry> entryOf(const Object& object) {
    if (const auto date = object.date()) return Entry{*date, {}};
    const auto* dictionary = object.dictionary();
    if (!dictionary) return std::nullopt;
    const auto date = dictionary->find(kDateKey);
    if (date == dictionary->end() || !date->second.date()) return std::nullopt;
    Entry entry{*date->second.date(), {}};
    const auto userInfo = dictionary->find(kUserInfoKey);
    if (userInfo != dictionary->end() && userInfo->second.dictionary()) entry.userInfo = *userInfo->second.dictionary();
    return entry;
}

}  // namespace

Result<CCEventHistory> CCEventHistory::readContentsOfFile(const std::string& path) {
    const auto root = TRY(readArchivedFile(Environment::current(), path));
    const auto history = root ? root->as<CCEventHistory>() : nullptr;
    if (!history) return failure("event history", 0, {{"path", path}, {"reason", "no event history is there"}});
    return *history;
}

Result<> CCEventHistory::writeToFile(const std::string& path) const {
    auto written = writeArchivedFile(Environment::current(), path, std::make_shared<CCEventHistory>(*this));
    if (!written) logError("CCEventHistory writeToFile: " + path + ", error: " + written.error().description());
    return written;
}

void CCEventHistory::addEvent(const std::string& name) { addEvent(name, std::nullopt); }

void CCEventHistory::addEvent(const std::string& name, std::optional<Dictionary> userInfo) {
    addEvent(name, std::move(userInfo), Environment::current().now());
}

void CCEventHistory::addEvent(const std::string& name, std::optional<Dictionary> userInfo, Date date) {
    eventHistory::add(data_[name], Entry{date, std::move(userInfo)}, maxDatesForEvent_, dateOf);
}

std::size_t CCEventHistory::countEvent(const std::string& name, std::optional<Date> fromDate,
                                       std::optional<Date> toDate) const {
    const auto found = data_.find(name);
    if (found == data_.end()) return 0;
    const auto [first, last] = eventHistory::range(found->second, fromDate, toDate, dateOf);
    return static_cast<std::size_t>(last - first);
}

std::size_t CCEventHistory::countEventLastDays(const std::string& name, double days) const {
    return countEvent(name, Environment::current().now() - eventHistory::kDay * days);
}

bool CCEventHistory::containsEvent(const std::string& name) const { return countEvent(name) > 0; }

std::optional<Date> CCEventHistory::dateToLastEvent(const std::string& name, std::int64_t offset) const {
    const auto found = data_.find(name);
    if (found == data_.end() || offset < 0) return std::nullopt;
    const auto& entries = found->second;
    const auto back = static_cast<std::uint64_t>(offset);
    return back < entries.size() ? std::optional(entries[entries.size() - 1 - back].date) : std::nullopt;
}

std::optional<TimeInterval> CCEventHistory::timeIntervalToLastEvent(const std::string& name) const {
    const auto date = dateToLastEvent(name);
    return date ? std::optional(Environment::current().now() - *date) : std::nullopt;
}

std::vector<Entry> CCEventHistory::entriesForEvent(const std::string& name) const {
    const auto found = data_.find(name);
    return found == data_.end() ? std::vector<Entry>() : found->second;
}

void CCEventHistory::removeEvent(const std::string& name) { data_.erase(name); }

void CCEventHistory::removeAllEvents() { data_.clear(); }

void CCEventHistory::encodeWithCoder(KeyedArchiver& coder) const {
    Dictionary data;
    for (const auto& [name, entries] : data_) {
        Array objects;
        for (const auto& entry : entries) objects.push_back(objectOf(entry));
        data.emplace(name, std::move(objects));
    }
    coder.encodeVersion(0, kArchiveClassName);
    coder.encodeObject(data, kDataKey);
    coder.encodeInteger(maxDatesForEvent_, kMaxDatesKey);
}

bool CCEventHistory::isEqual(const Archivable& other) const {
    const auto* history = dynamic_cast<const CCEventHistory*>(&other);
    return history && history->data_ == data_ && history->maxDatesForEvent_ == maxDatesForEvent_;
}

std::shared_ptr<Archivable> CCEventHistory::read(KeyedUnarchiver& coder) {
    if (coder.decodeVersion(kArchiveClassName).value_or(0) != 0) return nullptr;
    auto history = std::make_shared<CCEventHistory>();
    history->maxDatesForEvent_ = coder.decodeInteger(kMaxDatesKey).value_or(kDefaultMaxDatesForEvent);
    const Object data = coder.decodeObject(kDataKey);
    if (!data.dictionary()) return history;
    for (const auto& [name, objects] : *data.dictionary()) {
        if (!objects.array()) continue;
        auto& entries = history->data_[name];
        for (const auto& object : *objects.array()) {
            if (auto entry = entryOf(object)) entries.push_back(std::move(*entry));
        }
        eventHistory::sort(entries, dateOf);
    }
    return history;
}

}  // namespace dayward
