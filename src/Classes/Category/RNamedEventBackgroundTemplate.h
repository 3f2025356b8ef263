// A template that gives a random named background of the catalogue. Archived as "c011", without keys.
#pragma once

#include "Classes/Category/EventBackgroundTemplate.h"

namespace dayward {

class RNamedEventBackgroundTemplate final : public EventBackgroundTemplate {
public:
    static constexpr const char* kArchiveClass = "c011";
    static constexpr const char* kImageName = "BackgroundInfoRandomName.png";

    /// Each entry of the catalogue is as likely; white where the catalogue is empty.
    [[nodiscard]] std::shared_ptr<EventBackgroundPicture> getPicture() const override;
    [[nodiscard]] std::shared_ptr<const Image> getImage() const override;
    [[nodiscard]] bool isRandom() const override { return true; }

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kArchiveClass}; }
    void encodeWithCoder(KeyedArchiver&) const override {}
    /// Any two are equal.
    [[nodiscard]] bool isEqual(const Archivable& other) const override;
    static std::shared_ptr<Archivable> read(KeyedUnarchiver&) {
        return std::make_shared<RNamedEventBackgroundTemplate>();
    }
};

}  // namespace dayward
