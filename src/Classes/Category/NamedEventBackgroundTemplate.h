// A template that gives one named background. Archived as "c007".
#pragma once

#include "Classes/Category/EventBackgroundTemplate.h"
#include "Classes/Category/NamedEventBackgroundPicture.h"
#include "Classes/Category/NamedPicture.h"

namespace dayward {

class NamedEventBackgroundTemplate final : public NamedPicture, public EventBackgroundTemplate {
public:
    static constexpr const char* kArchiveClass = "c007";
    using NamedPicture::NamedPicture;

    [[nodiscard]] std::shared_ptr<const Image> getImage() const override { return namedImage(); }
    [[nodiscard]] std::shared_ptr<EventBackgroundPicture> getPicture() const override {
        return std::make_shared<NamedEventBackgroundPicture>(named());
    }

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override {
        return {kArchiveClass, kBaseArchiveClass};
    }
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder) {
        return readNamed<NamedEventBackgroundTemplate>(coder);
    }
};

}  // namespace dayward
