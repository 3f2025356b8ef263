#include "platform/ArchiveDump.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "platform/KeyedArchiveFile.h"

namespace dayward {

namespace {

using Json = nlohmann::ordered_json;
using Item = KeyedArchiveFile::Item;
using Kind = KeyedArchiveFile::Kind;

constexpr std::uint64_t kCostOfValue = 64;

std::string base64(const Data& data) {
    constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < data.size(); i += 3) {
        const std::size_t count = std::min<std::size_t>(3, data.size() - i);
        std::uint32_t bits = 0;
        for (std::size_t k = 0; k < 3; ++k) bits = bits << 8 | (k < count ? data[i + k] : 0U);
        for (std::size_t k = 0; k < 4; ++k) text += k <= count ? kDigits[bits >> (18 - 6 * k) & 0x3F] : '=';
    }
    return text;
}

/// JSON has no number for what is infinite or none.
Json realNumber(double value) {
    if (std::isfinite(value)) return value;
    return std::isnan(value) ? "nan" : value > 0 ? "inf" : "-inf";
}

/// Without the search for an earlier pair of that key, which would go over all pairs.
void add(Json& object, std::string key, Json value) {
    object.get_ref<Json::object_t&>().push_back({std::move(key), std::move(value)});
}

class Dump {
public:
    explicit Dump(KeyedArchiveFile& file) : file_(file), isOpen_(file.objectCount(), false) {}

    Result<Json> all() {
        const Item& top = file_.top();
        if (top.count == 1 && BinaryPropertyList::equals(file_.list().key(top, 0), "root")) {
            return value(file_.list().element(top, 0));
        }
        return fields(top);
    }

private:
    Result<Json> value(const Item& item) {
        if (!file_.spend(kCostOfValue)) return archiveFailure("objects are repeated too often");
        switch (item.kind) {
            case Kind::broken: return archiveFailure("a damaged object");
            case Kind::null: return Json();
            case Kind::boolean: return Json(item.integer != 0);
            case Kind::integer: return Json(item.integer);
            case Kind::unsignedInteger: return Json(static_cast<std::uint64_t>(item.integer));
            case Kind::real: return realNumber(item.real);
            case Kind::date: return Json{{"$date", realNumber(item.real)}};
            case Kind::uid: return object(KeyedArchiveFile::uid(item));
            case Kind::text:
            case Kind::wideText: return text(item);
            case Kind::data: return data(item);
            case Kind::array: return elements(item);
            case Kind::dictionary: return fields(item);
        }
        return Json();
    }

    Result<Json> text(const Item& item) {
        if (!file_.spend(3 * item.count)) return archiveFailure("objects are repeated too often");
        return Json(BinaryPropertyList::text(item));
    }

    Result<Json> data(const Item& item) {
        if (!file_.spend(2 * item.count)) return archiveFailure("objects are repeated too often");
        return Json{{"$data", base64(BinaryPropertyList::data(item))}};
    }

    Result<Json> elements(const Item& array) {
        Json json = Json::array();
        TRY_VOID(enter());
        for (std::uint64_t i = 0; i < array.count; ++i) json.push_back(TRY(value(file_.list().element(array, i))));
        --depth_;
        return json;
    }

    Result<> enter() {
        if (++depth_ > KeyedArchiveFile::kDeepestNesting) return archiveFailure("nested too deeply");
        return {};
    }

    Result<Json> object(std::uint64_t number) {
        const Item item = file_.resolved(Item{Kind::uid, static_cast<std::int64_t>(number)});
        if (item.kind == Kind::broken) {
            return archiveFailure("a reference to object " + std::to_string(number) + ", which is missing or damaged");
        }
        if (item.kind == Kind::uid) return archiveFailure("a reference in the place of an object");
        if (item.kind != Kind::dictionary) return value(item);
        if (isOpen_[number]) return Json{{"$ref", number}};
        isOpen_[number] = true;
        auto json = instance(item);
        isOpen_[number] = false;
        return json;
    }

    Result<Json> instance(const Item& item) {
        const auto classNumber = file_.classNumber(item);
        if (!classNumber) return fields(item);
        const auto nameItem = file_.className(*classNumber);
        if (!nameItem) return archiveFailure("object " + std::to_string(*classNumber) + " is no class");
        const std::string name = BinaryPropertyList::text(*nameItem);
        if (name == "NSNull") return Json();
        if (name == "NSArray" || name == "NSMutableArray") return content(item, "NS.objects", name);
        if (name == "NSString" || name == "NSMutableString") return content(item, "NS.string", name);
        if (name == "NSData" || name == "NSMutableData") return content(item, "NS.data", name);
        if (name == "NSDictionary" || name == "NSMutableDictionary") return pairs(item, name);
        if (name == "NSDate") {
            const auto time = file_.find(item, "NS.time").value_or(Item{Kind::null});
            if (!isPlain(time)) return fields(item, name);
            Json seconds = TRY(value(time));
            return Json{{"$date", std::move(seconds)}};
        }
        return fields(item, name);
    }

    /// Whether it leads to no object of a class, of which a chain would be followed without end.
    bool isPlain(const Item& item) const { return file_.resolved(item).kind != Kind::dictionary; }

    /// The one value of a platform object, or all its fields where it has another form.
    Result<Json> content(const Item& item, std::string_view key, const std::string& className) {
        const auto found = file_.find(item, key);
        return found && isPlain(*found) ? value(*found) : fields(item, className);
    }

    Result<Json> pairs(const Item& item, const std::string& className) {
        const auto keys = file_.find(item, "NS.keys");
        const auto values = file_.find(item, "NS.objects");
        const bool isComplete =
            keys && values && keys->kind == Kind::array && values->kind == Kind::array && keys->count == values->count;
        if (!isComplete) return fields(item, className);
        Json json = Json::object();
        TRY_VOID(enter());
        for (std::uint64_t i = 0; i < keys->count; ++i) {
            const Json key = TRY(value(file_.list().element(*keys, i)));
            if (!key.is_string()) {
                --depth_;
                return fields(item, className);
            }
            Json element = TRY(value(file_.list().element(*values, i)));
            add(json, key.get<std::string>(), std::move(element));
        }
        --depth_;
        return json;
    }

    Result<Json> fields(const Item& item, const std::string& className = {}) {
        Json json = Json::object();
        if (!className.empty()) json["$class"] = className;
        TRY_VOID(enter());
        for (std::uint64_t i = 0; i < item.count; ++i) {
            const Item key = file_.list().key(item, i);
            if (!BinaryPropertyList::isText(key)) return archiveFailure("a key that is no text");
            if (!className.empty() && BinaryPropertyList::equals(key, "$class")) continue;
            const Json name = TRY(text(key));
            Json element = TRY(value(file_.list().element(item, i)));
            add(json, name.get<std::string>(), std::move(element));
        }
        --depth_;
        return json;
    }

    KeyedArchiveFile& file_;
    std::vector<bool> isOpen_;
    int depth_ = 0;
};

}  // namespace

Result<std::string> archiveAsJSON(const Data& archive) {
    KeyedArchiveFile file = TRY(KeyedArchiveFile::open(archive));
    const Json json = TRY(Dump(file).all());
    return json.dump(2);
}

}  // namespace dayward
