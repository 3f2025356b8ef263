#include "shell/QtAudioDevice.h"

#include <QAudioOutput>
#include <QMediaPlayer>
#include <QUrl>

#include "platform/Log.h"

namespace dayward {

namespace {

class QtAudioPlayer final : public AudioPlayer {
public:
    explicit QtAudioPlayer(const QString& path) {
        player_.setAudioOutput(&output_);
        QObject::connect(&player_, &QMediaPlayer::errorOccurred, &player_,
                         [path](QMediaPlayer::Error, const QString& reason) {
                             logError("cannot play " + path.toStdString() + ": " + reason.toStdString());
                         });
        player_.setSource(QUrl::fromLocalFile(path));
        player_.play();
    }

private:
    QAudioOutput output_;
    QMediaPlayer player_;
};

}  // namespace

std::unique_ptr<AudioPlayer> QtAudioDevice::play(const std::string& path) {
    return std::make_unique<QtAudioPlayer>(QString::fromStdString(path));
}

}  // namespace dayward
