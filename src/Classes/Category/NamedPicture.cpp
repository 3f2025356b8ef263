#include "Classes/Category/NamedPicture.h"

#include <typeinfo>

#include "platform/DispatchQueue.h"
#include "platform/Environment.h"
#include "platform/KeyedArchiver.h"
#include "resources/HHResources.h"

namespace dayward {

void NamedPicture::encodeWithCoder(KeyedArchiver& coder) const { coder.encodeObject(named_, kNamedKey); }

bool NamedPicture::isEqual(const Archivable& other) const {
    return typeid(*this) == typeid(other) && named_ == dynamic_cast<const NamedPicture&>(other).named_;
}

std::shared_ptr<const Image> NamedPicture::namedImage() const { return HHResources::image(named_); }

std::shared_ptr<const Image> NamedPicture::namedImage(PixelSize filling) const {
    return HHResources::image(named_, filling);
}

void NamedPicture::namedImage(const std::function<void(std::shared_ptr<const Image>)>& completion) const {
    if (auto cached = HHResources::cachedImage(named_)) return completion(std::move(cached));
    Queues& queues = Environment::current().queues();
    queues.global().async([&queues, name = named_, completion] {
        queues.main().async([image = HHResources::image(name), completion] { completion(image); });
    });
}

}  // namespace dayward
