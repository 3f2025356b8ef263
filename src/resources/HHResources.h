// The fixed catalogues that editors and categories offer, and the program's own picture files.
//
// Catalogues are made once for each environment and kept; they are immutable, any thread may read
// them. A catalogue file is a JSON array of file names. An entry without a file is logged and left
// out, the others keep their order; a missing or broken catalogue is an empty one.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Color.h"
#include "platform/Image.h"

namespace dayward {

class HHResources {
public:
    /// Names of the gallery's icons, from "iconData.json".
    static const std::vector<std::string>& icons();
    /// Names of the gallery's backgrounds, from "backgroundData.json".
    static const std::vector<std::string>& backgrounds();
    /// Names of the gallery's 41 fonts, from "fontData.json"; FontLook tells what is shown for them.
    static const std::vector<std::string>& fonts();
    /// The 16 base colours.
    static const std::vector<Color>& baseColors();
    /// webColorsWithPairs(4): 64 colours from black to white.
    static const std::vector<Color>& colors();
    /// Every mix of `pairs` levels of red, green and blue, red outermost and blue innermost, each
    /// level ascending from 0 to 1. One level is 0 alone; 0 and less give no colour.
    static std::vector<Color> webColorsWithPairs(int pairs);

    /// The path of a resource file by its name without extension and its extension; nothing where
    /// there is no such file. A name with a path separator names no resource.
    static std::optional<std::string> pathForResource(std::string_view name, std::string_view ofType);
    /// The same for a whole file name; one without an extension means a PNG.
    static std::optional<std::string> pathForFileName(std::string_view fileName);
    /// The picture of a resource's file name, decoded once while it is in use; the empty image where
    /// there is none or it cannot be read. Never null.
    static std::shared_ptr<const Image> image(std::string_view fileName);
    /// The same for a place that it is to fill: maybe smaller, and then kept by nobody but the caller.
    static std::shared_ptr<const Image> image(std::string_view fileName, PixelSize filling);
    /// The same where it is at hand, else null; reads no file.
    static std::shared_ptr<const Image> cachedImage(std::string_view fileName);
};

}  // namespace dayward
