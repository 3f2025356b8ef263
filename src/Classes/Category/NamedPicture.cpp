#include "Classes/Category/NamedPicture.h"

#include <typeinfo>

#include "platform/KeyedArchiver.h"
#include "resources/HHResources.h"

namespace dayward {

void NamedPicture::encodeWithCoder(KeyedArchiver& coder) const { coder.encodeObject(named_, kNamedKey); }

bool NamedPicture::isEqual(const Archivable& other) const {
    return typeid(*this) == typeid(other) && named_ == dynamic_cast<const NamedPicture&>(other).named_;
}

std::shared_ptr<const Image> NamedPicture::namedImage() const { return HHResources::image(named_); }

}  // namespace dayward
