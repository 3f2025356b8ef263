// Base of the pictures of one colour. Archived as "c004a": "p001" the colour.
#pragma once

#include <memory>

#include "platform/Archivable.h"
#include "platform/Color.h"
#include "platform/Image.h"
#include "platform/KeyedUnarchiver.h"

namespace dayward {

class ColorPicture : public virtual Archivable {
public:
    static constexpr const char* kBaseArchiveClass = "c004a";
    static constexpr const char* kColorKey = "p001";

    explicit ColorPicture(Color color) : color_(color) {}

    [[nodiscard]] const Color& color() const { return color_; }

    void encodeWithCoder(KeyedArchiver& coder) const override;
    /// Same class and same colour.
    [[nodiscard]] bool isEqual(const Archivable& other) const override;

    /// One pixel of the colour.
    static std::shared_ptr<const Image> imageOfColor(const Color& color);

protected:
    /// Null where the archive has no colour.
    template <class Picture>
    static std::shared_ptr<Archivable> readColor(KeyedUnarchiver& coder) {
        const auto color = colorOf(coder.decodeObject(kColorKey));
        return color ? std::make_shared<Picture>(*color) : nullptr;
    }

private:
    const Color color_;
};

}  // namespace dayward
