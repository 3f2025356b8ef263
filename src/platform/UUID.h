// Random identifiers.
#pragma once

#include <string>

namespace dayward {

/// A new random UUID (version 4, RFC 4122) in capital letters: "1B4E28BA-2FA1-4D2B-883F-0016D3CCA427".
std::string newUUIDString();

}  // namespace dayward
