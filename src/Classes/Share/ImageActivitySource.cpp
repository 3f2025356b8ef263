#include "Classes/Share/ImageActivitySource.h"

#include <utility>

#include "Classes/Event/HHEvent.h"
#include "Classes/Interface/General/TextScrim.h"
#include "Classes/Share/TextActivitySource.h"
#include "platform/DispatchQueue.h"
#include "platform/Environment.h"
#include "platform/Strings.h"

namespace dayward {

PixelSize sharedPictureSize(SharedPictureShape shape) {
    return shape == SharedPictureShape::phone ? PixelSize{1170, 2532} : PixelSize{1080, 1080};
}

double sharedPicturePixelsPerPoint(SharedPictureShape shape) { return shape == SharedPictureShape::phone ? 3 : 2.5; }

std::string sharedPictureShapeLabel(SharedPictureShape shape) {
    return localized(shape == SharedPictureShape::phone ? "Phone" : "Square");
}

ImageActivitySource::ImageActivitySource(std::shared_ptr<const HHEvent> event) : event_(std::move(event)) {}

std::string ImageActivitySource::subject() const { return shareSubject(*event_); }

void ImageActivitySource::getScreenshot(SharedPictureShape shape, ShareServices& services,
                                        std::function<void()> completion) {
    EventDetailView view;
    view.configureForEvent(*event_);
    Queues& queues = Environment::current().queues();
    queues.global().async([&queues, &services, view = std::move(view), shape, request = ++request_,
                           weak = weak_from_this(), completion = std::move(completion)]() mutable {
        view.setScrim(textScrim(view.textColor(), *view.backgroundView().load()));
        queues.main().async([&services, view, shape, request, weak, completion] {
            const auto self = weak.lock();
            if (self && self->request_ == request) self->draw(view, shape, services, completion);
        });
    });
}

void ImageActivitySource::draw(const EventDetailView& view, SharedPictureShape shape, ShareServices& services,
                               std::function<void()> completion) {
    services.renderDetail(view, sharedPictureSize(shape), sharedPicturePixelsPerPoint(shape),
                          [weak = weak_from_this(), request = request_,
                           completion = std::move(completion)](ShareServices::Picture drawn) {
                              const auto self = weak.lock();
                              if (!self || self->request_ != request) return;
                              self->image_ = std::move(drawn);
                              completion();
                          });
}

}  // namespace dayward
