#include "resources/XELAudioManager.h"

#include <algorithm>

#include "platform/Audio.h"
#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "resources/HHResources.h"

namespace dayward {
namespace {

constexpr std::string_view kDefaultName = "Default", kDefaultFile = "iphone_tritone", kDefaultType = "mp3";

}  // namespace

XELAudioManager::XELAudioManager(Environment&) {}

XELAudioManager::~XELAudioManager() = default;

XELAudioManager& XELAudioManager::sharedManager() { return Environment::current().shared<XELAudioManager>(); }

std::optional<std::string> XELAudioManager::pathOfSound(std::string_view name) {
    if (name == kDefaultSoundName || name == kDefaultName) {
        return HHResources::pathForResource(kDefaultFile, kDefaultType);
    }
    const auto file = lastPathComponent(name);
    return HHResources::pathForResource(deletingPathExtension(file), pathExtension(file));
}

void XELAudioManager::playSound(const std::optional<std::string>& name) {
    stopSound();
    AudioDevice* const device = Environment::current().audio();
    const auto path = name && device != nullptr ? pathOfSound(*name) : std::nullopt;
    if (path) player_ = device->play(*path);
}

void XELAudioManager::stopSound() { player_.reset(); }

std::string XELAudioManager::descriptionAtSoundFile(std::string_view file) {
    std::string title(deletingPathExtension(lastPathComponent(file)));
    std::ranges::replace(title, '_', ' ');
    return title;
}

}  // namespace dayward
