// What fuzz targets share. A target is a file that defines LLVMFuzzerTestOneInput: it reads bytes from
// outside with one reader and stops the process where a property of the answer does not hold.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <span>
#include <string>
#include <string_view>

#include "platform/Data.h"
#include "platform/FatalError.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace dayward {

/// Stops the process, in every kind of build, with the property that does not hold.
inline void require(bool holds, std::string_view property, std::string_view details = {}) {
    if (holds) return;
    std::cerr << "property broken: " << property << '\n' << details << std::endl;
    std::abort();
}

/// What a corrupt value in a stored file is documented to do: it stops the process, and the next start leaves
/// the file out.
struct DocumentedStop {};

/// Runs to the end or to a documented stop.
template <class Run>
void runOrStop(Run run) {
    const FatalErrorContext context("the input", [](const std::string&, std::string_view text, void*) {
        if (text.starts_with("HHEventDateFormat: ")) throw DocumentedStop();
    });
    try {
        run();
    } catch (const DocumentedStop&) {
    }
}

/// The input, taken apart from its beginning. Reading beyond its end gives zeros and empty data.
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* bytes, std::size_t size) : bytes_(bytes, size) {}

    [[nodiscard]] bool isEmpty() const { return bytes_.empty(); }
    Data take(std::size_t count) {
        const auto taken = bytes_.first(std::min(count, bytes_.size()));
        bytes_ = bytes_.subspan(taken.size());
        return Data(taken.begin(), taken.end());
    }
    Data rest() { return take(bytes_.size()); }
    std::string text() { return textOf(rest()); }
    /// Little-endian, sign-extended from that many bytes.
    std::int64_t number(std::size_t size) {
        const Data data = take(size);
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < data.size(); ++i) value |= std::uint64_t{data[i]} << (8 * i);
        const unsigned unused = 64 - 8 * static_cast<unsigned>(size);
        return static_cast<std::int64_t>(value << unused) >> unused;
    }

private:
    std::span<const std::uint8_t> bytes_;
};

}  // namespace dayward
