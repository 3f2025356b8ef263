#include "resources/generator/icons/EmojiFont.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <array>
#include <stdexcept>

namespace dayward::generator {

struct EmojiFont::Handles {
    FT_Library library = nullptr;
    FT_Face face = nullptr;

    ~Handles() {
        FT_Done_Face(face);
        FT_Done_FreeType(library);
    }
};

EmojiFont::EmojiFont(const std::string& path) : handles_(std::make_unique<Handles>()) {
    if (FT_Init_FreeType(&handles_->library) != 0 ||
        FT_New_Face(handles_->library, path.c_str(), 0, &handles_->face) != 0) {
        throw std::runtime_error(path + ": cannot be read as a font");
    }
    const FT_Face face = handles_->face;
    if (!FT_HAS_COLOR(face) || face->num_fixed_sizes == 0 || FT_Select_Size(face, face->num_fixed_sizes - 1) != 0) {
        throw std::runtime_error(path + ": has no colour pictures");
    }
}

EmojiFont::~EmojiFont() = default;

ColorBitmap EmojiFont::picture(char32_t character) const {
    const FT_Face face = handles_->face;
    const FT_UInt glyph = FT_Get_Char_Index(face, character);
    if (glyph == 0 || FT_Load_Glyph(face, glyph, FT_LOAD_COLOR) != 0 ||
        face->glyph->bitmap.pixel_mode != FT_PIXEL_MODE_BGRA) {
        throw std::runtime_error("the font has no picture of this character");
    }
    const FT_Bitmap& bitmap = face->glyph->bitmap;
    ColorBitmap picture{static_cast<int>(bitmap.width), static_cast<int>(bitmap.rows), {}};
    for (unsigned row = 0; row < bitmap.rows; ++row) {
        const unsigned char* pixel = bitmap.buffer + static_cast<std::ptrdiff_t>(row) * bitmap.pitch;
        for (unsigned column = 0; column < bitmap.width; ++column, pixel += 4) {
            for (const int channel : std::array{2, 1, 0, 3}) {
                picture.values.push_back(static_cast<float>(pixel[channel]) / 255);
            }
        }
    }
    return picture;
}

}  // namespace dayward::generator
