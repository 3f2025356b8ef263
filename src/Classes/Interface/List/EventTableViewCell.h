// One visible row of the event list: its content, and its pictures, which may arrive late and from any
// thread. A row may come to stand for another event; the key that it remembers tells which picture still fits.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Classes/Interface/List/EventRowContent.h"
#include "Classes/Interface/List/EventTableViewHelper.h"
#include "platform/Image.h"
#include "platform/Mutex.h"

namespace dayward {

class EventTableViewCell {
public:
    static constexpr const char* kReuseIdentifier = "event";
    /// Rows keep their place beside the marks of editing.
    static constexpr bool kShouldIndentWhileEditing = false;

    using Observer = std::function<void()>;

    /// Is called after something that can be seen has changed, on the thread that changed it; may be empty.
    void setObserver(Observer observer);

    /// Forgets content, pictures and key.
    void prepareForReuse();
    /// Takes the row's content for the event with that key. Pictures of another event go, as does an icon
    /// that is not the content's.
    void setRow(std::string eventKey, EventRowContent content);
    /// Shows the icon if the row still stands for that event.
    void setIcon(std::shared_ptr<const Image> icon, const std::string& forEventKey);
    void setBackground(EventTableViewCellBackground background, const std::string& forEventKey);

    [[nodiscard]] std::optional<std::string> eventIdentifier() const;
    [[nodiscard]] EventRowContent content() const;
    [[nodiscard]] EventRowText text() const;
    [[nodiscard]] std::shared_ptr<const Image> icon() const;
    [[nodiscard]] EventTableViewCellBackground background() const;

private:
    void tellObserver() const;

    mutable Mutex mutex_;
    Observer observer_ DAYWARD_GUARDED_BY(mutex_);
    std::optional<std::string> eventIdentifier_ DAYWARD_GUARDED_BY(mutex_);
    EventRowContent content_ DAYWARD_GUARDED_BY(mutex_);
    std::shared_ptr<const Image> icon_ DAYWARD_GUARDED_BY(mutex_);
    EventTableViewCellBackground background_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward
