// The fonts of the gallery as Qt's, by their names in events and categories. Main thread only.
#pragma once

#include <QFont>
#include <QString>
#include <string>

namespace dayward {

/// The interface's own family for an unknown and an empty name. Where the font has no letters for the
/// text's script, all of the text is written in one that does, not only the letters that are missing.
QFont fontNamed(const std::string& name, int pixelSize, const QString& forText = {});

/// What the interface is written in: digits of one width.
inline constexpr const char* kInterfaceFamily = "Roboto";

}  // namespace dayward
