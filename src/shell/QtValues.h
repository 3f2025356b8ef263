// The core's plain values as Qt's.
#pragma once

#include <QColor>
#include <QString>
#include <QStringList>
#include <string>
#include <vector>

#include "platform/Color.h"

namespace dayward {

inline QString qtText(const std::string& text) { return QString::fromStdString(text); }

inline QStringList qtTexts(const std::vector<std::string>& texts) {
    QStringList list;
    for (const std::string& text : texts) list.append(qtText(text));
    return list;
}

inline QColor qtColor(const Color& color) {
    const auto part = [](double value) { return static_cast<float>(value < 0 ? 0 : value > 1 ? 1 : value); };
    return QColor::fromRgbF(part(color.red), part(color.green), part(color.blue), part(color.alpha));
}

}  // namespace dayward
