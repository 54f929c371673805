#include "ui/desktop/BatchNotifier.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

#include "ui/dialogs/CropResult.h"

namespace vellumo {

namespace {

const QString kService = QStringLiteral("org.freedesktop.Notifications");
const QString kPath = QStringLiteral("/org/freedesktop/Notifications");
const QString kInterface = QStringLiteral("org.freedesktop.Notifications");
const QString kShowFolderAction = QStringLiteral("show-folder");

}  // namespace

BatchNotifier::BatchNotifier(std::function<bool()> windowActive,
                             std::function<bool(const QUrl&)> openFolder, QObject* parent)
    : QObject(parent), windowActive_(std::move(windowActive)), openFolder_(std::move(openFolder)) {
    // QtDBus connects a bus signal only to a slot named by its signature.
    QDBusConnection::sessionBus().connect(kService, kPath, kInterface,
                                          QStringLiteral("ActionInvoked"), this,
                                          SLOT(OnActionInvoked(uint, QString)));
}

void BatchNotifier::BatchEnded(const JobReport& report, const QString& folder) {
    if (windowActive_()) {
        return;  // the report's box says it
    }
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return;
    }
    const MessageBoxRequest box = CropResultRequest(report);
    QVariantMap hints;
    hints.insert(QStringLiteral("desktop-entry"), QStringLiteral("org.vellumo.Vellumo"));
    hints.insert(QStringLiteral("urgency"), QVariant::fromValue<uchar>(1));
    QDBusMessage notify =
        QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Notify"));
    notify << QStringLiteral("Vellumo") << uint{0} << QStringLiteral("org.vellumo.Vellumo")
           << box.text << box.informativeText
           << QStringList{kShowFolderAction, CropResultText(kShowInFolder)} << hints << -1;
    // Not waited for on the GUI thread: the service answers when it can.
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(notify), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, folder](QDBusPendingCallWatcher* call) {
                const QDBusPendingReply<uint> reply = *call;
                if (reply.isValid()) {
                    lastId_ = reply.value();
                    lastFolder_ = folder;
                }
                call->deleteLater();
            });
}

void BatchNotifier::OnActionInvoked(uint id, const QString& action) {
    if (id != 0 && id == lastId_ && action == kShowFolderAction) {
        openFolder_(QUrl::fromLocalFile(lastFolder_));
    }
}

}  // namespace vellumo
