#include "resources/HHSound.h"

#include "platform/Environment.h"
#include "resources/CatalogueNames.h"
#include "resources/XELAudioManager.h"

namespace dayward {
namespace {

struct SoundCatalogue {
    explicit SoundCatalogue(Environment&) {}
    const std::vector<std::string> names = existingNames("soundData", "not sound file: ");
};

}  // namespace

const std::vector<std::string>& HHSound::sounds() { return Environment::current().shared<SoundCatalogue>().names; }

void HHSound::playSound(const std::optional<std::string>& name) { XELAudioManager::sharedManager().playSound(name); }

void HHSound::stopSound() { XELAudioManager::sharedManager().stopSound(); }

}  // namespace dayward
