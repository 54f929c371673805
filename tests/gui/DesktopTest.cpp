// What the window tells the desktop, heard on a private session bus (the
// test runs under dbus-run-session) by a stand-in notification service on a
// connection of its own: a batch that ends while the window is not active
// sends one notification with the report's sentence, its counts and "Show
// in Folder", whose action shows the folder; the dock entry's progress
// rises with the images and is hidden at the end.

#include <QAbstractButton>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <vector>

#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/PictureFiles.h"
#include "tests/gui/support/WindowDriving.h"

using vellumo::test::LoadedWindow;

namespace {

const QString kStandIn = QStringLiteral("stand-in");

// The freedesktop notification service as far as the window uses it,
// recording every call.
class StandInNotifications : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

  public:
    struct Call {
        QString appName, summary, body;
        QStringList actions;
    };
    std::vector<Call> calls;

  public Q_SLOTS:
    uint Notify(const QString& appName, uint, const QString&, const QString& summary,
                const QString& body, const QStringList& actions, const QVariantMap&, int) {
        calls.push_back({appName, summary, body, actions});
        return static_cast<uint>(calls.size()) + 40;
    }
};

// Records the dock entry's updates.
class LauncherListener : public QObject {
    Q_OBJECT

  public:
    std::vector<std::pair<double, bool>> updates;  // progress, visible
    QString appUri;

  public Q_SLOTS:
    void Update(const QString& uri, const QVariantMap& properties) {
        appUri = uri;
        updates.emplace_back(properties.value(QStringLiteral("progress")).toDouble(),
                             properties.value(QStringLiteral("progress-visible")).toBool());
    }
};

}  // namespace

class DesktopTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase() {
        QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, kStandIn);
        QVERIFY2(bus.isConnected(), "no session bus: run under dbus-run-session");
        QVERIFY(bus.registerService(QStringLiteral("org.freedesktop.Notifications")));
        QVERIFY(bus.registerObject(QStringLiteral("/org/freedesktop/Notifications"), &service_,
                                   QDBusConnection::ExportAllSlots));
        QVERIFY(
            bus.connect(QString(), QString(), QStringLiteral("com.canonical.Unity.LauncherEntry"),
                        QStringLiteral("Update"), &launcher_, SLOT(Update(QString, QVariantMap))));
    }

    void aBatchEndingBehindOtherWindowsIsNotifiedAndItsActionShowsTheFolder() {
        QTemporaryDir dir;
        LoadedWindow loaded;  // never shown: not the active window
        QDir(dir.path()).mkdir(QStringLiteral("out"));
        loaded.Control<QLineEdit>("textFieldOutputFolder").setText(dir.filePath("out"));
        QStringList pictures;
        for (int i = 1; i <= 3; ++i) {
            pictures << vellumo::test::Write(vellumo::test::Plain(60, 40, Qt::red),
                                             dir.filePath(QStringLiteral("p%1.png").arg(i)));
        }
        loaded.AddImages(pictures);
        vellumo::test::Click(loaded.Control<QAbstractButton>("radioAutoCrop"));
        vellumo::test::Click(loaded.Control<QPushButton>("buttonCropImages"));
        QTRY_VERIFY_WITH_TIMEOUT(!loaded.controller().isCropping(), 60000);
        QTRY_COMPARE(service_.calls.size(), std::size_t{1});

        const StandInNotifications::Call& call = service_.calls.front();
        QCOMPARE(call.appName, QStringLiteral("Vellumo"));
        QCOMPARE(call.summary, QStringLiteral("Images cropped successfully."));
        QCOMPARE(call.body, QStringLiteral("3 images: 3 written"));
        QCOMPARE(call.actions,
                 (QStringList{QStringLiteral("show-folder"), QStringLiteral("Show in Folder")}));
        QCOMPARE(QDir(dir.filePath("out")).entryList(QDir::Files).size(), 3);

        // The person chooses "Show in Folder" on the notification.
        QDBusMessage invoked = QDBusMessage::createSignal(
            QStringLiteral("/org/freedesktop/Notifications"),
            QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("ActionInvoked"));
        invoked << uint{41} << QStringLiteral("show-folder");
        QDBusConnection(kStandIn).send(invoked);
        QTRY_COMPARE(loaded.openedUrls.size(), qsizetype{1});
        QCOMPARE(loaded.openedUrls.front(), QUrl::fromLocalFile(dir.filePath("out")));

        // The dock entry: 0 at the start, up to 1, then hidden.
        QTRY_VERIFY(!launcher_.updates.empty() && !launcher_.updates.back().second);
        QCOMPARE(launcher_.appUri, QStringLiteral("application://org.vellumo.Vellumo.desktop"));
        QCOMPARE(launcher_.updates.front(), std::make_pair(0.0, true));
        bool full = false;
        for (const auto& [progress, visible] : launcher_.updates) {
            full = full || (progress == 1.0 && visible);
        }
        QVERIFY(full);
    }

  private:
    StandInNotifications service_;
    LauncherListener launcher_;
};

QTEST_MAIN(DesktopTest)
#include "DesktopTest.moc"
