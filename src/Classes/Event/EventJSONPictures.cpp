// Pictures, colours and archivable values as JSON.
#include <cmath>

#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/ColorPicture.h"
#include "Classes/Category/HHBackgroundInfo.h"
#include "Classes/Category/ImageEventBackgroundPicture.h"
#include "Classes/Category/ImageEventIconPicture.h"
#include "Classes/Category/ImagePicture.h"
#include "Classes/Category/NamedEventBackgroundPicture.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Category/NamedPicture.h"
#include "Classes/Category/RColorEventBackgroundTemplate.h"
#include "Classes/Category/RNamedEventBackgroundTemplate.h"
#include "Classes/Event/EventJSONFields.h"
#include "Classes/Event/EventJSONValue.h"
#include "Classes/Event/LoadEventBackgroundPicture.h"
#include "Classes/Event/LoadEventIconPicture.h"
#include "Submodules/CorpLibrary2/Foundation/AESCrypt.h"
#include "platform/Environment.h"
#include "platform/FileSystem.h"

namespace dayward {
namespace {

template <class Picture>
const Picture* as(const std::shared_ptr<Archivable>& picture) {
    return dynamic_cast<const Picture*>(picture.get());
}

JSON colorValue(const Color& color) {
    JSON value = {{"kind", "color"}, {"color", color.hex()}};
    if (auto exact = exactColorJSONValue(color)) value["components"] = *std::move(exact);
    return value;
}

JSON imageValue(const ImagePicture& picture) {
    const auto bytes = picture.encodedData();
    // By the bytes: an archive's are kept whatever they are.
    const bool isPNG = bytes && bytes->size() > 1 && (*bytes)[1] == 'P';
    return {{"kind", "image"},
            {"format", isPNG ? "png" : "jpeg"},
            {"bytes", bytes ? JSON(base64Encoding(*bytes)) : JSON(nullptr)},
            {"source", picture.source() ? JSON(*picture.source()) : JSON(nullptr)}};
}

/// What the record stands for; asking it for a picture would pick one, or stop at a record without its image.
JSON olderTemplateValue(const HHBackgroundInfo& info) {
    switch (info.effectiveType()) {
        case HHBackgroundInfo::Type::named:
            if (info.name()) return {{"kind", "named"}, {"name", *info.name()}};
            [[fallthrough]];
        case HHBackgroundInfo::Type::randomNamed: return {{"kind", "random"}};
        case HHBackgroundInfo::Type::color:
            if (info.color()) return colorValue(*info.color());
            [[fallthrough]];
        case HHBackgroundInfo::Type::randomColor: return {{"kind", "randomColor"}};
        case HHBackgroundInfo::Type::image: break;
    }
    return info.image() ? imageValue(ImageEventBackgroundPicture(info.image())) : JSON(nullptr);
}

Result<Data> imageBytes(const JSONFields& fields) {
    if (const auto file = TRY(fields.text("file"))) {
        const auto path = absolutePath(*file);
        if (!path) return jsonFault(fields.path("file"), path.error().description());
        auto bytes = Environment::current().files().readFile(*path);
        return bytes ? std::move(bytes) : Result<Data>(jsonFault(fields.path("file"), bytes.error().description()));
    }
    const auto text = TRY(fields.text("bytes"));
    if (!text) return jsonFault(fields.path("file"), "missing");
    auto bytes = dataWithBase64EncodedString(*text);
    return bytes ? Result<Data>(*std::move(bytes)) : jsonFault(fields.path("bytes"), "no base64");
}

/// The picture keeps the given bytes where they have its own format, so that nothing is lost.
template <class Picture>
Result<std::shared_ptr<Picture>> imagePicture(const JSONFields& fields, Result<Image> (*ofOwnFormat)(const Data&)) {
    auto bytes = TRY(imageBytes(fields));
    auto image = Image::decode(bytes);
    if (!image) return jsonFault(fields.name(), image.error().description());
    if (!ofOwnFormat(bytes)) bytes.clear();
    auto source = TRY(fields.text("source"));
    return std::make_shared<Picture>(std::make_shared<const Image>(*std::move(image)), std::move(source),
                                     std::move(bytes));
}

Result<std::string> pictureName(const JSONFields& fields) {
    auto name = TRY(fields.text("name"));
    if (!name) return jsonFault(fields.path("name"), "missing");
    return *std::move(name);
}

Result<std::string> pictureKind(const JSONFields& fields) { return TRY(fields.text("kind")).value_or(""); }

}  // namespace

std::optional<JSON> exactColorJSONValue(const Color& color) {
    const auto fromHex = Color::fromHex(color.hex());
    if (fromHex && *fromHex == color) return std::nullopt;
    JSON components = JSON::array();
    for (const double component : {color.red, color.green, color.blue, color.alpha}) {
        if (!std::isfinite(component)) return std::nullopt;
        components.push_back(component);
    }
    return components;
}

JSON pictureJSONValue(const std::shared_ptr<Archivable>& picture) {
    if (!picture) return nullptr;
    if (const auto* named = as<NamedPicture>(picture)) return {{"kind", "named"}, {"name", named->named()}};
    if (const auto* color = as<ColorPicture>(picture)) return colorValue(color->color());
    if (const auto* image = as<ImagePicture>(picture)) return imageValue(*image);
    if (as<RNamedEventBackgroundTemplate>(picture)) return {{"kind", "random"}};
    if (as<RColorEventBackgroundTemplate>(picture)) return {{"kind", "randomColor"}};
    if (const auto* older = as<HHBackgroundInfo>(picture)) return olderTemplateValue(*older);
    return {{"kind", "document"}};
}

Result<std::shared_ptr<EventIconPicture>> iconFromJSONValue(const JSON& value, const std::string& field,
                                                            const std::string& itemKey) {
    if (value.is_null()) return nullptr;
    const auto fields = TRY(JSONFields::of(value, field));
    const auto kind = TRY(pictureKind(fields));
    if (kind == "named") return std::make_shared<NamedEventIconPicture>(TRY(pictureName(fields)));
    if (kind == "image") return TRY(imagePicture<ImageEventIconPicture>(fields, &Image::decodePNG));
    if (kind == "document") return std::make_shared<LoadEventIconPicture>(itemKey);
    return jsonFault(fields.path("kind"), "must be named, image or document");
}

Result<std::shared_ptr<EventBackgroundPicture>> backgroundFromJSONValue(const JSON& value, const std::string& field,
                                                                        const std::string& itemKey) {
    if (value.is_null()) return nullptr;
    const auto fields = TRY(JSONFields::of(value, field));
    const auto kind = TRY(pictureKind(fields));
    if (kind == "named") return std::make_shared<NamedEventBackgroundPicture>(TRY(pictureName(fields)));
    if (kind == "image") return TRY(imagePicture<ImageEventBackgroundPicture>(fields, &Image::decodeJPEG));
    if (kind == "document") return std::make_shared<LoadEventBackgroundPicture>(itemKey);
    if (kind == "color") {
        const auto color = TRY(fields.color("color", "components"));
        if (!color) return jsonFault(fields.path("color"), "missing");
        return std::make_shared<ColorEventBackgroundPicture>(*color);
    }
    return jsonFault(fields.path("kind"), "must be named, color, image or document");
}

}  // namespace dayward
