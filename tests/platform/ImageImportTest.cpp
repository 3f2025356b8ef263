#include "platform/ImageImport.h"

#include <gmock/gmock.h>

namespace dayward {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;

/// Pixels of one grey each.
Image greys(int width, int height, const std::vector<int>& values) {
    Data rgba;
    for (const int value : values) {
        for (int channel = 0; channel < 3; ++channel) rgba.push_back(static_cast<std::uint8_t>(value));
        rgba.push_back(255);
    }
    return {width, height, std::move(rgba)};
}

std::vector<int> greysOf(const Image& image) {
    std::vector<int> values;
    for (std::size_t place = 0; place < image.rgba().size(); place += 4) values.push_back(image.rgba()[place]);
    return values;
}

TEST(ImageImport, TurnsEveryOrientationUpright) {
    // The picture "1 2 / 3 4 / 5 6" as a camera that is held so stores it.
    const std::tuple<int, int, std::vector<int>> stored[] = {
        {2, 3, {1, 2, 3, 4, 5, 6}}, {2, 3, {2, 1, 4, 3, 6, 5}}, {2, 3, {6, 5, 4, 3, 2, 1}}, {2, 3, {5, 6, 3, 4, 1, 2}},
        {3, 2, {1, 3, 5, 2, 4, 6}}, {3, 2, {2, 4, 6, 1, 3, 5}}, {3, 2, {6, 4, 2, 5, 3, 1}}, {3, 2, {5, 3, 1, 6, 4, 2}},
    };
    for (int orientation = 1; orientation <= 8; ++orientation) {
        const auto& [width, height, values] = stored[orientation - 1];
        const Image upright = uprightImage(greys(width, height, values), static_cast<ImageOrientation>(orientation));
        EXPECT_EQ(upright.width(), 2) << orientation;
        EXPECT_THAT(greysOf(upright), ElementsAre(1, 2, 3, 4, 5, 6)) << orientation;
    }
}

/// A JPEG file of a picture that is dark at the left, with an Exif segment of that orientation.
Data jpegWithOrientation(std::uint8_t orientation, bool bigEndian) {
    Data file = *greys(32, 16,
                       [] {
                           std::vector<int> values;
                           for (int place = 0; place < 32 * 16; ++place) values.push_back(place % 32 < 16 ? 0 : 255);
                           return values;
                       }())
                     .jpegData(1.0);
    const Data big{'M', 'M', 0, 42, 0,    0, 0, 8, 0, 2, 1, 0, 0,           3, 0, 0, 0, 1, 0,
                   9,   0,   0, 1,  0x12, 0, 3, 0, 0, 0, 1, 0, orientation, 0, 0, 0, 0, 0, 0};
    const Data little{'I', 'I', 42, 0, 8, 0, 0, 0, 1, 0, 0x12, 1, 3, 0, 1, 0, 0, 0, orientation, 0, 0, 0, 0, 0, 0, 0};
    const Data& tiff = bigEndian ? big : little;
    Data segment{0xFF, 0xE1, 0, static_cast<std::uint8_t>(tiff.size() + 8), 'E', 'x', 'i', 'f', 0, 0};
    segment.insert(segment.end(), tiff.begin(), tiff.end());
    file.insert(file.begin() + 2, segment.begin(), segment.end());
    return file;
}

TEST(ImageImport, ReadsTheOrientationOfAFile) {
    for (const bool bigEndian : {false, true}) {
        for (std::uint8_t value = 0; value <= 9; ++value) {
            const int expected = value >= 1 && value <= 8 ? value : 1;
            EXPECT_EQ(static_cast<int>(exifOrientation(jpegWithOrientation(value, bigEndian))), expected);
        }
        const auto image = importImage(jpegWithOrientation(6, bigEndian), 16);
        ASSERT_TRUE(image);
        EXPECT_EQ(std::pair(image->width(), image->height()), std::pair(8, 16));
        EXPECT_LT(greysOf(*image)[0], 20) << "dark at the top now";
        EXPECT_GT(greysOf(*image)[15 * 8], 235);
    }
}

TEST(ImageImport, TakesBrokenFilesForUpright) {
    const Data whole = jpegWithOrientation(6, true);
    for (std::size_t length = 0; length < 50; ++length) {
        const Data cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        const int found = static_cast<int>(exifOrientation(cut));
        EXPECT_TRUE(found == 1 || found == 6);
        EXPECT_FALSE(importImage(cut, 16));
    }
    for (std::size_t place = 2; place < 60; ++place) {  // lengths, offsets and counts of any size
        Data broken = whole;
        broken[place] = 0xFF;
        EXPECT_LE(static_cast<int>(exifOrientation(broken)), 8);
    }
}

TEST(ImageImport, MakesPicturesSmallerByTheMean) {
    EXPECT_THAT(greysOf(scaledToFit(greys(4, 2, {0, 100, 200, 200, 100, 200, 200, 200}), 2)), ElementsAre(100, 200));
    EXPECT_THAT(greysOf(scaledToFit(greys(3, 1, {0, 90, 180}), 2)), ElementsAre(30, 150));
    const Image small = greys(2, 1, {7, 9});
    EXPECT_EQ(scaledToFit(small, 2), small);
    const Image narrow = scaledToFit(greys(1, 1000, std::vector<int>(1000, 50)), 10);
    EXPECT_EQ(std::pair(narrow.width(), narrow.height()), std::pair(1, 10));
    EXPECT_THAT(greysOf(narrow), Each(50));

    // What cannot be seen has no say in the colour.
    const Image seeThrough(2, 1, {200, 10, 10, 255, 0, 255, 0, 0});
    EXPECT_THAT(scaledToFit(seeThrough, 1).rgba(), ElementsAre(200, 10, 10, 128));
}

}  // namespace
}  // namespace dayward
