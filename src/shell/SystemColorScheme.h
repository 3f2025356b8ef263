// Whether the desktop prefers dark windows: what its settings portal says, else its palette. Main thread
// only.
#pragma once

#include <QDBusVariant>
#include <QObject>

namespace dayward {

class SystemColorScheme final : public QObject {
    Q_OBJECT

public:
    explicit SystemColorScheme(QObject* parent = nullptr);

    [[nodiscard]] bool isDark() const;

signals:
    void changed();

private slots:
    void settingDidChange(const QString& group, const QString& key, const QDBusVariant& value);

private:
    enum class Preference { none, dark, light };

    void read();
    void take(const QVariant& value);

    Preference preference_ = Preference::none;
};

}  // namespace dayward
