// Starting the program with files and folders, a second start handing its
// files to the window already open, the menu's shortcuts, the window's
// size and splitter kept between runs, and a dark palette.

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QMenuBar>
#include <QProcess>
#include <QPushButton>
#include <QSettings>
#include <QSplitter>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <vector>

#include "app/DesktopLaunch.h"
#include "app/LaunchArguments.h"
#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/Palettes.h"
#include "tests/gui/support/PictureFiles.h"
#include "tests/gui/support/WindowDriving.h"
#include "ui/preview/CropPreviewView.h"

using vellumo::test::LoadedWindow;

namespace {

// Runs the launch of `vellumo ARGUMENTS` on `loaded` as the program does once
// its window shows.
void Launch(LoadedWindow& loaded, const QStringList& arguments) {
    std::vector<QByteArray> bytes{QByteArrayLiteral("vellumo")};
    for (const QString& argument : arguments) {
        bytes.push_back(argument.toLocal8Bit());
    }
    std::vector<char*> argv;
    for (QByteArray& argument : bytes) {
        argv.push_back(argument.data());
    }
    const vellumo::Launch launch =
        vellumo::DesktopLaunch(static_cast<int>(argv.size()), argv.data());
    launch.launched(loaded.window(), loaded.controller());
}

QString Picture(const QString& path) {
    return vellumo::test::Write(vellumo::test::Plain(40, 30, Qt::red), path);
}

double Lightness(QRgb pixel) {
    return QColor(pixel).lightnessF();
}

class DesktopLaunchTest : public QObject {
    Q_OBJECT

    QTemporaryDir runtime;

