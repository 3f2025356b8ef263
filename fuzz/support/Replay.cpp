// Runs a target over stored inputs without a fuzzer: every file that is named, and every file of every
// directory that is named. Says which file is at work when the target stops the process.
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "support/Fuzz.h"

namespace {

std::string current;

void tellFile(int signal) {
    std::fprintf(stderr, "stopped by the input %s\n", current.c_str());
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

std::vector<std::filesystem::path> filesOf(const std::filesystem::path& path) {
    if (!std::filesystem::is_directory(path)) return {path};
    std::vector<std::filesystem::path> files(std::filesystem::directory_iterator(path), {});
    std::ranges::sort(files);
    return files;
}

}  // namespace

int main(int count, char** arguments) {
    for (const int signal : {SIGABRT, SIGSEGV, SIGFPE, SIGBUS}) std::signal(signal, tellFile);
    std::size_t inputs = 0;
    for (int i = 1; i < count; ++i) {
        for (const auto& path : filesOf(arguments[i])) {
            current = path.string();
            std::ifstream file(path, std::ios::binary);
            const dayward::Data bytes(std::istreambuf_iterator<char>(file), {});
            if (!file) return std::fprintf(stderr, "cannot read %s\n", current.c_str()), 1;
            LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
            ++inputs;
        }
    }
    std::printf("%zu inputs\n", inputs);
    return inputs == 0 ? 1 : 0;
}
