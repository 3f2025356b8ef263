#include "resources/HHResources.h"

#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "resources/CatalogueNames.h"
#include "resources/FontLook.h"
#include "resources/ImageCache.h"

namespace dayward {
namespace {

constexpr const char* kImageType = "png";
constexpr int kGallerySteps = 4;

struct IconCatalogue {
    explicit IconCatalogue(Environment&) {}
    const std::vector<std::string> names = existingNames("iconData", "not icon file: ");
};

struct BackgroundCatalogue {
    explicit BackgroundCatalogue(Environment&) {}
    const std::vector<std::string> names = existingNames("backgroundData", "not background file: ");
};

struct FontCatalogue {
    explicit FontCatalogue(Environment&) {
        for (const FontLook& look : FontLook::all()) names.push_back(look.name);
    }
    std::vector<std::string> names;
};

struct ResourceImages {
    explicit ResourceImages(Environment&) {}
    ImageCache cache;
};

/// Null where there is none or it cannot be read.
std::shared_ptr<const Image> readImage(std::string_view fileName, std::optional<PixelSize> filling = {}) {
    const auto path = HHResources::pathForFileName(fileName);
    if (!path) return nullptr;
    const auto bytes = Environment::current().files().readFile(*path);
    if (!bytes) return nullptr;
    auto image = filling ? Image::decode(*bytes, *filling) : Image::decode(*bytes);
    return image ? std::make_shared<const Image>(*std::move(image)) : nullptr;
}

std::shared_ptr<const Image> emptyImage() {
    static const auto empty = std::make_shared<const Image>();
    return empty;
}

std::vector<Color> colorsOf(std::initializer_list<const char*> hexes) {
    std::vector<Color> colors;
    for (const char* hex : hexes) colors.push_back(*Color::fromHex(hex));
    return colors;
}

}  // namespace

const std::vector<std::string>& HHResources::icons() { return Environment::current().shared<IconCatalogue>().names; }

const std::vector<std::string>& HHResources::backgrounds() {
    return Environment::current().shared<BackgroundCatalogue>().names;
}

const std::vector<std::string>& HHResources::fonts() { return Environment::current().shared<FontCatalogue>().names; }

const std::vector<Color>& HHResources::baseColors() {
    static const std::vector<Color> colors =
        colorsOf({"#FFFFFF", "#C0C0C0", "#808080", "#000000", "#FF0000", "#800000", "#FFFF00", "#808000", "#00FF00",
                  "#008000", "#00FFFF", "#008080", "#0000FF", "#000080", "#FF00FF", "#800080"});
    return colors;
}

const std::vector<Color>& HHResources::colors() {
    static const std::vector<Color> colors = webColorsWithPairs(kGallerySteps);
    return colors;
}

std::vector<Color> HHResources::webColorsWithPairs(int pairs) {
    const auto level = [pairs](int step) { return pairs == 1 ? 0.0 : static_cast<double>(step) / (pairs - 1); };
    std::vector<Color> colors;
    for (int red = 0; red < pairs; ++red) {
        for (int green = 0; green < pairs; ++green) {
            for (int blue = 0; blue < pairs; ++blue) colors.push_back({level(red), level(green), level(blue), 1});
        }
    }
    return colors;
}

std::optional<std::string> HHResources::pathForResource(std::string_view name, std::string_view ofType) {
    std::string fileName(name);
    if (!ofType.empty()) fileName.append(".").append(ofType);
    // Names come out of archives too: one must not lead out of the resources.
    if (name.empty() || fileName.find_first_of(std::string_view("/\0", 2)) != std::string::npos) return std::nullopt;
    auto path = joinPath(Environment::current().paths().resources, fileName);
    const auto status = Environment::current().files().status(path);
    if (!status || !*status || (*status)->kind != FileStatus::Kind::file) return std::nullopt;
    return path;
}

std::optional<std::string> HHResources::pathForFileName(std::string_view fileName) {
    const auto extension = pathExtension(fileName);
    if (fileName.find('/') != std::string_view::npos) return std::nullopt;
    return pathForResource(deletingPathExtension(fileName), extension.empty() ? kImageType : extension);
}

std::shared_ptr<const Image> HHResources::cachedImage(std::string_view fileName) {
    return Environment::current().shared<ResourceImages>().cache.image(fileName);
}

std::shared_ptr<const Image> HHResources::image(std::string_view fileName) {
    auto& cache = Environment::current().shared<ResourceImages>().cache;
    if (auto cached = cache.image(fileName)) return cached;
    auto image = readImage(fileName);
    if (!image) return emptyImage();
    cache.setImage(image, fileName);
    return image;
}

std::shared_ptr<const Image> HHResources::image(std::string_view fileName, PixelSize filling) {
    if (auto cached = cachedImage(fileName)) return cached;
    auto image = readImage(fileName, filling);
    return image ? image : emptyImage();
}

}  // namespace dayward
