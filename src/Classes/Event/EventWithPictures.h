// A copy of a stored event that no longer needs its package.
#pragma once

#include <memory>

namespace dayward {

class HHEvent;

/// The event with the pictures that lie in its package in the copy itself, byte for byte. A picture that cannot
/// be read is logged and left out. Reads files; any thread.
std::shared_ptr<HHEvent> copyWithPictures(const HHEvent& event);

}  // namespace dayward
