#include "Classes/Interface/Select/SoundsViewController.h"

#include <utility>

#include "Classes/Interface/General/Interface.h"
#include "Classes/Interface/Select/Favorites.h"
#include "Classes/Interface/Select/GalleryViewController.h"
#include "platform/Strings.h"
#include "resources/Gallery.h"
#include "resources/HHSound.h"

namespace dayward {

SoundsViewController::SoundsViewController(std::optional<std::string> selectedSound, Completion completionBlock)
    : selectedSound_(std::move(selectedSound)), completionBlock_(std::move(completionBlock)) {
    setTitle(localized("Sound"));
}

void SoundsViewController::viewWillAppear() {
    recent_ = Favorites::names(Favorites::kSounds);
    TableScreen::viewWillAppear();
}

void SoundsViewController::viewWillDisappear(Disappearance) {
    HHSound::stopSound();
    if (!std::exchange(isChanged_, false)) return;
    const bool isFromGallery = *selectedSound_ != Interface::kSilentSound && !Interface::isDefaultSound(selectedSound_);
    if (isFromGallery) Favorites::add(*selectedSound_, Favorites::kSounds);
    completionBlock_(selectedSound_);
}

std::vector<TableSection> SoundsViewController::makeSections() {
    std::vector<TableSection> sections{{"choices", {}, {}, {}}, {"recent", recentlyChosenHeader(), {}, {}}};
    for (const char* name : {Interface::kSilentSound, Interface::kDefaultSound}) {
        sections[0].rows.push_back(soundRow("choices", name, Interface::descriptionSound(name)));
    }
    for (const std::string& sound : recent_) {
        sections[1].rows.push_back(soundRow("recent", sound, Gallery::titleOfFile(sound)));
    }
    for (const GalleryGroup& group : Gallery::sounds()) {
        sections.push_back({"group:" + group.name, group.title(), {}, {}});
        for (const GalleryItem& item : group.items) {
            sections.back().rows.push_back(soundRow(sections.back().id, item.file, item.title()));
        }
    }
    std::erase_if(sections, [](const TableSection& section) { return section.rows.empty(); });
    return sections;
}

TableRow SoundsViewController::soundRow(const std::string& sectionId, const std::string& sound, std::string title) {
    const bool isSelected = Interface::isDefaultSound(sound) ? Interface::isDefaultSound(selectedSound_)
                                                             : selectedSound_ == sound;
    return checkRow(sectionId + ":" + sound, std::move(title), isSelected, [this, sound] { choose(sound); });
}

void SoundsViewController::choose(const std::string& sound) {
    selectedSound_ = sound;
    isChanged_ = true;
    if (sound == Interface::kSilentSound) {
        HHSound::stopSound();
    } else {
        HHSound::playSound(sound);
    }
    reloadData();
}

}  // namespace dayward
