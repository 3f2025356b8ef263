// Expected failures: a value or an Error, never an exception across a public interface.
#pragma once

#include <expected>
#include <map>
#include <string>
#include <utility>

namespace dayward {

/// What went wrong: the domain says who speaks, the code is the domain's own, the user info names
/// what the failure was about (keys such as "path", "file", "reason").
struct Error {
    std::string domain;
    int code = 0;
    std::map<std::string, std::string> userInfo;

    /// One line for a log or for standard error: what, and where.
    [[nodiscard]] std::string description() const;

    bool operator==(const Error&) const = default;
};

template <class T = void>
using Result = std::expected<T, Error>;

/// Shorthand for a failing return: `return failure("domain", 0, {{"path", path}});`
inline std::unexpected<Error> failure(std::string domain, int code = 0,
                                      std::map<std::string, std::string> userInfo = {}) {
    return std::unexpected(Error{std::move(domain), code, std::move(userInfo)});
}

}  // namespace dayward

/// Yields the value of a Result, or returns its Error from the enclosing function. With g++ that return
/// skips the destructors of temporaries that the same full expression made before, so they leak: let no
/// other argument beside a TRY be a temporary, give the value a name on a line of its own.
#define TRY(expression)                                              \
    __extension__({                                                  \
        auto&& tryResult_ = (expression);                            \
        if (!tryResult_) return std::unexpected(std::move(tryResult_.error())); \
        *std::move(tryResult_);                                      \
    })

/// The same for Result<void>.
#define TRY_VOID(expression)                                         \
    do {                                                             \
        auto&& tryResult_ = (expression);                            \
        if (!tryResult_) return std::unexpected(std::move(tryResult_.error())); \
    } while (false)