  private Q_SLOTS:
    void initTestCase() {
        // The running window's socket goes into a folder of this test's own.
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime.path()));
    }

    void filesAndAFolderAreListedInTheOrderGiven() {
        QTemporaryDir dir;
        QDir(dir.path()).mkpath(QStringLiteral("shoot/sub"));
        const QString c = Picture(dir.filePath(QStringLiteral("c.png")));
        const QString a = Picture(dir.filePath(QStringLiteral("a.png")));
        const QString p10 = Picture(dir.filePath(QStringLiteral("shoot/p10.jpg")));
        const QString p2 = Picture(dir.filePath(QStringLiteral("shoot/p2.jpg")));
        Picture(dir.filePath(QStringLiteral("shoot/sub/deep.png")));
        QFile(dir.filePath(QStringLiteral("shoot/notes.txt"))).open(QIODevice::WriteOnly);
        const QString b = Picture(dir.filePath(QStringLiteral("b.tif")));
        QDir(dir.path()).mkpath(QStringLiteral("empty"));

        LoadedWindow loaded;
        loaded.Show();
        Launch(loaded, {c, dir.filePath(QStringLiteral("shoot")), a, b, a,
                        dir.filePath(QStringLiteral("missing.jpg")),
                        dir.filePath(QStringLiteral("empty"))});
        // The folder's images sorted by name (p2 before p10), without its
        // subfolder; a path given twice is listed once.
        QCOMPARE(loaded.imageList().paths(), (QStringList{c, p2, p10, a, b}));
        // The folder that gave images is what a kept tree is measured from,
        // and keeping it is offered.
        QCOMPARE(loaded.imageList().folders(), QStringList{dir.filePath(QStringLiteral("shoot"))});
        QVERIFY(loaded.Control<QCheckBox>("checkKeepFolderStructure").isEnabled());
        // What gave nothing is named in one warning, once the window shows.
        QTRY_COMPARE(loaded.boxes.size(), std::size_t{1});
        QCOMPARE(loaded.boxes[0].text, QStringLiteral("Some items could not be added."));
        QCOMPARE(loaded.boxes[0].informativeText,
                 QStringLiteral("“%1” does not exist.\n“%2” holds no images.")
                     .arg(dir.filePath(QStringLiteral("missing.jpg")),
                          dir.filePath(QStringLiteral("empty"))));
    }

    void recursiveAddsTheImagesOfSubfolders() {
        QTemporaryDir dir;
        QDir(dir.path()).mkpath(QStringLiteral("shoot/sub"));
        const QString top = Picture(dir.filePath(QStringLiteral("shoot/top.png")));
        const QString deep = Picture(dir.filePath(QStringLiteral("shoot/sub/deep.png")));
        const vellumo::LaunchRequest request =
            vellumo::ExpandLaunchPaths({dir.filePath(QStringLiteral("shoot"))}, true);
        QCOMPARE(request.images, (QStringList{deep, top}));
        QCOMPARE(request.folders, QStringList{dir.filePath(QStringLiteral("shoot"))});
        QVERIFY(request.missing.isEmpty() && request.emptyFolders.isEmpty());
    }

    void aSecondStartAddsToTheWindowAndEndsWithStatusZero() {
        QTemporaryDir dir;
        const QString first = Picture(dir.filePath(QStringLiteral("first.png")));
        const QString second = Picture(dir.filePath(QStringLiteral("second.png")));
        LoadedWindow loaded;
        loaded.Show();
        Launch(loaded, {first});
        QProcess start;
        start.setWorkingDirectory(dir.path());
        // A relative path: the second start makes it absolute for the window.
        start.start(QStringLiteral(VELLUMO_APP_PATH), {QStringLiteral("second.png")});
        QVERIFY(start.waitForStarted());
        // The event loop runs meanwhile: the window answers the second start.
        QTRY_VERIFY_WITH_TIMEOUT(start.state() == QProcess::NotRunning, 20000);
        QCOMPARE(start.exitStatus(), QProcess::NormalExit);
        QCOMPARE(start.exitCode(), 0);
        QCOMPARE(loaded.imageList().paths(), (QStringList{first, second}));
    }

    void theMenuShortcutsTriggerTheirCommands() {
        QTemporaryDir dir;
        LoadedWindow loaded;
        loaded.Show();
        const auto shortcut = [&](const char* name) {
            return loaded.Control<QAction>(name).shortcut().toString();
        };
        QCOMPARE(shortcut("actionAddImages"), QStringLiteral("Ctrl+I"));
        QCOMPARE(shortcut("actionRemoveSelected"), QStringLiteral("Del"));
        QCOMPARE(shortcut("actionRemoveAll"), QStringLiteral("Ctrl+Shift+Del"));
        QCOMPARE(shortcut("actionCropImages"), QStringLiteral("Ctrl+Return"));
        QCOMPARE(shortcut("actionLoadProfile"), QStringLiteral("Ctrl+O"));
        QCOMPARE(shortcut("actionSaveProfile"), QStringLiteral("Ctrl+S"));

        // Ctrl+I: the add-images dialog.
        QTest::keyClick(&loaded.window(), Qt::Key_I, Qt::ControlModifier);
        QCOMPARE(loaded.openDialogs.size(), std::size_t{1});
        QVERIFY(loaded.openDialogs[0].canChooseFiles &&
                loaded.openDialogs[0].allowsMultipleSelection);

        const QString a = Picture(dir.filePath(QStringLiteral("a.png")));
        const QString b = Picture(dir.filePath(QStringLiteral("b.png")));
        loaded.AddImages({a, b});
        // Delete: the selected row goes.
        vellumo::test::ClickRow(loaded, 0);
        QTest::keyClick(&loaded.Control<QAbstractItemView>("tableViewImage"), Qt::Key_Delete);
        QCOMPARE(loaded.imageList().paths(), QStringList{b});
        // Ctrl+Shift+Delete: all of them (after the question, answered Return).
        QTest::keyClick(&loaded.window(), Qt::Key_Delete, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(loaded.imageList().paths(), QStringList());
        loaded.AddImages({a, b});
        // A command is offered exactly when its button is (a job disables
        // the buttons).
        auto& add = loaded.Control<QPushButton>("buttonAddImages");
        add.setEnabled(false);
        QVERIFY(!loaded.Control<QAction>("actionAddImages").isEnabled());
        const std::size_t panels = loaded.openDialogs.size();
        QTest::keyClick(&loaded.window(), Qt::Key_I, Qt::ControlModifier);
        QCOMPARE(loaded.openDialogs.size(), panels);
        add.setEnabled(true);
        QVERIFY(loaded.Control<QAction>("actionAddImages").isEnabled());

        // Ctrl+Return: the crop command, here asking for the output folder
        // that is not set.
        const std::size_t before = loaded.boxes.size();
        QTest::keyClick(&loaded.window(), Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(loaded.boxes.size(), before + 1);
    }

    void theWindowsSizeAndSplitterAreKeptBetweenRuns() {
        // The settings go to a folder of QtTest's, not the user's.
        QStandardPaths::setTestModeEnabled(true);
        QSettings().remove(QStringLiteral("window"));  // what an earlier run kept
        const QSize size(790, 560);                    // the offscreen screen is 800 x 600
        QList<int> split;
        {
            LoadedWindow first;
            first.window().RestoreState();  // nothing kept: the first start
            first.Show();
            first.window().resize(size);
            auto& splitter = first.Control<QSplitter>("splitterMain");
            QTRY_COMPARE(splitter.width(), size.width() - 2 * splitter.x());
            // Moved from where it starts, as far as the panes' smallest
            // widths let it.
            const QList<int> initial = splitter.sizes();
            splitter.setSizes({initial[0] + 60, initial[1] - 60});
            split = splitter.sizes();
            QVERIFY2(split.first() > initial.first() + 20, qPrintable(QString::number(split[0])));
            first.window().RememberState();
        }
        LoadedWindow second;
        second.window().RestoreState();
        second.Show();
        QCOMPARE(second.window().size(), size);
        QCOMPARE(second.Control<QSplitter>("splitterMain").sizes(), split);
        QStandardPaths::setTestModeEnabled(false);
    }

    void aDarkPaletteKeepsTheListAndPreviewLegible() {
        const QPalette original = QApplication::palette();
        QApplication::setPalette(vellumo::test::DarkPalette());
        QTemporaryDir dir;
        {
            LoadedWindow loaded;
            loaded.Show();
            loaded.AddImages({Picture(dir.filePath(QStringLiteral("a-long-name-to-read.png")))});
            auto& table = loaded.Control<QAbstractItemView>("tableViewImage");
            const QImage list = table.viewport()->grab().toImage();
            // Below the rows: the list's background, dark.
            QVERIFY(Lightness(list.pixel(list.width() / 2, list.height() - 5)) < 0.25);
            // The row's text: light pixels on it.
            const QRect row = table.visualRect(table.model()->index(0, 0));
            double lightest = 0.0;
            for (int x = row.left(); x < row.right(); ++x) {
                for (int y = row.top(); y < row.bottom(); ++y) {
                    lightest = std::max(lightest, Lightness(list.pixel(x, y)));
                }
            }
            QVERIFY2(lightest > 0.75, qPrintable(QString::number(lightest)));
            const QImage preview =
                loaded.Control<vellumo::CropPreviewView>("imageViewCropPreview").grab().toImage();
            QVERIFY(Lightness(preview.pixel(preview.width() / 2, preview.height() / 2)) < 0.25);
        }
        QApplication::setPalette(original);
    }
};

}  // namespace

QTEST_MAIN(DesktopLaunchTest)
#include "DesktopLaunchTest.moc"
