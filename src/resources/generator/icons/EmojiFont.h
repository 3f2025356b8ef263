// Pictures of characters from a colour font that holds them as bitmaps.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace dayward::generator {

/// Red, green, blue and alpha from 0 to 1, the colours multiplied by alpha; rows from the top.
struct ColorBitmap {
    int width = 0, height = 0;
    std::vector<float> values;
};

class EmojiFont {
public:
    /// Throws std::runtime_error with the path where it is no font with colour bitmaps.
    explicit EmojiFont(const std::string& path);
    ~EmojiFont();

    /// The largest picture of a character. Throws std::runtime_error where the font has none.
    [[nodiscard]] ColorBitmap picture(char32_t character) const;

private:
    struct Handles;
    std::unique_ptr<Handles> handles_;
};

}  // namespace dayward::generator
