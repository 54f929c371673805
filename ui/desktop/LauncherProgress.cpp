#include "ui/desktop/LauncherProgress.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>
#include <algorithm>

namespace vellumo {

namespace {

const QString kAppUri = QStringLiteral("application://org.vellumo.Vellumo.desktop");

}  // namespace

LauncherProgress::LauncherProgress(QObject* parent) : QObject(parent) {}

void LauncherProgress::Show(double fraction) {
    Send(std::clamp(fraction, 0.0, 1.0), true);
}

void LauncherProgress::Hide() {
    Send(0.0, false);
}

void LauncherProgress::Send(double fraction, bool visible) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return;
    }
    QDBusMessage update = QDBusMessage::createSignal(
        QStringLiteral("/org/vellumo/Vellumo/LauncherEntry"),
        QStringLiteral("com.canonical.Unity.LauncherEntry"), QStringLiteral("Update"));
    QVariantMap properties;
    properties.insert(QStringLiteral("progress"), fraction);
    properties.insert(QStringLiteral("progress-visible"), visible);
    update << kAppUri << properties;
    bus.send(update);
}

}  // namespace vellumo
