// The application ends when its window closes or on Quit, at once and
// without a question, also while a background job runs.

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
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

    // The window's own job holds its images for ever (the probe's gate in
    // front of the real workers): a program that waited for its job, or
    // asked anything, would never end, and the wait below runs out.
    void theApplicationEndsAtOnce() {
        QFETCH(QString, mode);
        QFETCH(bool, withJob);
        QProcess probe;
        probe.start(QStringLiteral(VELLUMO_LIFECYCLE_PROBE), {mode});
        const bool ended = probe.waitForFinished(60000);
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
        QCOMPARE(out.contains("image held"), withJob);
    }

    void endingWhileTheCropJobWritesLeavesNoHalfFile_data() {
        QTest::addColumn<QString>("mode");
        QTest::newRow("Quit") << "crop-quit";
        QTest::newRow("closing the window") << "crop-close";
    }

    // The window's own job writes large PNG files; the program is ended as
    // soon as the first is being written. It ends at once, and whatever is
    // at an output path is a whole file.
    void endingWhileTheCropJobWritesLeavesNoHalfFile() {
        QFETCH(QString, mode);
        QTemporaryDir dir;
        const QString out = dir.filePath("out");
        QVERIFY(QDir().mkpath(out));
        // Noise compresses badly, so each PNG takes a while to write.
        QImage noise(3000, 2000, QImage::Format_RGB32);
        for (int y = 0; y < noise.height(); ++y) {
            QRandomGenerator::global()->fillRange(reinterpret_cast<quint32*>(noise.scanLine(y)),
                                                  noise.width());
        }
        QStringList images;
        for (int i = 1; i <= 3; ++i) {
            images << dir.filePath(QStringLiteral("noise%1.bmp").arg(i));
            QVERIFY(noise.save(images.back()));
        }

        QProcess probe;
        probe.start(QStringLiteral(VELLUMO_LIFECYCLE_PROBE), QStringList{mode, out} + images);
        const bool ended = probe.waitForFinished(60000);
        if (!ended) {
            probe.kill();
            probe.waitForFinished();
        }
        const QString printed = QString::fromUtf8(probe.readAllStandardOutput());
        const QString errors = QString::fromUtf8(probe.readAllStandardError());
        QVERIFY2(ended, qPrintable(printed + errors));
        QCOMPARE(probe.exitStatus(), QProcess::NormalExit);
        QCOMPARE(probe.exitCode(), 0);
        // The program ended while the first image's temporary file was there.
        const QRegularExpression writing(QStringLiteral("writing (\\.vellumo-\\S+\\.tmp)"));
        const QRegularExpressionMatch match = writing.match(printed);
        QVERIFY2(printed.contains("job running") && match.hasMatch(), qPrintable(printed));
        const QString temporary = out + QLatin1Char('/') + match.captured(1);

        // The first image is written whole or not at all; the others were
        // held by the probe and never begun.
        const QString first = out + QStringLiteral("/noise1_cropped (1).png");
        if (QFile::exists(first)) {
            QCOMPARE(QImage(first).size(), QSize(3000, 2000));
        }
        for (int i = 2; i <= 3; ++i) {
            QVERIFY(!QFile::exists(out + QStringLiteral("/noise%1_cropped (%1).png").arg(i)));
        }
        // The worker process writing the file was told to stop with the
        // program, and took its unfinished temporary file with it.
        const QStringList hidden{QStringLiteral(".vellumo-*.tmp")};
        QTRY_VERIFY_WITH_TIMEOUT(QDir(out).entryList(hidden, QDir::Files | QDir::Hidden).isEmpty(),
                                 5000);
        QVERIFY(!QFile::exists(temporary));
    }
};

QTEST_MAIN(LifecycleTest)
#include "LifecycleTest.moc"
