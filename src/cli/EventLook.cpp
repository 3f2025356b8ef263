#include "cli/EventLook.h"

#include <filesystem>

#include "Classes/Category/BackgroundTemplateConversion.h"
#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/ImageEventBackgroundPicture.h"
#include "Classes/Category/ImageEventIconPicture.h"
#include "Classes/Category/NamedEventBackgroundPicture.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Category/RColorEventBackgroundTemplate.h"
#include "Classes/Category/RNamedEventBackgroundTemplate.h"
#include "cli/Arguments.h"
#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "platform/Image.h"
#include "resources/HHResources.h"

namespace dayward {

namespace {

Result<std::shared_ptr<const Image>> imageFile(const std::string& text, const char* kind) {
    const FileSystem& files = Environment::current().files();
    const auto path = absolutePath(text);
    const auto status = path ? files.status(*path) : std::unexpected(path.error());
    if (!status || !*status) return failure("'" + text + "' is no " + kind + " of the catalogue and no file");
    const auto bytes = files.readFile(*path);
    if (!bytes) return failure("'" + text + "' cannot be read", 0, {{"reason", bytes.error().description()}});
    auto image = Image::decode(*bytes);
    if (!image) return failure("'" + text + "' is no PNG or JPEG picture", 0, {{"reason", image.error().description()}});
    return std::make_shared<const Image>(std::move(*image));
}

std::string fileName(const std::string& path) { return std::filesystem::path(path).filename().string(); }

}  // namespace

Result<std::shared_ptr<EventIconPicture>> iconNamed(const std::string& text) {
    if (HHResources::pathForFileName(text)) return std::make_shared<NamedEventIconPicture>(text);
    auto image = TRY(imageFile(text, "icon"));
    return std::make_shared<ImageEventIconPicture>(std::move(image), fileName(text));
}

Result<std::shared_ptr<EventBackgroundPicture>> backgroundNamed(const std::string& text) {
    if (text.starts_with('#')) return std::make_shared<ColorEventBackgroundPicture>(TRY(parseColor(text)));
    if (HHResources::pathForFileName(text)) return std::make_shared<NamedEventBackgroundPicture>(text);
    auto image = TRY(imageFile(text, "background"));
    return std::make_shared<ImageEventBackgroundPicture>(std::move(image), fileName(text));
}

Result<std::shared_ptr<EventBackgroundTemplate>> backgroundTemplateNamed(const std::string& text) {
    if (text == "random") return std::make_shared<RNamedEventBackgroundTemplate>();
    if (text == "random-color") return std::make_shared<RColorEventBackgroundTemplate>();
    return backgroundTemplateFromObject(Object(TRY(backgroundNamed(text))));
}

}  // namespace dayward
