#include "agent/Claimant.h"

#include <unistd.h>

#include <fstream>
#include <sstream>

namespace dayward {

namespace {

std::string bootIdentifier() {
    std::ifstream file("/proc/sys/kernel/random/boot_id");
    std::string line;
    std::getline(file, line);
    return line;
}

/// When the process began, in ticks since the boot; empty where it has ended.
std::string startOf(const std::string& process) {
    std::ifstream file("/proc/" + process + "/stat");
    std::string line;
    std::getline(file, line);
    // The name may hold anything; what follows its bracket are plain words.
    std::istringstream words(line.substr(std::min(line.size(), line.rfind(')') + 1)));
    constexpr int kStateWord = 3, kStartWord = 22;
    std::string word;
    for (int number = kStateWord; number <= kStartWord; ++number) {
        if (!(words >> word)) return {};
        const bool isGone = number == kStateWord && (word == "Z" || word == "X");
        if (isGone) return {};
    }
    return word;
}

std::string claimantOf(const std::string& process) {
    const std::string start = startOf(process);
    return start.empty() ? std::string() : process + " " + start + " " + bootIdentifier();
}

}  // namespace

std::string ownClaimant() { return claimantOf(std::to_string(getpid())); }

bool isClaimantAlive(const std::string& claimant) {
    const std::string process = claimant.substr(0, claimant.find(' '));
    const bool isNumber = !process.empty() && process.find_first_not_of("0123456789") == std::string::npos;
    return isNumber && claimantOf(process) == claimant;
}

}  // namespace dayward
