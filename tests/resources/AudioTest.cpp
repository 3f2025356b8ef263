// What is asked of the audio device.
#include <gmock/gmock.h>

#include "platform/Audio.h"
#include "resources/HHSound.h"
#include "resources/XELAudioManager.h"
#include "support/TestEnvironment.h"
#include "support/TestPaths.h"

namespace dayward {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Writes down which files start and stop.
class RecordingDevice final : public AudioDevice {
public:
    using Log = std::vector<std::string>;
    std::shared_ptr<Log> log = std::make_shared<Log>();

    std::unique_ptr<AudioPlayer> play(const std::string& path) override {
        struct Player final : AudioPlayer {
            explicit Player(std::shared_ptr<Log> to) : log(std::move(to)) {}
            ~Player() override { log->push_back("stop"); }
            std::shared_ptr<Log> log;
        };
        log->push_back(path.substr(path.rfind('/') + 1));
        return std::make_unique<Player>(log);
    }
};

class Audio : public testing::Test {
protected:
    std::shared_ptr<RecordingDevice> device = std::make_shared<RecordingDevice>();
    TestEnvironment environment{{.resources = testData() + "/resources", .audio = device}};

    std::vector<std::string> logOf(const std::optional<std::string>& name) {
        device->log->clear();
        HHSound::playSound(name);
        return std::exchange(*device->log, {});
    }
};

TEST_F(Audio, NamesLeadToFiles) {
    EXPECT_THAT(HHSound::sounds(), ElementsAre("Soft_Bell.wav"));
    EXPECT_THAT(logOf("Soft_Bell.wav"), ElementsAre("Soft_Bell.wav"));
    EXPECT_THAT(logOf("/old/place/Soft_Bell.wav"), ElementsAre("stop", "Soft_Bell.wav"));
    EXPECT_THAT(logOf("Default"), ElementsAre("stop", "iphone_tritone.mp3"));
    EXPECT_THAT(logOf(std::string(XELAudioManager::kDefaultSoundName)), ElementsAre("stop", "iphone_tritone.mp3"));
    EXPECT_THAT(logOf("gone.wav"), ElementsAre("stop"));
    for (const char* name : {"gone.wav", "", "/", "..", "../resources"}) EXPECT_THAT(logOf(name), IsEmpty()) << name;
    EXPECT_THAT(environment.log->errors(), ElementsAre(testing::HasSubstr("not sound file: ")));
}

TEST_F(Audio, OneSoundPlaysAtATime) {
    EXPECT_THAT(logOf("Soft_Bell.wav"), ElementsAre("Soft_Bell.wav"));
    EXPECT_THAT(logOf(std::nullopt), ElementsAre("stop"));
    EXPECT_THAT(logOf("Soft_Bell.wav"), ElementsAre("Soft_Bell.wav"));
    HHSound::stopSound();
    HHSound::stopSound();
    EXPECT_THAT(*device->log, ElementsAre("stop"));
}

TEST(AudioWithoutDevice, PlaysNothing) {
    TestEnvironment environment({.resources = testData() + "/resources"});
    HHSound::playSound("Soft_Bell.wav");
    HHSound::stopSound();
}

TEST(SoundTitle, IsTheFilesNameWithBlanks) {
    EXPECT_EQ(XELAudioManager::descriptionAtSoundFile("/a/Soft_Bell_2.wav"), "Soft Bell 2");
    EXPECT_EQ(XELAudioManager::descriptionAtSoundFile("plain"), "plain");
}

}  // namespace
}  // namespace dayward
