#include "support/PlistEvent.h"

#include <initializer_list>
#include <unordered_map>

namespace dayward::bench {

namespace {

constexpr std::array kUnitKeys{"Year", "Month", "Week", "Day", "Hour", "Minute", "Second"};
constexpr std::array kColorKeys{"UIRed", "UIGreen", "UIBlue", "UIAlpha"};

std::int64_t integerIn(plist_t node) {
    std::uint64_t value = 0;
    plist_get_uint_val(node, &value);
    return static_cast<std::int64_t>(value);
}

double realIn(plist_t node) {
    double value = 0;
    plist_get_real_val(node, &value);
    return value;
}

std::string stringIn(plist_t node) {
    std::uint64_t length = 0;
    const char* text = plist_get_string_ptr(node, &length);
    return std::string(text, length);
}

class Reader {
public:
    explicit Reader(plist_t archive) : objects_(plist_dict_get_item(archive, "$objects")) {}

    plist_t resolved(plist_t node) const {
        std::uint64_t number = 0;
        plist_get_uid_val(node, &number);
        return plist_array_get_item(objects_, static_cast<std::uint32_t>(number));
    }

    plist_t object(plist_t record, const char* key) const { return resolved(plist_dict_get_item(record, key)); }
    std::string text(plist_t record, const char* key) const { return stringIn(object(record, key)); }

    static std::int64_t integer(plist_t record, const char* key) { return integerIn(plist_dict_get_item(record, key)); }
    static double real(plist_t record, const char* key) { return realIn(plist_dict_get_item(record, key)); }
    static bool boolean(plist_t record, const char* key) {
        return plist_bool_val_is_true(plist_dict_get_item(record, key)) != 0;
    }

    template <class Read>
    auto elements(plist_t array, Read read) const {
        plist_t content = plist_dict_get_item(array, "NS.objects");
        const std::uint32_t count = plist_array_get_size(content);
        std::vector<decltype(read(content))> values;
        values.reserve(count);
        for (std::uint32_t i = 0; i < count; ++i) values.push_back(read(resolved(plist_array_get_item(content, i))));
        return values;
    }

    static PlistEvent::Interval interval(plist_t record) {
        PlistEvent::Interval interval;
        for (std::size_t i = 0; i < kUnitKeys.size(); ++i) {
            if (plist_t value = plist_dict_get_item(record, kUnitKeys[i])) interval[i] = integerIn(value);
        }
        return interval;
    }

    static PlistEvent::Color color(plist_t record) {
        PlistEvent::Color color;
        for (std::size_t i = 0; i < kColorKeys.size(); ++i) color[i] = real(record, kColorKeys[i]);
        return color;
    }

private:
    plist_t objects_;
};

/// Puts objects into the archive as a keyed archiver does: equal texts and classes once.
class Builder {
public:
    Builder() { plist_array_append_item(objects_, plist_new_string("$null")); }

    plist_t null() const { return plist_new_uid(0); }
    plist_t integer(std::int64_t value) { return append(plist_new_uint(static_cast<std::uint64_t>(value))); }

    plist_t text(const std::string& value) {
        const auto [known, isNew] = texts_.try_emplace(value, count_);
        return isNew ? append(plist_new_string(value.c_str())) : plist_new_uid(known->second);
    }

    plist_t record(std::initializer_list<std::pair<const char*, plist_t>> fields,
                   std::initializer_list<const char*> classNames) {
        plist_t node = plist_new_dict();
        for (const auto& [key, value] : fields) plist_dict_set_item(node, key, value);
        return finished(node, classNames);
    }

    plist_t finished(plist_t node, std::initializer_list<const char*> classNames) {
        plist_dict_set_item(node, "$class", classOf(classNames));
        return append(node);
    }

    plist_t date(double seconds) { return record({{"NS.time", plist_new_real(seconds)}}, {"NSDate"}); }

    template <class Values, class Put>
    plist_t array(const Values& values, Put put) {
        plist_t content = plist_new_array();
        for (const auto& value : values) plist_array_append_item(content, put(value));
        return record({{"NS.objects", content}}, {"NSArray"});
    }

    plist_t interval(const PlistEvent::Interval& interval) {
        plist_t node = plist_new_dict();
        plist_dict_set_item(node, "XDIDateInterval", plist_new_uint(0));
        for (std::size_t i = 0; i < kUnitKeys.size(); ++i) {
            if (interval[i])
                plist_dict_set_item(node, kUnitKeys[i], plist_new_uint(static_cast<std::uint64_t>(*interval[i])));
        }
        return finished(node, {"XDIDateInterval"});
    }

    plist_t color(const PlistEvent::Color& color) {
        plist_t node = plist_new_dict();
        plist_dict_set_item(node, "UIColorComponentCount", plist_new_uint(4));
        for (std::size_t i = 0; i < kColorKeys.size(); ++i)
            plist_dict_set_item(node, kColorKeys[i], plist_new_real(color[i]));
        plist_dict_set_item(node, "NSColorSpace", plist_new_uint(2));
        return finished(node, {"UIColor"});
    }

    plist_t archive(plist_t root) {
        plist_t top = plist_new_dict();
        plist_dict_set_item(top, "root", root);
        plist_t archive = plist_new_dict();
        plist_dict_set_item(archive, "$version", plist_new_uint(100000));
        plist_dict_set_item(archive, "$archiver", plist_new_string("NSKeyedArchiver"));
        plist_dict_set_item(archive, "$top", top);
        plist_dict_set_item(archive, "$objects", objects_);
        return archive;
    }

private:
    plist_t append(plist_t object) {
        plist_array_append_item(objects_, object);
        return plist_new_uid(count_++);
    }

