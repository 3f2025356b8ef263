#include "platform/Image.h"
#include "support/TestPaths.h"

#include <gmock/gmock.h>

#include <cstdio>
// libjpeg's header needs the one above.
#include <jpeglib.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>

namespace dayward {
namespace {

/// A smooth picture, so that JPEG keeps it nearly.
Image picture(int width, int height) {
    Data rgba;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            for (const int value : {x * 255 / width, y * 255 / height, 128, 255}) {
                rgba.push_back(static_cast<std::uint8_t>(value));
            }
        }
    }
    return Image(width, height, std::move(rgba));
}

int largestDifference(const Image& a, const Image& b) {
    int largest = 0;
    for (std::size_t i = 0; i < a.rgba().size(); ++i) largest = std::max(largest, std::abs(a.rgba()[i] - b.rgba()[i]));
    return largest;
}

Data storedImage(const std::string& name) {
    std::ifstream file(testData() + "/images/" + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    return Data(std::istreambuf_iterator<char>(file), {});
}

/// A JPEG of one colour in the given space, as the makers of photographs and prints write it.
Data jpegOf(J_COLOR_SPACE space, const std::vector<std::uint8_t>& color, int size) {
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* bytes = nullptr;
    unsigned long length = 0;
    jpeg_mem_dest(&info, &bytes, &length);
    info.image_width = info.image_height = static_cast<JDIMENSION>(size);
    info.input_components = static_cast<int>(color.size());
    info.in_color_space = space;
    jpeg_set_defaults(&info);
    jpeg_simple_progression(&info);
    jpeg_start_compress(&info, TRUE);
    std::vector<std::uint8_t> row;
    for (int x = 0; x < size; ++x) row.insert(row.end(), color.begin(), color.end());
    JSAMPROW start = row.data();
    while (info.next_scanline < info.image_height) jpeg_write_scanlines(&info, &start, 1);
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    const Data data(bytes, bytes + length);
    std::free(bytes);
    return data;
}

std::string reasonOf(const Result<Image>& result) {
    if (result) return "no error";
    EXPECT_EQ(result.error().domain, "image");
    return result.error().userInfo.at("reason");
}

TEST(Image, pngKeepsEveryPixel) {
    Image image(2, 2, {255, 0, 0, 255, 1, 2, 3, 0, 10, 20, 30, 128, 0, 0, 0, 1});
    EXPECT_EQ(*Image::decode(*image.pngData()), image);
    image = picture(123, 45);
    EXPECT_EQ(*Image::decode(*image.pngData()), image);
}

TEST(Image, readsTheFormsOfPNG) {
    const Data expected{0, 0, 0, 255, 255, 255, 255, 255, 255, 255, 255, 255, 0, 0, 0, 255};
    for (const char* name : {"grey1.png", "grey8.png", "palette.png", "rgb16.png", "interlaced.png"}) {
        const auto image = Image::decode(storedImage(name));
        ASSERT_TRUE(image) << name << ": " << image.error().description();
        EXPECT_EQ(image->width(), 2) << name;
        EXPECT_EQ(image->rgba(), expected) << name;
    }
    const auto transparent = Image::decode(storedImage("palette-transparent.png"));
    ASSERT_TRUE(transparent);
    EXPECT_EQ(transparent->rgba()[3], 0);
    EXPECT_EQ(transparent->rgba()[7], 255);
}

TEST(Image, jpegIsNearAndSmallerWithLessQuality) {
    const Image image = picture(200, 100);
    const Data fine = *image.jpegData(1);
    const Data usual = *image.jpegData(0.8);
    EXPECT_LT(usual.size(), fine.size());
    EXPECT_LE(largestDifference(image, *Image::decode(fine)), 4);
    EXPECT_LE(largestDifference(image, *Image::decode(usual)), 24);
    EXPECT_EQ(image.jpegData(5)->size(), fine.size());
}

TEST(Image, jpegForAPlaceFillsItAndIsNoLargerThanNeeded) {
    const Image image = picture(200, 100);
    const Data jpeg = *image.jpegData(1);
    struct Case {
        PixelSize place, expected;
    };
    for (const auto& [place, expected] :
         {Case{{50, 10}, {50, 25}}, Case{{10, 50}, {100, 50}}, Case{{51, 10}, {75, 38}}, Case{{0, 0}, {25, 13}},
          Case{{-1, 5}, {25, 13}}, Case{{200, 100}, {200, 100}}, Case{{900, 10}, {200, 100}}}) {
        const auto shrunk = Image::decode(jpeg, place);
        ASSERT_TRUE(shrunk);
        EXPECT_EQ((PixelSize{shrunk->width(), shrunk->height()}), expected) << place.width << " " << place.height;
    }
    // The same picture: its corners stand where they were.
    const Image half = *Image::decode(jpeg, {100, 50});
    const auto channel = [](const Image& from, int x, int y, int of) {
        return from.rgba()[static_cast<std::size_t>(4 * (y * from.width() + x) + of)];
    };
    for (const int x : {10, 90}) {
        for (const int y : {5, 45}) {
            for (const int of : {0, 1, 2}) {
                EXPECT_NEAR(channel(half, x, y, of), channel(image, 2 * x, 2 * y, of), 12) << x << " " << y;
            }
        }
    }
    EXPECT_EQ(Image::decode(*image.pngData(), {50, 10})->width(), 200);
}

TEST(Image, jpegDropsAlphaOntoWhite) {
    Data rgba;
    for (int i = 0; i < 256; ++i) rgba.insert(rgba.end(), {255, 0, 0, 128});
    const auto read = Image::decode(*Image(16, 16, rgba).jpegData(1));
    ASSERT_TRUE(read);
    EXPECT_NEAR(read->rgba()[0], 255, 3);
    EXPECT_NEAR(read->rgba()[1], 127, 3);
    EXPECT_EQ(read->rgba()[3], 255);
}

TEST(Image, readsGreyAndFourInkJPEGs) {
    struct Case {
        J_COLOR_SPACE space;
        std::vector<std::uint8_t> color;
        std::array<int, 3> expected;
    };
    // Inverted inks, as the marker that the library writes for them says.
    for (const Case& each :
         {Case{JCS_GRAYSCALE, {90}, {90, 90, 90}}, Case{JCS_RGB, {10, 200, 30}, {10, 200, 30}},
          Case{JCS_CMYK, {255, 128, 0, 255}, {255, 128, 0}}, Case{JCS_CMYK, {200, 100, 50, 0}, {0, 0, 0}}}) {
        const auto image = Image::decode(jpegOf(each.space, each.color, 32));
        ASSERT_TRUE(image);
        for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(image->rgba()[i], each.expected[i], 3) << each.space;
        EXPECT_EQ(image->rgba()[3], 255);
    }
}

TEST(Image, saysWhatIsWrong) {
    EXPECT_EQ(reasonOf(Image::decode({})), "empty");
    EXPECT_EQ(reasonOf(Image::decode(dataOf("GIF89a"))), "neither PNG nor JPEG");
    EXPECT_THAT(reasonOf(Image::decode(dataOf("\x89PNG no more"))), testing::HasSubstr("PNG: "));
    EXPECT_THAT(reasonOf(Image::decode(dataOf("\xFF\xD8\xFF"))), testing::HasSubstr("JPEG: "));
    EXPECT_EQ(reasonOf(Image::decode(storedImage("claims-too-much.png"))), "too many pixels");
    EXPECT_EQ(reasonOf(Image::decode(storedImage("claims-much.png"))), "the data end early");
    EXPECT_FALSE(Image().pngData());
    EXPECT_FALSE(Image().jpegData(1));
    EXPECT_FALSE(Image(70000, 1, Data(280000)).jpegData(1)) << "wider than the format allows";
}

class DamagedImage : public testing::TestWithParam<const char*> {
protected:
    [[nodiscard]] static Data whole() {
        const Image image = picture(40, 30);
        const std::string form = GetParam();
        if (form == "png") return *image.pngData();
        if (form == "jpeg") return *image.jpegData(0.8);
        return jpegOf(JCS_RGB, {1, 2, 3}, 40);
    }
};

TEST_P(DamagedImage, survivesEveryTruncation) {
    const Data bytes = whole();
    for (std::size_t length = 0; length + 16 < bytes.size(); ++length) {
        const Data cut(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_FALSE(Image::decode(cut)) << length;
    }
}

TEST_P(DamagedImage, survivesChangedBytes) {
    constexpr unsigned kSeed = 4711;
    SCOPED_TRACE("seed " + std::to_string(kSeed));
    std::mt19937 random(kSeed);
    const Data bytes = whole();
    for (int round = 0; round < 2000; ++round) {
        Data changed = bytes;
        for (unsigned i = 0; i <= random() % 4; ++i) {
            changed[2 + random() % (changed.size() - 2)] = static_cast<std::uint8_t>(random());
        }
        const auto image = Image::decode(changed);
        if (image) {
            EXPECT_EQ(image->rgba().size(), 4U * static_cast<unsigned>(image->width() * image->height()));
        } else {
            EXPECT_FALSE(reasonOf(image).empty());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Forms, DamagedImage, testing::Values("png", "jpeg", "progressive"));

}  // namespace
}  // namespace dayward
