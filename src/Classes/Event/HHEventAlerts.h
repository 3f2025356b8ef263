// An event's alerts: their offsets and the sound.
//
// A copyable value. Archived as "HHEventAlerts" with the version 0 under the class's own name, then
// "List" and "SoundName"; reading takes each by itself, and any version.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "intervals/XDIDateInterval.h"
#include "platform/Archivable.h"

namespace dayward {

class HHEventAlerts final : public Archivable {
public:
    static constexpr const char* kArchiveClass = "HHEventAlerts";
    static constexpr int kVersion = 0;
    static constexpr const char* kListKey = "List";
    static constexpr const char* kSoundNameKey = "SoundName";

    /// Nothing means the default sound.
    std::optional<std::string> soundName;
    /// Distances before the occurrence; negative fields are after it, an interval without fields is
    /// the occurrence itself.
    std::optional<std::vector<XDIDateInterval>> list;

    bool operator==(const HHEventAlerts& other) const { return soundName == other.soundName && list == other.list; }

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kArchiveClass}; }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    /// Same fields.
    [[nodiscard]] bool isEqual(const Archivable& other) const override;
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);
};

}  // namespace dayward
