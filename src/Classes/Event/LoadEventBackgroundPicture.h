// A background whose image lies in the event's document and is read when somebody asks.
//
// The images are read through the event store and kept in the cache that LoadEventIconPicture uses.
// Never archived: what archives an event puts the image itself in its place. Any thread.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Classes/Category/EventBackgroundPicture.h"

namespace dayward {

class LoadEventBackgroundPicture final : public EventBackgroundPicture {
public:
    static constexpr const char* kClassName = "LoadEventBackgroundPicture";

    explicit LoadEventBackgroundPicture(std::string itemKey) : itemKey_(std::move(itemKey)) {}

    /// The event's identifier.
    [[nodiscard]] const std::string& itemKey() const { return itemKey_; }

    /// The empty image where the document has none. Reads the file, unless the image is cached.
    [[nodiscard]] std::shared_ptr<const Image> getImage() const override;

    /// The event's document has changed: the next question reads it again.
    static void forgetImage(std::string_view itemKey);

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kClassName}; }
    void encodeWithCoder(KeyedArchiver&) const override {}
    /// Same item key.
    [[nodiscard]] bool isEqual(const Archivable& other) const override;

private:
    const std::string itemKey_;
};

}  // namespace dayward
