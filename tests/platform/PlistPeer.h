// libplist as the independent reader and writer of property lists, and how many random cases are tried.
#pragma once

#include <gtest/gtest.h>
#include <plist/plist.h>

#include <cstdlib>
#include <memory>
#include <random>
#include <string>

#include "platform/Data.h"

namespace dayward {

/// $DAYWARD_ARCHIVE_CASES of each kind; few where it is not set.
inline int archiveCases() {
    const char* given = std::getenv("DAYWARD_ARCHIVE_CASES");
    const int cases = given ? std::atoi(given) : 500;
    EXPECT_GT(cases, 0) << "$DAYWARD_ARCHIVE_CASES is no count";
    return cases;
}

class PeerList {
public:
    explicit PeerList(const Data& bytes) {
        plist_from_bin(reinterpret_cast<const char*>(bytes.data()), static_cast<std::uint32_t>(bytes.size()), &root);
    }
    ~PeerList() { plist_free(root); }
    PeerList(const PeerList&) = delete;
    PeerList& operator=(const PeerList&) = delete;

    plist_t root = nullptr;

    /// As libplist writes what it has read.
    [[nodiscard]] Data rewritten() const {
        char* bytes = nullptr;
        std::uint32_t length = 0;
        plist_to_bin(root, &bytes, &length);
        Data data(bytes, bytes + length);
        std::free(bytes);
        return data;
    }

    static std::string text(plist_t node) {
        std::uint64_t length = 0;
        const char* bytes = plist_get_string_ptr(node, &length);
        return bytes ? std::string(bytes, length) : "no text";
    }
    static std::int64_t integer(plist_t node) {
        std::uint64_t value = 0;
        plist_get_uint_val(node, &value);
        return static_cast<std::int64_t>(value);
    }
    static double real(plist_t node) {
        double value = 0;
        plist_get_real_val(node, &value);
        return value;
    }
    static std::uint64_t uid(plist_t node) {
        std::uint64_t number = 0;
        plist_get_uid_val(node, &number);
        return number;
    }
    /// The object of the archive that a reference leads to.
    [[nodiscard]] plist_t object(plist_t reference) const {
        plist_t objects = plist_dict_get_item(root, "$objects");
        return plist_array_get_item(objects, static_cast<std::uint32_t>(uid(reference)));
    }
    [[nodiscard]] plist_t archivedRoot() const {
        return object(plist_dict_get_item(plist_dict_get_item(root, "$top"), "root"));
    }
};

/// Numbers with small, boundary and any values.
class RandomValues {
public:
    explicit RandomValues(unsigned seed) : engine_(seed) {}

    std::uint64_t below(std::uint64_t count) { return engine_() % count; }
    bool oneIn(std::uint64_t count) { return below(count) == 0; }

    std::int64_t integer() {
        const auto bits = below(64) + 1;
        const auto value = static_cast<std::int64_t>(engine_() >> (64 - bits));
        return oneIn(3) ? -value : value;
    }
    double real() {
        return oneIn(2) ? static_cast<double>(integer()) / 8 : std::uniform_real_distribution<>()(engine_);
    }
    /// Where counts take more room: around 15, 255 and, seldom, 65535.
    std::size_t count() {
        static constexpr std::size_t kBoundaries[] = {13, 254, 65534};
        const auto kind = below(200);
        return kind == 0   ? kBoundaries[2] + below(4)
               : kind < 8  ? kBoundaries[1] + below(4)
               : kind < 40 ? 13 + below(5)
                           : below(6);
    }
    std::string text() {
        std::string made;
        const std::size_t length = count();
        const bool isASCII = oneIn(2);
        static constexpr const char* kOthers[] = {"é", "日", "🎂", "\u007F", "\uFFFD"};
        for (std::size_t i = 0; i < length; ++i) {
            if (isASCII || oneIn(2))
                made += static_cast<char>(1 + below(127));
            else
                made += kOthers[below(5)];
        }
        return made;
    }

private:
    std::mt19937_64 engine_;
};

}  // namespace dayward
