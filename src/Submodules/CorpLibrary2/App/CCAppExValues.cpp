#include "Submodules/CorpLibrary2/App/CCAppExValues.h"

#include "platform/Environment.h"

namespace dayward {

void CCAppExValues::setContainer(std::shared_ptr<const TagContainer> container) {
    auto& values = Environment::current().shared<CCAppExValues>();
    const Lock lock(values.mutex_);
    values.container_ = std::move(container);
}

std::shared_ptr<const TagContainer> CCAppExValues::container() {
    auto& values = Environment::current().shared<CCAppExValues>();
    const Lock lock(values.mutex_);
    return values.container_;
}

bool CCAppExValues::booleanForKey(const std::string& key) {
    const auto tags = container();
    return tags && tags->booleanForKey(key);
}

double CCAppExValues::doubleForKey(const std::string& key) {
    const auto tags = container();
    return tags ? tags->doubleForKey(key) : 0;
}

std::int64_t CCAppExValues::integerForKey(const std::string& key) {
    const auto tags = container();
    return tags ? tags->integerForKey(key) : 0;
}

std::optional<std::string> CCAppExValues::stringForKey(const std::string& key) {
    const auto tags = container();
    return tags ? tags->stringForKey(key) : std::nullopt;
}

}  // namespace dayward
