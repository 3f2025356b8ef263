// A picture file that the user chose or dropped. Main thread only.
#pragma once

#include <QUrl>

#include "Classes/Interface/Screens/Presenter.h"

namespace dayward {

/// Without bytes where the file cannot be read; larger ones than 256 MB are not.
ChosenPicture readChosenFile(const QUrl& url);

}  // namespace dayward
