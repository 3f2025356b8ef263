// What the folder's files share around sdbus-c++; nobody else includes it.
#pragma once

#include <sdbus-c++/sdbus-c++.h>

#include <type_traits>

#include "agent/desktop/SessionBus.h"

namespace dayward {

inline std::unexpected<Error> busFailure(const std::string& what, const sdbus::Error& error) {
    return failure("bus", 0, {{"call", what}, {"reason", error.getMessage()}});
}

/// Runs what talks to the bus; its exception becomes an error.
template <class Call>
auto onBus(const std::string& what, Call call) -> Result<std::invoke_result_t<Call>> {
    try {
        if constexpr (std::is_void_v<std::invoke_result_t<Call>>) {
            call();
            return {};
        } else {
            return call();
        }
    } catch (const sdbus::Error& error) {
        return busFailure(what, error);
    }
}

constexpr std::uint64_t microseconds(TimeInterval interval) {
    return static_cast<std::uint64_t>(interval.seconds() * 1e6);
}

}  // namespace dayward
