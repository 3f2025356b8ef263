// Archivable values as JSON.
#include <cmath>

#include "Classes/Event/EventJSONFields.h"
#include "Classes/Event/EventJSONValue.h"
#include "Submodules/CorpLibrary2/Foundation/AESCrypt.h"
#include "platform/Environment.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"

namespace dayward {
namespace {

constexpr const char* kArchiveField = "archive";
/// Deeper ones go into an archive as a whole; deeper JSON is refused.
constexpr int kMaximalDepth = 32;

std::optional<JSON> plainValue(const Object& object, int depth);

struct ToJSON {
    using Plain = std::optional<JSON>;
    int depth;

    Plain operator()(std::monostate) const { return JSON(nullptr); }
    Plain operator()(bool value) const { return JSON(value); }
    Plain operator()(std::int64_t value) const { return JSON(value); }
    Plain operator()(double value) const { return std::isfinite(value) ? Plain(JSON(value)) : std::nullopt; }
    Plain operator()(const std::string& value) const { return JSON(value); }
    Plain operator()(const Data&) const { return std::nullopt; }
    Plain operator()(Date) const { return std::nullopt; }
    Plain operator()(const std::shared_ptr<Archivable>&) const { return std::nullopt; }
    Plain operator()(const Array& array) const {
        JSON list = JSON::array();
        for (const auto& item : array) {
            auto element = plainValue(item, depth + 1);
            if (!element) return std::nullopt;
            list.push_back(*std::move(element));
        }
        return list;
    }
    Plain operator()(const Dictionary& dictionary) const {
        JSON fields = JSON::object();
        if (dictionary.contains(kArchiveField)) return std::nullopt;
        for (const auto& [key, item] : dictionary) {
            auto element = plainValue(item, depth + 1);
            if (!element) return std::nullopt;
            // Not by the key, which would be looked for among all before it.
            fields.get_ref<JSON::object_t&>().emplace_back(key, *std::move(element));
        }
        return fields;
    }
};

std::optional<JSON> plainValue(const Object& object, int depth) {
    if (depth > kMaximalDepth) return std::nullopt;
    return std::visit(ToJSON{depth}, object.value());
}

Result<Object> plainObject(const JSON& value, const std::string& field, int depth);

Result<Object> objectOfFields(const JSON& value, const std::string& field, int depth) {
    Dictionary dictionary;
    for (const auto& [key, item] : value.items()) dictionary[key] = TRY(plainObject(item, field, depth + 1));
    return Object(std::move(dictionary));
}

Result<Object> objectOfList(const JSON& value, const std::string& field, int depth) {
    Array array;
    for (const auto& item : value) array.push_back(TRY(plainObject(item, field, depth + 1)));
    return Object(std::move(array));
}

Result<Object> plainObject(const JSON& value, const std::string& field, int depth) {
    if (depth > kMaximalDepth) return jsonFault(field, "is nested too deeply");
    if (value.is_boolean()) return Object(value.get<bool>());
    if (value.is_number_unsigned() && value.get<std::uint64_t>() > INT64_MAX) return Object(value.get<double>());
    if (value.is_number_integer()) return Object(value.get<std::int64_t>());
    if (value.is_number_float()) return Object(value.get<double>());
    if (value.is_string()) return Object(value.get<std::string>());
    if (value.is_array()) return objectOfList(value, field, depth);
    if (value.is_object()) return objectOfFields(value, field, depth);
    return Object();
}

}  // namespace

JSON objectJSONValue(const Object& object) {
    if (auto plain = plainValue(object, 0)) return *std::move(plain);
    return {{kArchiveField, base64Encoding(KeyedArchiver::archivedDataWithRootObject(object))}};
}

Result<Object> objectFromJSONValue(const JSON& value, const std::string& field) {
    if (!value.is_object() || !value.contains(kArchiveField)) return plainObject(value, field, 0);
    const auto fields = TRY(JSONFields::of(value, field));
    const auto archive = dataWithBase64EncodedString(TRY(fields.text(kArchiveField)).value_or(""));
    if (!archive) return jsonFault(fields.path(kArchiveField), "no base64");
    auto object = KeyedUnarchiver::unarchiveObjectWithData(*archive, Environment::current().archiveClasses(),
                                                           KeyedUnarchiver::OnRefusal::fail);
    return object ? std::move(object) : jsonFault(fields.path(kArchiveField), object.error().description());
}

}  // namespace dayward
