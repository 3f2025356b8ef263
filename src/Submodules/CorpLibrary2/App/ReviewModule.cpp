#include "Submodules/CorpLibrary2/App/ReviewModule.h"

#include "platform/Environment.h"

namespace dayward {

ReviewModule& ReviewModule::shared() { return Environment::current().shared<ReviewModule>(); }

bool ReviewModule::isOn() { return shared().isOn_; }

void ReviewModule::setOn(bool on) { shared().isOn_ = on; }

void ReviewModule::setHooks(Hooks hooks) { shared().hooks_ = std::move(hooks); }

bool ReviewModule::reviewAvailable() {
    const auto& hook = shared().hooks_.reviewAvailable;
    return hook && hook();
}

bool ReviewModule::canShowReviewRequest() {
    const auto& hook = shared().hooks_.canShowReviewRequest;
    return hook && hook();
}

}  // namespace dayward
