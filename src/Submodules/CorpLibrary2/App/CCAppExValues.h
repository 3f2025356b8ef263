// Remote switches, read from a container of tagged values. There is no container unless the program
// sets one; then every answer is false, 0 or nothing. Any thread.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/Mutex.h"

namespace dayward {

class Environment;

class TagContainer {
public:
    virtual ~TagContainer() = default;
    [[nodiscard]] virtual bool booleanForKey(const std::string& key) const = 0;
    [[nodiscard]] virtual double doubleForKey(const std::string& key) const = 0;
    [[nodiscard]] virtual std::int64_t integerForKey(const std::string& key) const = 0;
    [[nodiscard]] virtual std::optional<std::string> stringForKey(const std::string& key) const = 0;
};

/// Class operations act on the current environment.
class CCAppExValues {
public:
    static bool booleanForKey(const std::string& key);
    static double doubleForKey(const std::string& key);
    static std::int64_t integerForKey(const std::string& key);
    static std::optional<std::string> stringForKey(const std::string& key);

    /// Null for none.
    static void setContainer(std::shared_ptr<const TagContainer> container);

    explicit CCAppExValues(Environment&) {}

private:
    static std::shared_ptr<const TagContainer> container();

    Mutex mutex_;
    std::shared_ptr<const TagContainer> container_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward
