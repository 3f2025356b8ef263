#include "agent/desktop/BubbleMemory.h"

#include <algorithm>
#include <sstream>

#include "platform/FileSystem.h"
#include "platform/Log.h"
#include "platform/linux/LinuxFileSystem.h"

namespace dayward {

void BubbleMemory::setService(const std::string& service) {
    if (service == service_) return;
    service_ = service;
    bubbles_.clear();
    if (!service_.empty()) read();
}

void BubbleMemory::remember(std::uint32_t number, const Keys& keys) {
    bubbles_.insert_or_assign(number, keys);
    if (bubbles_.size() > kMost) bubbles_.erase(bubbles_.begin());
    write();
}

std::optional<BubbleMemory::Keys> BubbleMemory::take(std::uint32_t number) {
    auto bubble = bubbles_.extract(number);
    if (!bubble) return std::nullopt;
    write();
    return std::move(bubble.mapped());
}

std::uint32_t BubbleMemory::numberOf(const Keys& keys) const {
    for (const auto& [number, shown] : bubbles_) {
        if (std::ranges::find_first_of(shown, keys) != shown.end()) return number;
    }
    return 0;
}

std::uint32_t BubbleMemory::withdraw(const std::string& key) {
    const std::uint32_t number = numberOf({key});
    if (number == 0) return 0;
    Keys& shown = bubbles_.at(number);
    std::erase(shown, key);
    const bool isEmpty = shown.empty();
    if (isEmpty) bubbles_.erase(number);
    write();
    return isEmpty ? number : 0;
}

/// The service in the first line, then a bubble a line: its number and its keys.
void BubbleMemory::read() {
    const auto bytes = path_.empty() ? Result<Data>(Data()) : LinuxFileSystem().readFile(path_);
    if (!bytes) return;
    std::istringstream lines(textOf(*bytes));
    std::string line;
    if (!std::getline(lines, line) || line != service_) return;
    while (std::getline(lines, line)) {
        std::istringstream words(line);
        std::uint32_t number = 0;
        Keys keys;
        if (!(words >> number)) continue;
        for (std::string key; words >> key;) keys.push_back(key);
        if (!keys.empty()) bubbles_.insert_or_assign(number, std::move(keys));
    }
}

void BubbleMemory::write() const {
    if (path_.empty()) return;
    std::string text = service_ + '\n';
    for (const auto& [number, keys] : bubbles_) {
        text += std::to_string(number);
        for (const std::string& key : keys) text += ' ' + key;
        text += '\n';
    }
    LinuxFileSystem files;
    const auto written = writeFileAtomically(files, path_, dataOf(text));
    if (!written) logDebug([&] { return written.error().description(); });
}

}  // namespace dayward
