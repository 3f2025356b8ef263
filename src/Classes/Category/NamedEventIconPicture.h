// An icon by resource name. Archived as "c002".
#pragma once

#include "Classes/Category/EventIconPicture.h"
#include "Classes/Category/NamedPicture.h"

namespace dayward {

class NamedEventIconPicture final : public NamedPicture, public EventIconPicture {
public:
    static constexpr const char* kArchiveClass = "c002";
    using NamedPicture::NamedPicture;

    [[nodiscard]] std::shared_ptr<const Image> getImage() const override { return namedImage(); }
    void getImageWithCompletion(const ImageCompletion& completion) const override { namedImage(completion); }

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override {
        return {kArchiveClass, kBaseArchiveClass};
    }
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder) { return readNamed<NamedEventIconPicture>(coder); }
};

}  // namespace dayward
