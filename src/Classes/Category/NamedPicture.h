// Base of the pictures that are a resource's file name. Archived as "c001a": "p001" the name.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/Archivable.h"
#include "platform/Image.h"
#include "platform/KeyedUnarchiver.h"

namespace dayward {

class NamedPicture : public virtual Archivable {
public:
    static constexpr const char* kBaseArchiveClass = "c001a";
    static constexpr const char* kNamedKey = "p001";

    explicit NamedPicture(std::string named) : named_(std::move(named)) {}

    [[nodiscard]] const std::string& named() const { return named_; }

    void encodeWithCoder(KeyedArchiver& coder) const override;
    /// Same class and same name.
    [[nodiscard]] bool isEqual(const Archivable& other) const override;

protected:
    [[nodiscard]] std::shared_ptr<const Image> namedImage() const;
    /// The same for a place that it is to fill, maybe smaller.
    [[nodiscard]] std::shared_ptr<const Image> namedImage(PixelSize filling) const;
    /// An image that is at hand at once, else on the main queue once it is read.
    void namedImage(const std::function<void(std::shared_ptr<const Image>)>& completion) const;

    /// Null where the archive has no name.
    template <class Picture>
    static std::shared_ptr<Archivable> readNamed(KeyedUnarchiver& coder) {
        auto named = coder.decodeString(kNamedKey);
        return named ? std::make_shared<Picture>(*std::move(named)) : nullptr;
    }

private:
    const std::string named_;
};

}  // namespace dayward
