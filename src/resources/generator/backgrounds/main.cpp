// Paints the gallery's backgrounds, layer by layer as their table says, and the previews of random
// backgrounds. Use: dayward-backgrounds TABLE DIRECTORY
#include <mutex>
#include <stdexcept>

#include "resources/generator/backgrounds/Layers.h"

namespace dayward::generator {
namespace {

constexpr int kSize = 1024, kPreviewSize = 256, kPreviewCells = 4;
constexpr double kQuality = 0.88;

const LayerKinds& layerKinds() {
    static const LayerKinds kinds = [] {
        LayerKinds all;
        for (const auto add : {addFieldLayers, addSurfaceLayers, addPatternLayers, addSkyLayers, addLandLayers,
                               addLightLayers, addShapeLayers}) {
            add(all);
        }
        return all;
    }();
    return kinds;
}

Raster painted(const Json& layers, std::uint32_t seed) {
    Raster raster(kSize);
    for (const Json& settings : layers) {
        const auto kind = layerKinds().find(settings.at("kind").get<std::string>());
        if (kind == layerKinds().end()) throw std::runtime_error("no layer is of kind " + settings.at("kind").dump());
        kind->second(raster, Layer(settings, settings.value("seed", ++seed)));
    }
    return raster;
}

void write(const std::string& path, const Result<Data>& bytes) {
    if (!bytes) throw std::runtime_error(bytes.error().description());
    writeFile(path, bytes->data(), bytes->size());
}

/// Four by four cells, each a look at one of sixteen pictures or colours.
class Preview {
public:
    template <class ColorAt>
    void fillCell(int cell, ColorAt colorAt) {
        constexpr int kCell = kPreviewSize / kPreviewCells;
        for (int row = 0; row < kCell; ++row) {
            for (int column = 0; column < kCell; ++column) {
                const auto share = [](int index) { return (static_cast<float>(index) + 0.5F) / kCell; };
                raster_.pixel(cell % kPreviewCells * kCell + column, cell / kPreviewCells * kCell + row) =
                    colorAt(Point{share(column), share(row)});
            }
        }
    }
    void write(const std::string& path) const { generator::write(path, raster_.image().pngData()); }

private:
    Raster raster_{kPreviewSize};
};

/// The mean around a place: what is left of a picture in a small cell of a preview.
Paint shrunkAt(const Raster& raster, Point at) {
    constexpr int kReach = 4;
    Paint sum;
    for (int row = -kReach; row < kReach; ++row) {
        for (int column = -kReach; column < kReach; ++column) {
            sum =
                sum + raster.at(at + Point{static_cast<float>(column), static_cast<float>(row)} * (raster.step() * 2));
        }
    }
    return sum * (1.0F / (4 * kReach * kReach));
}

void writeColorPreview(const Json& hexes, const std::string& path) {
    Preview preview;
    for (int cell = 0; cell < kPreviewCells * kPreviewCells; ++cell) {
        const Paint color = Paint::fromHex(hexes.at(static_cast<std::size_t>(cell)).get<std::string>());
        preview.fillCell(cell, [&](Point) { return color; });
    }
    preview.write(path);
}

void run(const std::vector<std::string>& arguments) {
    const std::string directory = arguments[1] + "/";
    const Catalogue catalogue = Catalogue::read(arguments[0]);
    const Json& shown = catalogue.table.at("preview").at("files");
    Preview preview;
    std::mutex mutex;
    catalogue.forEach([&](const Json& item) {
        const Raster raster = painted(item.at("layers"), item.at("seed").get<std::uint32_t>() * 1000);
        const std::string file = item.at("file");
        write(directory + file, raster.image().jpegData(kQuality));
        const std::lock_guard lock(mutex);
        for (std::size_t cell = 0; cell < shown.size(); ++cell) {
            if (shown[cell] != file) continue;
            preview.fillCell(static_cast<int>(cell), [&](Point at) { return shrunkAt(raster, at); });
        }
    });
    preview.write(directory + "BackgroundInfoRandomName.png");
    writeColorPreview(catalogue.table.at("preview").at("colors"), directory + "BackgroundInfoRandomColor.png");
    catalogue.writeIndex(arguments[1], "background");
}

}  // namespace
}  // namespace dayward::generator

int main(int count, char** arguments) {
    return dayward::generator::runGenerator(count, arguments, "dayward-backgrounds TABLE DIRECTORY", 2,
                                            dayward::generator::run);
}
