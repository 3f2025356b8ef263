// A process as it stands in a file: known after its end, and not taken for another one that got its number later.
#pragma once

#include <string>

namespace dayward {

/// This process.
std::string ownClaimant();
/// Whether that process still runs. Never true for a text that is none.
bool isClaimantAlive(const std::string& claimant);

}  // namespace dayward
