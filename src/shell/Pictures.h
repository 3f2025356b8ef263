// The pictures that the shell draws, by the identities that rows give: reads them when they are asked
// for, fits them to the place where they stand, and keeps the last ones. Any thread.
#pragma once

#include <QCache>
#include <QImage>
#include <QMutex>
#include <QSize>
#include <QString>
#include <functional>
#include <memory>

#include "Classes/Interface/Screens/TableRow.h"

namespace dayward {

class Pictures {
public:
    /// What becomes of a picture whose proportions are not those of its place.
    enum class Fit { fill, inside };
    struct Place {
        QSize size;  ///< in pixels of the device; empty for the picture's own size
        Fit fit = Fit::fill;
        int radius = 0;  ///< of the corners, in pixels of the device
    };

    Pictures();

    /// Makes the picture known and answers its key as a link holds it, "image://pictures/FIT/RADIUS/KEY".
    /// Empty where there is no picture.
    QString add(const RowPicture& picture);
    /// Null where the key is not known or the picture cannot be read. May take long.
    [[nodiscard]] QImage picture(const QString& key, const Place& place);
    /// Forgets what was drawn of the picture: it has changed.
    void remove(const QString& key);

private:
    using Load = std::function<std::shared_ptr<const Image>()>;

    [[nodiscard]] std::shared_ptr<const Load> loader(const QString& key);

    QMutex mutex_;
    QCache<QString, std::shared_ptr<const Load>> loaders_;
    QCache<QString, QImage> drawn_;  ///< cost in kilobytes
};

}  // namespace dayward
