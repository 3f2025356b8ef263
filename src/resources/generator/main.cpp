// Draws the program's pictures into a directory: icons as PNG, backgrounds as JPEG.
#include <fstream>
#include <iostream>

#include "resources/generator/Backgrounds.h"
#include "resources/generator/Icons.h"

namespace {

using namespace dayward;

constexpr double kBackgroundQuality = 0.85;

bool write(const std::string& path, const Result<Data>& data) {
    if (!data) {
        std::cerr << path << ": " << data.error().description() << '\n';
        return false;
    }
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(data->data()), static_cast<std::streamsize>(data->size()));
    file.close();
    if (!file) std::cerr << path << ": cannot be written\n";
    return static_cast<bool>(file);
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: dayward-pictures DIRECTORY\n";
        return 2;
    }
    const std::string directory = std::string(arguments[1]) + "/";
    bool written = true;
    for (const auto& [name, image] : drawIcons()) written &= write(directory + name, image.pngData());
    for (const auto& [name, image] : drawBackgrounds()) {
        written &= write(directory + name, image.jpegData(kBackgroundQuality));
    }
    return written ? 0 : 1;
}
