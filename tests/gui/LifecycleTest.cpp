// The application ends when its window closes or on Quit, at once and
// without a question, also while a background job runs.

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTest>

#include "app/AppDelegate.h"

class LifecycleTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theDelegateEndsTheApplicationWithItsLastWindow() {
        auto& application = *qobject_cast<QApplication*>(QCoreApplication::instance());
        application.setQuitOnLastWindowClosed(false);
        auto* delegate = new vellumo::AppDelegate(application);
        QVERIFY(delegate->applicationShouldTerminateAfterLastWindowClosed());
        QVERIFY(application.quitOnLastWindowClosed());
        delete delegate;
    }

    void theApplicationEndsAtOnce_data() {
        QTest::addColumn<QString>("mode");
        QTest::addColumn<bool>("withJob");
        QTest::newRow("Quit while a job runs") << "quit" << true;
        QTest::newRow("closing the window while a job runs") << "close" << true;
        QTest::newRow("closing the window") << "close-idle" << false;
    }

    void theApplicationEndsAtOnce() {
        QFETCH(QString, mode);
        QFETCH(bool, withJob);
        QProcess probe;
        QElapsedTimer clock;
        clock.start();
        probe.start(QStringLiteral(VELLUMO_LIFECYCLE_PROBE), {mode});
        // A question or a wait for the endless job would keep it running.
        const bool ended = probe.waitForFinished(20000);
        if (!ended) {
            probe.kill();
            probe.waitForFinished();
        }
        const QString out = QString::fromUtf8(probe.readAllStandardOutput());
        const QString errors = QString::fromUtf8(probe.readAllStandardError());
        QVERIFY2(ended, qPrintable(out + errors));
        QCOMPARE(probe.exitStatus(), QProcess::NormalExit);
        QCOMPARE(probe.exitCode(), 0);
        QVERIFY2(out.contains("window shown"), qPrintable(out));
        QCOMPARE(out.contains("job running"), withJob);
        // It ends 0.2 s after it started; allow for a slow, busy machine.
        QVERIFY2(clock.elapsed() < 10000, qPrintable(QString::number(clock.elapsed())));
    }
};

QTEST_MAIN(LifecycleTest)
#include "LifecycleTest.moc"
