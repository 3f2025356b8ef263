// One visible row of the event list: its texts, its colour and its icon, which may arrive late and from
// any thread. A row is reused for another event; the key that it remembers tells which icon still fits.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Classes/Interface/List/EventRowText.h"
#include "platform/Image.h"
#include "platform/Mutex.h"

namespace dayward {

class EventTableViewCell {
public:
    static constexpr const char* kReuseIdentifier = "event";

    /// Forgets texts, icon and key.
    void prepareForReuse();
    /// Takes the row's texts for the event with that key. An icon of another event goes.
    void setRow(std::string eventKey, EventRowText text);
    /// Shows the icon if the row still stands for that event.
    void setIcon(std::shared_ptr<const Image> icon, const std::string& forEventKey);

    [[nodiscard]] std::optional<std::string> eventKey() const;
    [[nodiscard]] EventRowText text() const;
    [[nodiscard]] std::shared_ptr<const Image> icon() const;

private:
    mutable Mutex mutex_;
    std::optional<std::string> eventKey_ DAYWARD_GUARDED_BY(mutex_);
    EventRowText text_ DAYWARD_GUARDED_BY(mutex_);
    std::shared_ptr<const Image> icon_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward
