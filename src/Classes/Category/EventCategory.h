// A category: the defaults of look for the events in it.
//
// A plain record, equal by key alone. Archived as "c001"; reading takes each key by itself, and a
// value of another type counts as absent. Whoever changes one gives it back to its store.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Classes/Category/EventBackgroundTemplate.h"
#include "Classes/Category/EventIconPicture.h"
#include "platform/Archivable.h"
#include "platform/Color.h"

namespace dayward {

class EventCategory final : public Archivable {
public:
    static constexpr const char* kArchiveClass = "c001";
    static constexpr const char* kKeyKey = "p001";
    static constexpr const char* kNameKey = "p002";
    static constexpr const char* kEventIconKey = "p003";
    static constexpr const char* kEventBackgroundTplKey = "p004";
    static constexpr const char* kEventFontKey = "p005";
    static constexpr const char* kEventTextColorKey = "p006";

    /// A new UUID as key, all else nothing.
    EventCategory();
    explicit EventCategory(std::string key_) : key(std::move(key_)) {}

    std::string key;
    std::optional<std::string> name;
    std::shared_ptr<EventIconPicture> eventIcon;
    std::shared_ptr<EventBackgroundTemplate> eventBackgroundTpl;
    std::optional<std::string> eventFont;
    std::optional<Color> eventTextColor;

    bool operator==(const EventCategory& other) const { return key == other.key; }

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kArchiveClass}; }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    [[nodiscard]] bool isEqual(const Archivable& other) const override;
    /// A record without a key gets a new one. Older picture records become today's.
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);
};

}  // namespace dayward
