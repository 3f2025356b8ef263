// A background by resource name. Archived as "c004".
#pragma once

#include "Classes/Category/EventBackgroundPicture.h"
#include "Classes/Category/NamedPicture.h"

namespace dayward {

class NamedEventBackgroundPicture final : public NamedPicture, public EventBackgroundPicture {
public:
    static constexpr const char* kArchiveClass = "c004";
    using NamedPicture::NamedPicture;

    [[nodiscard]] std::shared_ptr<const Image> getImage() const override { return namedImage(); }
    [[nodiscard]] std::shared_ptr<const Image> getImageFilling(PixelSize size) const override {
        return namedImage(size);
    }

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override {
        return {kArchiveClass, kBaseArchiveClass};
    }
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder) {
        return readNamed<NamedEventBackgroundPicture>(coder);
    }
};

}  // namespace dayward
