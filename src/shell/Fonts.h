// The fonts of the gallery as Qt's, by their names in events and categories. Main thread only.
#pragma once

#include <QFont>
#include <string>

namespace dayward {

/// The interface's own family for an unknown and an empty name.
QFont fontNamed(const std::string& name, int pixelSize);

/// What the interface is written in: digits of one width.
inline constexpr const char* kInterfaceFamily = "Roboto";

}  // namespace dayward
