// Files that crash the image libraries cannot take the window down: they are
// decoded and cropped in worker processes; one whose first decoder crashes
// is read by the second in a fresh worker, and one that nothing reads fails
// alone, with a reason.

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/PictureFiles.h"
#include "tests/gui/support/RealImages.h"
#include "tests/gui/support/WindowDriving.h"
#include "ui/dialogs/CropQuestions.h"

using vellumo::test::LoadedWindow;

class HostileFilesTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void aFileThatCrashesItsDecoderInABatchOfTenIsCroppedAndTheWindowGoesOn() {
        VELLUMO_QSKIP_WITHOUT_TESTDATA();
        QTemporaryDir dir;
        LoadedWindow loaded;  // the window's own worker processes
        loaded.Show();
        QStringList sources;
        for (int i = 0; i < 10; ++i) {
            sources << (i == 4
                            ? vellumo::test::RealImage("bad/issue254.jp2")
                            : vellumo::test::Write(vellumo::test::Plain(60, 40, Qt::blue),
                                                   dir.filePath(QStringLiteral("p%1.png").arg(i))));
        }
        loaded.AddImages(sources);
        QDir(dir.path()).mkdir("out");
        loaded.Control<QLineEdit>("textFieldOutputFolder").setText(dir.filePath("out"));
        vellumo::test::Choose(loaded.Control<QComboBox>("comboFormat"), "PNG");

        // The empty rectangle of the start values: the images' sizes are read
        // first (the hostile one crashes a worker there, and is read by the
        // second decoder in another), then the question about uncropped
        // copies is answered yes.
        vellumo::test::Click(loaded.Control<QPushButton>("buttonCropImages"));
        QTRY_VERIFY_WITH_TIMEOUT(loaded.boxes.size() == 2 && !loaded.controller().isCropping(),
                                 60000);
        QCOMPARE(loaded.boxes.front().text, QString::fromLatin1(vellumo::kUncroppedQuestion));
        QCOMPARE(loaded.boxes.back().text, QStringLiteral("Images cropped successfully."));
        QCOMPARE(QDir(dir.filePath("out")).entryList(QDir::Files | QDir::Hidden).size(), 10);
        // Chosen together, the files are listed in the order of their paths.
        const QStringList written =
            QDir(dir.filePath("out")).entryList({QStringLiteral("issue254_cropped *")});
        QCOMPARE(written.size(), 1);
        QCOMPARE(QImage(dir.filePath("out/" + written.front())).size(), QSize(908, 1368));

        // Still running, and still working: another job goes through.
        QVERIFY(loaded.window().isVisible());
        QDir(dir.filePath("out")).removeRecursively();
        QDir(dir.path()).mkdir("out");
        vellumo::test::Click(loaded.Control<QPushButton>("buttonCropImages"));
        QTRY_VERIFY_WITH_TIMEOUT(loaded.boxes.size() == 4 && !loaded.controller().isCropping(),
                                 60000);
        QCOMPARE(QDir(dir.filePath("out")).entryList(QDir::Files).size(), 10);
    }

    void selectingAFileThatCrashesItsDecoderShowsItAndTheNextSelectionShows() {
        VELLUMO_QSKIP_WITHOUT_TESTDATA();
        QTemporaryDir dir;
        LoadedWindow loaded;
        loaded.Show();
        const QString hostile = vellumo::test::RealImage("bad/issue254.jp2");
        loaded.AddImages({hostile});
        loaded.AddImages({vellumo::test::Write(vellumo::test::Plain(300, 200, Qt::red),
                                               dir.filePath("fine.png"))});

        vellumo::test::ClickRow(loaded, 0);
        QTRY_COMPARE_WITH_TIMEOUT(vellumo::test::LabelText(loaded, "labelOriginalDimensionsWidth"),
                                  QStringLiteral("Width: 908"), 20000);

        vellumo::test::ClickRow(loaded, 1);
        QTRY_COMPARE_WITH_TIMEOUT(vellumo::test::LabelText(loaded, "labelOriginalDimensionsWidth"),
                                  QStringLiteral("Width: 300"), 20000);
        QVERIFY(loaded.window().isVisible());
    }
};

QTEST_MAIN(HostileFilesTest)
#include "HostileFilesTest.moc"
