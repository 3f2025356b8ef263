// Which bubble shows which alerts. Kept in a file of the session too, so that an agent that follows one that was killed
// still knows the bubbles: it replaces them, and hears their buttons. One thread.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace dayward {

class BubbleMemory {
public:
    using Keys = std::vector<std::string>;  ///< without blanks

    /// So many are remembered, the latest: some services tell of no bubble's end.
    static constexpr std::size_t kMost = 256;

    /// Without a path nothing is kept. A file that cannot be written is none.
    explicit BubbleMemory(std::string path) : path_(std::move(path)) {}

    /// The numbers are this service's from now on: those that were kept are read, another service's forgotten. Empty:
    /// there is none.
    void setService(const std::string& service);

    void remember(std::uint32_t number, const Keys& keys);
    /// What the bubble shows, which is forgotten; nothing where it is not known.
    std::optional<Keys> take(std::uint32_t number);
    /// The bubble that shows one of them; 0 where none does.
    [[nodiscard]] std::uint32_t numberOf(const Keys& keys) const;
    /// The bubble that showed this one and now shows nothing more, which is forgotten; 0 where there is none.
    std::uint32_t withdraw(const std::string& key);

private:
    void read();
    void write() const;

    const std::string path_;
    std::string service_;
    std::map<std::uint32_t, Keys> bubbles_;
};

}  // namespace dayward
