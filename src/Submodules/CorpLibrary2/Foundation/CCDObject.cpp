#include "Submodules/CorpLibrary2/Foundation/CCDObject.h"

#include <cmath>
#include <map>
#include <nlohmann/json.hpp>
#include <variant>

#include "platform/DateFormatter.h"
#include "platform/DispatchQueue.h"
#include "platform/Environment.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"

namespace dayward {

namespace {

using Json = nlohmann::json;

constexpr const char* kDataKey = "__data";

/// Deeper nesting is refused: JSON of a service has a handful of levels.
constexpr int kMaxDepth = 512;

std::optional<Json> jsonOf(const Object& object, int depth);

struct JsonWriter {
    int depth;

    std::optional<Json> operator()(std::monostate) const { return Json(nullptr); }
    std::optional<Json> operator()(bool value) const { return Json(value); }
    std::optional<Json> operator()(std::int64_t value) const { return Json(value); }
    std::optional<Json> operator()(double value) const {
        return std::isfinite(value) ? std::optional(Json(value)) : std::nullopt;
    }
    std::optional<Json> operator()(const std::string& value) const { return Json(value); }
    std::optional<Json> operator()(const Array& array) const {
        Json result = Json::array();
        for (const auto& object : array) {
            auto element = jsonOf(object, depth + 1);
            if (!element) return std::nullopt;
            result.push_back(std::move(*element));
        }
        return result;
    }
    std::optional<Json> operator()(const Dictionary& dictionary) const {
        Json result = Json::object();
        for (const auto& [key, object] : dictionary) {
            auto value = jsonOf(object, depth + 1);
            if (!value) return std::nullopt;
            result[key] = std::move(*value);
        }
        return result;
    }
    std::optional<Json> operator()(const auto&) const { return std::nullopt; }  // JSON has no such type
};

std::optional<Json> jsonOf(const Object& object, int depth) {
    if (depth > kMaxDepth) return std::nullopt;
    return std::visit(JsonWriter{depth}, object.value());
}

/// Formatters are costly to make; each pair of format and zone has one, reached on the queue only.
class DateFormatters {
public:
    explicit DateFormatters(Environment& environment)
        : queue_(environment.queues().makeSerial("CCDObjectDateFormatters_Queue")) {}

    static DateFormatter formatter(std::string_view format, const std::optional<TimeZone>& timeZone) {
        auto& environment = Environment::current();
        return environment.shared<DateFormatters>().get(std::string(format), timeZone.value_or(environment.timeZone()));
    }

private:
    DateFormatter get(const std::string& format, const TimeZone& zone) {
        std::optional<DateFormatter> formatter;
        queue_->sync([&] {
            const std::string key = format + " " + zone.name();
            auto found = formatters_.find(key);
            if (found == formatters_.end()) {
                // A fixed format is read and written the same way in every region.
                found = formatters_.emplace(key, DateFormatter::withPattern(format, Locale("en_US_POSIX"), zone)).first;
            }
            formatter = found->second;
        });
        return *formatter;
    }

    std::shared_ptr<DispatchQueue> queue_;
    std::map<std::string, DateFormatter> formatters_;
};

}  // namespace

std::optional<Data> CCDObject::jsonData() const {
    const auto text = jsonString();
    return text ? std::optional(dataOf(*text)) : std::nullopt;
}

std::optional<std::string> CCDObject::jsonString() const {
    const auto json = jsonOf(data_, 0);
    if (!json) return std::nullopt;
    try {
        return json->dump();
    } catch (const Json::exception&) {  // a text that is no UTF-8
        return std::nullopt;
    }
}

std::string CCDObject::description() const { return jsonString().value_or("error"); }

Object CCDObject::valueForKey(const std::string& key) const {
    const auto found = data_.find(key);
    return found == data_.end() ? Object() : found->second;
}

std::optional<std::string> CCDObject::stringForKey(const std::string& key) const {
    return valueForKey(key).stringValue();
}

std::optional<std::int64_t> CCDObject::intForKey(const std::string& key) const { return valueForKey(key).integer(); }

std::optional<double> CCDObject::doubleForKey(const std::string& key) const { return valueForKey(key).number(); }

std::optional<Date> CCDObject::dateForKey(const std::string& key, std::string_view dateFormat,
                                          const std::optional<TimeZone>& timeZone) const {
    const auto text = stringForKey(key);
    return text ? DateFormatters::formatter(dateFormat, timeZone).dateFromString(*text) : std::nullopt;
}

void CCDObject::setDate(const std::optional<Date>& date, const std::string& forKey, std::string_view dateFormat,
                        const std::optional<TimeZone>& timeZone) {
    if (date) {
        data_.insert_or_assign(forKey, DateFormatters::formatter(dateFormat, timeZone).stringFromDate(*date));
    } else {
        data_.erase(forKey);
    }
}

void CCDObject::encodeWithCoder(KeyedArchiver& coder) const { coder.encodeObject(data_, kDataKey); }

bool CCDObject::isEqual(const Archivable& other) const {
    const auto* object = dynamic_cast<const CCDObject*>(&other);
    return object && object->data_ == data_;
}

std::shared_ptr<Archivable> CCDObject::read(KeyedUnarchiver& coder) {
    const Object data = coder.decodeObject(kDataKey);
    return std::make_shared<CCDObject>(data.dictionary() ? *data.dictionary() : Dictionary());
}

}  // namespace dayward
