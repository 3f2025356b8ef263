#include "Classes/Interface/Select/OwnPicture.h"

#include "platform/DispatchQueue.h"
#include "platform/Environment.h"
#include "platform/ImageImport.h"
#include "platform/PercentFormat.h"
#include "platform/Strings.h"

namespace dayward {

void readOwnPicture(ChosenPicture picture, int longestSide,
                    std::function<void(std::shared_ptr<const Image>, const std::string& source)> completion) {
    Queues& queues = Environment::current().queues();
    queues.global().async([&queues, picture = std::move(picture), longestSide, completion = std::move(completion)] {
        auto image = importImage(picture.bytes, longestSide);
        std::shared_ptr<const Image> read;
        if (image) read = std::make_shared<const Image>(*std::move(image));
        queues.main().async([completion, read, source = picture.source] { completion(read, source); });
    });
}

Alert unreadablePictureAlert(const std::string& source) {
    return {formatText(localized("\"%@\" is no picture that can be read."), {source}),
            localized("Choose a PNG or JPEG file."),
            {{localized("OK"), AlertButton::Role::cancel}}};
}

}  // namespace dayward
