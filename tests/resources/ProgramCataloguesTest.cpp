// The program's own catalogues, as the build has made them.
#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <regex>
#include <set>
#include <sstream>

#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "platform/Strings.h"
#include "resources/FontLook.h"
#include "resources/Gallery.h"
#include "resources/HHResources.h"
#include "resources/HHSound.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

using testing::AllOf;
using testing::Each;
using testing::Ge;
using testing::Le;

std::string textOf(const std::filesystem::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

class ProgramCatalogues : public testing::Test {
protected:
    TestEnvironment environment{{.resources = DAYWARD_BUILT_RESOURCES}};
};

/// A picture seen from afar: the mean colours of 12 by 12 fields, on grey where it is transparent.
constexpr int kFields = 12;
using Glance = std::array<float, 3 * kFields * kFields>;

Glance glanceOf(const Image& image) {
    Glance sums{}, counts{};
    for (int row = 0; row < image.height(); ++row) {
        for (int column = 0; column < image.width(); ++column) {
            const auto* const pixel = &image.rgba()[(static_cast<std::size_t>(row) * image.width() + column) * 4];
            const int field = row * kFields / image.height() * kFields + column * kFields / image.width();
            for (int channel = 0; channel < 3; ++channel) {
                const auto at = static_cast<std::size_t>(field * 3 + channel);
                sums[at] += 128 + static_cast<float>(pixel[channel] - 128) * pixel[3] / 255;
                ++counts[at];
            }
        }
    }
    for (std::size_t at = 0; at < sums.size(); ++at) sums[at] /= counts[at];
    return sums;
}

float difference(const Glance& a, const Glance& b) {
    float sum = 0;
    for (std::size_t at = 0; at < a.size(); ++at) sum += std::abs(a[at] - b[at]);
    return sum / static_cast<float>(a.size());
}

/// Each file is a picture of that size, none of one colour, and no two look alike.
void expectPictures(const std::vector<std::string>& names, int size) {
    constexpr float kAlike = 2.5F, kPlain = 2;
    std::vector<Glance> glances;
    for (const auto& name : names) {
        const auto image = HHResources::image(name);
        ASSERT_EQ(image->width(), size) << name;
        ASSERT_EQ(image->height(), size) << name;
        const Glance glance = glanceOf(*image);
        Glance plain{};
        for (std::size_t at = 0; at < plain.size(); ++at) plain[at] = glance[at % 3];
        EXPECT_GT(difference(glance, plain), kPlain) << name;
        for (std::size_t other = 0; other < glances.size(); ++other) {
            EXPECT_GT(difference(glance, glances[other]), kAlike) << name << " looks like " << names[other];
        }
        glances.push_back(glance);
    }
}

TEST_F(ProgramCatalogues, IconsAreSquareAndDifferent) {
    EXPECT_GE(HHResources::icons().size(), 150U);
    expectPictures(HHResources::icons(), 256);
    for (const auto& name : HHResources::icons()) EXPECT_EQ(HHResources::image(name)->rgba()[3], 0) << name;
}

TEST_F(ProgramCatalogues, BackgroundsAreSquareAndDifferent) {
    EXPECT_GE(HHResources::backgrounds().size(), 80U);
    expectPictures(HHResources::backgrounds(), 1024);
    expectPictures({"BackgroundInfoRandomName.png", "BackgroundInfoRandomColor.png"}, 256);
}

std::uint32_t littleEndian(const std::string& bytes, std::size_t at, int count) {
    std::uint32_t value = 0;
    for (int index = count; index-- > 0;) value = value << 8 | static_cast<std::uint8_t>(bytes[at + index]);
    return value;
}

TEST_F(ProgramCatalogues, WavesAreCleanAndAboutEquallyLoud) {
    constexpr std::size_t kHeader = 44, kRate = 44100, kWindow = kRate * 2 / 5;
    for (const auto& name : HHSound::sounds()) {
        if (!name.ends_with(".wav")) continue;
        SCOPED_TRACE(name);
        const std::string file = textOf(*HHResources::pathForFileName(name));
        ASSERT_GT(file.size(), kHeader);
        EXPECT_EQ(file.substr(0, 4) + file.substr(8, 8) + file.substr(36, 4), "RIFFWAVEfmt data");
        const std::array fields = {littleEndian(file, 4, 4) + 8, littleEndian(file, 20, 2), littleEndian(file, 22, 2),
                                   littleEndian(file, 24, 4),    littleEndian(file, 34, 2), littleEndian(file, 40, 4)};
        EXPECT_THAT(fields, testing::ElementsAre(file.size(), 1, 1, kRate, 16, file.size() - kHeader));

        std::vector<std::int16_t> samples((file.size() - kHeader) / 2);
        std::memcpy(samples.data(), file.data() + kHeader, samples.size() * 2);
        EXPECT_THAT(static_cast<double>(samples.size()) / kRate, AllOf(Ge(1), Le(6)));
        const auto strength = [](std::int16_t sample) { return std::abs(sample / 32768.0); };
        double peak = 0, loudest = 0, sum = 0, mean = 0;
        for (std::size_t at = 0; at < samples.size(); ++at) {
            peak = std::max(peak, strength(samples[at]));
            mean += samples[at] / 32768.0 / static_cast<double>(samples.size());
            sum += std::pow(strength(samples[at]), 2);
            if (at >= kWindow) sum -= std::pow(strength(samples[at - kWindow]), 2);
            loudest = std::max(loudest, sum / kWindow);
        }
        EXPECT_THAT(peak, AllOf(Ge(0.25), Le(0.9)));
        EXPECT_THAT(10 * std::log10(loudest), AllOf(Ge(-21), Le(-11)));
        EXPECT_NEAR(mean, 0, 0.002);
        EXPECT_LT(strength(samples.front()), 0.02);
        for (std::size_t at = samples.size() - 20; at < samples.size(); ++at) EXPECT_LT(strength(samples[at]), 0.001);
    }
}

TEST_F(ProgramCatalogues, TheDefaultSoundIsAWholeMP3) {
    constexpr std::array kBitRates = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
    const std::string file = textOf(*HHResources::pathForResource("iphone_tritone", "mp3"));
    std::size_t at = 0, frames = 0;
    for (; at + 4 <= file.size(); ++frames) {  // each frame's header tells where the next one lies
        const auto byte = [&](int index) { return static_cast<std::uint8_t>(file[at + index]); };
        ASSERT_EQ(byte(0) << 8 | (byte(1) & 0xFE), 0xFFFA) << "no MPEG-1 layer III frame at " << at;
        ASSERT_EQ(byte(2) >> 2 & 3, 0) << "not 44.1 kHz at " << at;
        at += 144000 * kBitRates.at(byte(2) >> 4) / 44100 + (byte(2) >> 1 & 1);
    }
    EXPECT_EQ(at, file.size());
    EXPECT_THAT(static_cast<double>(frames) * 1152 / 44100, AllOf(Ge(1), Le(6)));
}

TEST_F(ProgramCatalogues, EachFileIsInOneGroupAndHasANameInBothLanguages) {
    const auto russian = *Strings::load(environment->files(), DAYWARD_BUILT_RESOURCES "/strings", "ru");
    const auto english = *Strings::load(environment->files(), DAYWARD_BUILT_RESOURCES "/strings", "en");
    const auto expectName = [&](const std::string& name) {
        EXPECT_TRUE(english->contains(name, "Gallery") && russian->contains(name, "Gallery")) << name;
    };
    EXPECT_GE(HHSound::sounds().size(), 20U);
    for (const auto& [groups, files] : {std::pair(Gallery::icons(), HHResources::icons()),
                                        {Gallery::backgrounds(), HHResources::backgrounds()},
                                        {Gallery::sounds(), HHSound::sounds()}}) {
        std::vector<std::string> grouped;
        std::set<std::string> names;
        for (const auto& group : groups) {
            expectName(group.name);
            for (const auto& item : group.items) {
                expectName(item.name);
                EXPECT_TRUE(names.insert(item.name).second) << item.name << " names two files";
                grouped.push_back(item.file);
            }
        }
        EXPECT_EQ(grouped, files);
    }
    EXPECT_TRUE(environment.log->errors().empty());
}

TEST_F(ProgramCatalogues, TitlesAreInTheUsersLanguage) {
    EXPECT_EQ(Gallery::titleOfFile("cards.png"), "Bank Card");
    EXPECT_EQ(Gallery::titleOfFile("My_Own_Sound.wav"), "My Own Sound");
    TestEnvironment russian({.locale = "ru_RU", .resources = DAYWARD_BUILT_RESOURCES});
    EXPECT_EQ(Gallery::titleOfFile("cards.png"), "Банковская карта");
    EXPECT_EQ(Gallery::icons().front().title(), "Праздники");
}

/// Every picture that the source names is in a catalogue, the two previews and the default sound aside.
TEST_F(ProgramCatalogues, HoldWhatTheProgramNames) {
    std::set<std::string> known = {"BackgroundInfoRandomName.png", "BackgroundInfoRandomColor.png"};
    known.insert(HHResources::icons().begin(), HHResources::icons().end());
    known.insert(HHResources::backgrounds().begin(), HHResources::backgrounds().end());
    known.insert(HHSound::sounds().begin(), HHSound::sounds().end());
    const std::regex literal(R"re("([^"/]+\.(png|jpg|mp3|wav))")re");
    int found = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(DAYWARD_SOURCES)) {
        const auto& path = entry.path();
        if ((path.extension() != ".cpp" && path.extension() != ".h") || path.string().contains("/generator/")) continue;
        const std::string text = textOf(path);
        for (std::sregex_iterator at(text.begin(), text.end(), literal), end; at != end; ++at, ++found) {
            EXPECT_TRUE(known.contains((*at)[1])) << (*at)[1] << " in " << path;
        }
    }
    EXPECT_GT(found, 10);
}

std::string outputOf(const std::string& command) {
    std::string output;
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    for (int character = 0; (character = std::fgetc(pipe.get())) != EOF;)
        output.push_back(static_cast<char>(character));
    return output;
}

TEST_F(ProgramCatalogues, FontsAreInstalledAndLookDifferent) {
    ASSERT_EQ(HHResources::fonts().size(), 41U);
    EXPECT_EQ(HHResources::fonts().front(), "Cochin-Bold");
    EXPECT_EQ(HHResources::fonts().back(), "HelveticaNeue-Light");
    EXPECT_FALSE(FontLook::named("Comic Sans"));
    const std::string packages = textOf(DAYWARD_PACKAGES), licences = textOf(DAYWARD_BUILT_RESOURCES "/licences.txt");
    std::set<std::tuple<std::string, int, bool, bool>> looks;
    for (const FontLook& look : FontLook::all()) {
        SCOPED_TRACE(look.name);
        EXPECT_TRUE(looks.emplace(look.family, look.weight, look.isItalic, look.isSmallCaps).second);
        EXPECT_THAT((std::set<std::string>{"serif", "sans-serif", "cursive", "monospace"}),
                    testing::Contains(look.fallback));
        EXPECT_TRUE(packages.contains("\n" + look.package + " app test\n"));
        EXPECT_TRUE(licences.contains(look.package.substr(0, look.package.rfind('-')))) << look.package;
        EXPECT_THAT(outputOf("fc-list ':family=" + look.family + "' family"), testing::HasSubstr(look.family));
    }
}

}  // namespace
}  // namespace dayward
