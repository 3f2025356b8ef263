// One application for each home in a session: the first start takes the bus name, a later one hands its arguments
// to the first and ends. Without a session bus each start stands alone. Main thread only.
//
// The object is that of org.freedesktop.Application, so that the desktop can start and raise it too.
#pragma once

#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <functional>
#include <utility>

namespace dayward {

class SingleInstance final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    static constexpr const char* kPath = "/org/dayward/Dayward";
    /// The action by which a later start hands over its arguments.
    static constexpr const char* kStartAction = "start";

    enum class Role { first, later };

    /// `service` is the home's bus name (agent/desktop/BusNames.h).
    explicit SingleInstance(QString service) : service_(std::move(service)) {}

    /// Takes the name, or hands the arguments over where another has it, with the right to come to the front.
    Role begin(const QStringList& arguments, const QVariantMap& platformData);
    /// Gives the name back: whoever comes from now on starts an application of its own.
    void end();
    /// Called with the arguments of each later start, none for a mere raise; those that came before are
    /// handed over now.
    void setHandler(std::function<void(const QStringList& arguments)> handler);

public slots:
    // Called over the bus.
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& name, const QVariantList& parameter, const QVariantMap& platformData);

private:
    void start(const QStringList& arguments, const QVariantMap& platformData);
    /// Whether the first start has taken them.
    bool handOver(const QStringList& arguments, const QVariantMap& platformData) const;

    const QString service_;
    std::function<void(const QStringList& arguments)> handler_;
    QList<QStringList> waiting_;
};

}  // namespace dayward
