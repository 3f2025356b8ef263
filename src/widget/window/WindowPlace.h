// Where the widget's window stood, and how many events it showed: a small file in the state directory. Main
// thread only.
#pragma once

#include <QPoint>
#include <QString>
#include <optional>

namespace dayward {

struct WindowPlace {
    std::optional<QPoint> position;
    std::optional<int> count;

    /// Nothing where there is no such file, or where it says nothing of use.
    static WindowPlace read(const QString& path);
    /// Writes the file whole; a failure is told on standard error.
    void write(const QString& path) const;
    bool operator==(const WindowPlace&) const = default;
};

}  // namespace dayward
