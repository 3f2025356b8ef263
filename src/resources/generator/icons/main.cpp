// Makes the gallery's icons out of the pictures of a colour font.
// Use: dayward-icons TABLE FONT DIRECTORY
#include <stdexcept>

#include "resources/generator/Catalogue.h"
#include "resources/generator/icons/EmojiFont.h"
#include "resources/generator/icons/Enlarge.h"

namespace dayward::generator {
namespace {

constexpr int kSize = 256, kMargin = 6;
constexpr int kHexadecimal = 16;

void run(const std::vector<std::string>& arguments) {
    const Catalogue catalogue = Catalogue::read(arguments[0]);
    catalogue.forEach([&](const Json& item) {
        thread_local const EmojiFont font(arguments[1]);
        const auto character = std::stoul(item.at("glyph").get<std::string>(), nullptr, kHexadecimal);
        const auto bytes = squareIcon(font.picture(static_cast<char32_t>(character)), kSize, kMargin).pngData();
        if (!bytes) throw std::runtime_error(bytes.error().description());
        writeFile(arguments[2] + "/" + item.at("file").get<std::string>(), bytes->data(), bytes->size());
    });
    catalogue.writeIndex(arguments[2], "icon");
}

}  // namespace
}  // namespace dayward::generator

int main(int count, char** arguments) {
    return dayward::generator::runGenerator(count, arguments, "dayward-icons TABLE FONT DIRECTORY", 3,
                                            dayward::generator::run);
}
