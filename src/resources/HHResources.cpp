#include "resources/HHResources.h"

#include <algorithm>

#include <nlohmann/json.hpp>

#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"
#include "resources/ImageCache.h"

namespace dayward {
namespace {

constexpr const char* kIconCatalogue = "iconData";
constexpr const char* kBackgroundCatalogue = "backgroundData";
constexpr const char* kCatalogueType = "json";
constexpr const char* kImageType = "png";
constexpr int kGallerySteps = 4;

std::vector<std::string> namesInCatalogue(std::string_view catalogue) {
    const auto path = HHResources::pathForResource(catalogue, kCatalogueType);
    if (!path) return {};
    const auto bytes = Environment::current().files().readFile(*path);
    if (!bytes) return {};
    const auto json = nlohmann::json::parse(bytes->begin(), bytes->end(), nullptr, /*allow_exceptions=*/false);
    if (!json.is_array()) return {};
    std::vector<std::string> names;
    for (const auto& entry : json) {
        if (entry.is_string()) names.push_back(entry.get<std::string>());
    }
    return names;
}

std::vector<std::string> existingNames(std::string_view catalogue, std::string_view complaint) {
    auto names = namesInCatalogue(catalogue);
    std::erase_if(names, [&](const std::string& name) {
        if (HHResources::pathForResource(deletingPathExtension(name), pathExtension(name))) return false;
        logError(std::string(complaint) + joinPath(Environment::current().paths().resources, name));
        return true;
    });
    return names;
}

struct IconCatalogue {
    explicit IconCatalogue(Environment&) : names(existingNames(kIconCatalogue, "not icon file: ")) {}
    const std::vector<std::string> names;
};

struct BackgroundCatalogue {
    explicit BackgroundCatalogue(Environment&) : names(existingNames(kBackgroundCatalogue, "not background file: ")) {}
    const std::vector<std::string> names;
};

struct ResourceImages {
    explicit ResourceImages(Environment&) {}
    ImageCache cache;
};

std::shared_ptr<const Image> readImage(std::string_view fileName) {
    const auto path = HHResources::pathForFileName(fileName);
    if (!path) return nullptr;
    const auto bytes = Environment::current().files().readFile(*path);
    if (!bytes) return nullptr;
    auto image = Image::decode(*bytes);
    return image ? std::make_shared<const Image>(*std::move(image)) : nullptr;
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

const std::vector<std::string>& HHResources::fonts() {
    static const std::vector<std::string> names = {
        "Cochin-Bold",
        "AmericanTypewriter-Bold",
        "ChalkboardSE-Bold",
        "MarkerFelt-Wide",
        "BradleyHandITCTT-Bold",
        "SnellRoundhand-Black",
        "AmericanTypewriter",
        "AcademyEngravedLetPlain",
        "Papyrus",
        "Thonburi-Bold",
        "ArialRoundedMTBold",
        "AvenirNext-Heavy",
        "GillSans-UltraBold",
        "Cochin-BoldItalic",
        "PartyLetPlain",
        "AmericanTypewriter-CondensedBold",
        "AvenirNextCondensed-Heavy",
        "Copperplate-Bold",
        "BodoniSvtyTwoITCTT-BookIta",
        "Noteworthy-Bold",
        "SavoyeLetPlain",
        "Futura-CondensedExtraBold",
        "Futura-Medium",
        "GillSans-Bold",
        "Marion-Bold",
        "HoeflerText-BlackItalic",
        "Avenir-Heavy",
        "Chalkduster",
        "Superclarendon-Black",
        "GillSans-Light",
        "AvenirNext-Medium",
        "Georgia",
        "Optima-ExtraBlack",
        "BodoniSvtyTwoITCTT-Bold",
        "Courier-Bold",
        "GurmukhiMN-Bold",
        "TimesNewRomanPS-BoldMT",
        "HelveticaNeue",
        "HelveticaNeue-Bold",
        "HelveticaNeue-CondensedBold",
        "HelveticaNeue-Light",
    };
    return names;
}

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

std::shared_ptr<const Image> HHResources::image(std::string_view fileName) {
    auto& cache = Environment::current().shared<ResourceImages>().cache;
    if (auto cached = cache.image(fileName)) return cached;
    auto image = readImage(fileName);
    if (!image) {
        static const auto empty = std::make_shared<const Image>();
        return empty;
    }
    cache.setImage(image, fileName);
    return image;
}

}  // namespace dayward