    plist_t classOf(std::initializer_list<const char*> names) {
        const auto [known, isNew] = classes_.try_emplace(*names.begin(), count_);
        if (!isNew) return plist_new_uid(known->second);
        plist_t chain = plist_new_array();
        for (const char* name : names) plist_array_append_item(chain, plist_new_string(name));
        plist_array_append_item(chain, plist_new_string("NSObject"));
        plist_t node = plist_new_dict();
        plist_dict_set_item(node, "$classname", plist_new_string(*names.begin()));
        plist_dict_set_item(node, "$classes", chain);
        return append(node);
    }

    plist_t objects_ = plist_new_array();
    std::uint64_t count_ = 1;
    std::unordered_map<std::string, std::uint64_t> texts_;
    std::unordered_map<std::string_view, std::uint64_t> classes_;
};

}  // namespace

PlistEvent plistEventFrom(std::span<const std::uint8_t> archive) {
    plist_t list = nullptr;
    plist_from_bin(reinterpret_cast<const char*>(archive.data()), static_cast<std::uint32_t>(archive.size()), &list);
    const Reader reader(list);
    plist_t root = reader.object(plist_dict_get_item(list, "$top"), "root");
    PlistEvent event;
    event.type = Reader::integer(root, "Type");
    event.name = reader.text(root, "Name");
    event.category = reader.text(root, "Category");
    event.date = Reader::real(reader.object(root, "Date"), "NS.time");
    event.times = reader.elements(reader.object(root, "Times"), integerIn);
    event.duration = Reader::interval(reader.object(root, "Duration"));
    event.rrule = reader.text(root, "RRule");
    event.showAge = Reader::boolean(root, "ShowYear");
    plist_t format = reader.object(root, "DateFormat");
    event.units = Reader::integer(format, "Units");
    event.textStyle = Reader::integer(format, "UnitsFormatType");
    plist_t alerts = reader.object(root, "Alerts");
    event.alerts = reader.elements(reader.object(alerts, "List"), Reader::interval);
    event.soundName = reader.text(alerts, "SoundName");
    plist_t appearance = reader.object(root, "Appearance");
    event.fontName = reader.text(appearance, "FontName");
    event.textColor = Reader::color(reader.object(appearance, "FontColor"));
    event.note = reader.text(root, "Note");
    event.icon = reader.text(reader.object(root, "p001"), "p001");
    event.iconIsNull = Reader::boolean(root, "p004");
    event.background = Reader::color(reader.object(reader.object(root, "p002"), "p001"));
    event.backgroundIsNull = Reader::boolean(root, "p005");
    event.version = Reader::real(reader.object(root, "p006"), "v");
    plist_free(list);
    return event;
}

std::pair<char*, std::uint32_t> plistArchive(const PlistEvent& event) {
    Builder builder;
    const auto integer = [](std::int64_t value) { return plist_new_uint(static_cast<std::uint64_t>(value)); };
    plist_t format = builder.record({{"HHEventDateFormat", integer(0)},
                                     {"Units", integer(event.units)},
                                     {"UnitsFormatType", integer(event.textStyle)}},
                                    {"HHEventDateFormat"});
    plist_t list = builder.array(event.alerts, [&](const auto& interval) { return builder.interval(interval); });
    plist_t alerts =
        builder.record({{"HHEventAlerts", integer(0)}, {"List", list}, {"SoundName", builder.text(event.soundName)}},
                       {"HHEventAlerts"});
    plist_t appearance = builder.record({{"HHEventAppearance", integer(1)},
                                         {"FontName", builder.text(event.fontName)},
                                         {"FontColor", builder.color(event.textColor)}},
                                        {"HHEventAppearance"});
    plist_t times = builder.array(event.times, [&](std::int64_t value) { return builder.integer(value); });
    plist_t root =
        builder.record({{"Type", integer(event.type)},
                        {"SourceInfo", builder.null()},
                        {"Name", builder.text(event.name)},
                        {"Category", builder.text(event.category)},
                        {"Date", builder.date(event.date)},
                        {"Times", times},
                        {"Duration", builder.interval(event.duration)},
                        {"RRule", builder.text(event.rrule)},
                        {"ShowYear", plist_new_bool(event.showAge)},
                        {"DateFormat", format},
                        {"Alerts", alerts},
                        {"Appearance", appearance},
                        {"Note", builder.text(event.note)},
                        {"IconSystemName", builder.null()},
                        {"BackgroundSystemName", builder.null()},
                        {"BackgroundColor", builder.null()},
                        {"p001", builder.record({{"p001", builder.text(event.icon)}}, {"c002", "c001a"})},
                        {"p004", plist_new_bool(event.iconIsNull)},
                        {"p002", builder.record({{"p001", builder.color(event.background)}}, {"c006", "c004a"})},
                        {"p003", builder.null()},
                        {"p005", plist_new_bool(event.backgroundIsNull)},
                        {"p006", builder.record({{"v", plist_new_real(event.version)}}, {"_csy001"})}},
                       {"HHGeneralEventDocumentData"});
    plist_t archive = builder.archive(root);
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(archive, &bytes, &length);
    plist_free(archive);
    return {bytes, length};
}

}  // namespace dayward::bench
