// The output options beside the format: the size limit ("At most", "Scale
// down to fit"), keeping the folders' tree, and the name field's tokens with
// the line that shows the name they give. Each through the settings the job
// reads, and each crop checked on disk.

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <cstdint>

#include "tests/gui/support/DragAndDrop.h"
#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/PictureFiles.h"
#include "tests/gui/support/WindowDriving.h"
#include "ui/controls/LatchingRadioButton.h"
#include "ui/controls/NameTokenButton.h"
#include "ui/list/ImageTableView.h"

using vellumo::CropSettings;
using vellumo::test::Choose;
using vellumo::test::Click;
using vellumo::test::LabelText;
using vellumo::test::LoadedWindow;
using vellumo::test::Type;

namespace {

// Pixels of random colours, which no encoder can make small: the quality
// decides the file's size.
QImage Noise(int width, int height) {
    QImage noise(width, height, QImage::Format_RGB32);
    QRandomGenerator random(42);
    for (int y = 0; y < height; ++y) {
        auto* row = reinterpret_cast<quint32*>(noise.scanLine(y));
        for (int x = 0; x < width; ++x) {
            row[x] = 0xff000000u | (random.generate() & 0xffffffu);
        }
    }
    return noise;
}

// The token entry of the name field's menu that puts in `token`.
QAction& TokenAction(LoadedWindow& loaded, const QString& token) {
    auto& button = loaded.Control<vellumo::NameTokenButton>("buttonNameTokens");
    for (QAction* action : button.menu()->actions()) {
        if (action->data().toString() == token) {
            return *action;
        }
    }
    vellumo::Fatal("test: the token menu has no " + token.toStdString());
}

// A window ready to crop into `out` below `dir`.
void OutputInto(LoadedWindow& loaded, const QTemporaryDir& dir) {
    QDir(dir.path()).mkdir("out");
    loaded.Control<QLineEdit>("textFieldOutputFolder").setText(dir.filePath("out"));
}

// The auto-crop of `ratio` chosen with the mouse and the keyboard.
void AutoCrop(LoadedWindow& loaded, const QString& ratio) {
    Choose(loaded.Control<QComboBox>("comboAutoCropFormat"), ratio);
    Click(loaded.Control<vellumo::LatchingRadioButton>("radioAutoCrop"));
}

QStringList FilesIn(const QString& folder) {
    return QDir(folder).entryList(QDir::Files);
}

}  // namespace

class OutputOptionsTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    // Crop plans are remembered as recent files: not in the user's settings.
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void theSizeLimitGoesThroughTheSettings() {
        LoadedWindow loaded;
        loaded.Show();
        auto& amount = loaded.Control<QLineEdit>("textFieldMaxSize");
        auto& unit = loaded.Control<QComboBox>("comboMaxSizeUnit");
        auto& scaleDown = loaded.Control<QCheckBox>("checkScaleDownToFit");
        QCOMPARE(amount.text(), QString());
        QCOMPARE(loaded.settings().Read().byteLimit.maxBytes, std::uint64_t{0});
        QVERIFY(!scaleDown.isEnabled());

        // Only whole numbers from 1 on can be typed.
        Type(amount, "0x5,00");
        QCOMPARE(amount.text(), QStringLiteral("500"));
        Choose(unit, "KB");
        QVERIFY(scaleDown.isEnabled());
        Click(scaleDown);
        CropSettings read = loaded.settings().Read();
        QCOMPARE(read.byteLimit.maxBytes, std::uint64_t{500000});
        QVERIFY(read.byteLimit.scaleDown);
        Choose(unit, "MB");
        QCOMPARE(loaded.settings().Read().byteLimit.maxBytes, std::uint64_t{500000000});
        Type(amount, "");
        QCOMPARE(loaded.settings().Read().byteLimit.maxBytes, std::uint64_t{0});
        QVERIFY(!scaleDown.isEnabled());

        // Written back in the largest unit that shows the limit exactly.
        const struct {
            std::uint64_t bytes;
            const char* amount;
            const char* unit;
        } limits[] = {{3000000, "3", "MB"},
                      {2500000, "2500", "KB"},
                      {512345, "512345", "bytes"},
                      {0, "", "KB"}};
        for (const auto& limit : limits) {
            CropSettings settings;
            settings.byteLimit.maxBytes = limit.bytes;
            settings.byteLimit.scaleDown = limit.bytes == 2500000;
            loaded.settings().Write(settings);
            QCOMPARE(amount.text(), QString::fromLatin1(limit.amount));
            QCOMPARE(unit.currentText(), QString::fromLatin1(limit.unit));
            QCOMPARE(scaleDown.isChecked(), limit.bytes == 2500000);
            QCOMPARE(loaded.settings().Read().byteLimit.maxBytes, limit.bytes);
        }
    }

    void theSizeLimitIsOfferedForFormatsWhoseQualityCanFit() {
        LoadedWindow loaded;
        loaded.Show();
        auto& format = loaded.Control<QComboBox>("comboFormat");
        auto& limit = loaded.Control<QWidget>("sizeLimit");
        const QStringList fitting = {"JPG", "JPEG", "JPE", "WEBP", "AVIF", "HEIC", "JXL"};
        for (int i = 0; i < format.count(); ++i) {
            const QString title = format.itemText(i);
            Choose(format, title);
            QCOMPARE(limit.isEnabled(), fitting.contains(title));
        }
        // Replaced originals keep their own formats, JPEGs among them.
        Choose(format, "PNG");
        Click(loaded.Control<QCheckBox>("checkReplaceOriginals"));
        QVERIFY(limit.isEnabled());
    }

    void keepingTheTreeIsOfferedForImagesFoundThroughFolders() {
        QTemporaryDir dir;
        QDir(dir.path()).mkpath("shots/a");
        const QString loose =
            vellumo::test::Write(vellumo::test::Quarters(40, 30), dir.filePath("loose.png"));
        const QString inside =
            vellumo::test::Write(vellumo::test::Quarters(40, 30), dir.filePath("shots/a/x.png"));
        LoadedWindow loaded;
        loaded.Show();
        auto& keep = loaded.Control<QCheckBox>("checkKeepFolderStructure");
        QVERIFY(!keep.isEnabled());
        loaded.AddImages({loose});
        QVERIFY(!keep.isEnabled());
        loaded.controller().AppendImages({inside}, {dir.filePath("shots")});
        QVERIFY(keep.isEnabled());
        Click(keep);
        QVERIFY(loaded.settings().Read().keepStructure);
        // Replaced originals stay where they are.
        Click(loaded.Control<QCheckBox>("checkReplaceOriginals"));
        QVERIFY(!keep.isEnabled());
        Click(loaded.Control<QCheckBox>("checkReplaceOriginals"));
        QVERIFY(keep.isEnabled());
        // Without the folder's image, only a loose file is left.
        loaded.imageList().RemoveRows({1});
        QVERIFY(!keep.isEnabled());
        CropSettings settings;
        settings.keepStructure = false;
        loaded.settings().Write(settings);
        QVERIFY(!keep.isChecked());
    }

    void keepingTheTreeWritesEachCropIntoItsFoldersSubfolder() {
        QTemporaryDir dir;
        QDir(dir.path()).mkpath("shots/a");
        QDir(dir.path()).mkpath("shots/b/c");
        const QString x =
            vellumo::test::Write(vellumo::test::Quarters(40, 30), dir.filePath("shots/a/x.png"));
        const QString y =
            vellumo::test::Write(vellumo::test::Quarters(40, 30), dir.filePath("shots/b/c/y.png"));
        LoadedWindow loaded;
        loaded.Show();
        OutputInto(loaded, dir);
        loaded.controller().AppendImages({x, y}, {dir.filePath("shots")});
        AutoCrop(loaded, "1:1");
        Click(loaded.Control<QCheckBox>("checkKeepFolderStructure"));
        QVERIFY(vellumo::test::CropAndWait(loaded));
        QCOMPARE(loaded.boxes.back().text, QStringLiteral("Images cropped successfully."));
        QCOMPARE(FilesIn(dir.filePath("out")), QStringList());
        QCOMPARE(FilesIn(dir.filePath("out/a")), QStringList{"x_cropped (1).jpg"});
        QCOMPARE(FilesIn(dir.filePath("out/b/c")), QStringList{"y_cropped (2).jpg"});
        QCOMPARE(QImage(dir.filePath("out/b/c/y_cropped (2).jpg")).size(), QSize(30, 30));
    }

    void aDroppedFolderIsWhereTheKeptTreeIsMeasuredFrom() {
        QTemporaryDir dir;
        QDir(dir.path()).mkpath("catalogue/shoes/red");
        QDir(dir.path()).mkpath("catalogue/bags");
        const QImage picture = vellumo::test::Quarters(40, 30);
        vellumo::test::Write(picture, dir.filePath("catalogue/cover.png"));
        vellumo::test::Write(picture, dir.filePath("catalogue/shoes/red/boot.png"));
        vellumo::test::Write(picture, dir.filePath("catalogue/bags/tote.png"));
        LoadedWindow loaded;
        loaded.Show();
        OutputInto(loaded, dir);
        auto& table = loaded.Control<vellumo::ImageTableView>("tableViewImage");
        const auto data = vellumo::test::FileUrlData({dir.filePath("catalogue")});
        QVERIFY(
            vellumo::test::DragAndDrop(table, vellumo::test::BelowLastRow(table), *data).accepted);
        QCOMPARE(loaded.imageList().count(), 3);
        auto& keep = loaded.Control<QCheckBox>("checkKeepFolderStructure");
        QVERIFY(keep.isEnabled());
        AutoCrop(loaded, "1:1");
        Type(loaded.Control<QLineEdit>("textFieldName"), "[FileName]");
        Click(keep);
        QVERIFY(vellumo::test::CropAndWait(loaded));
        QCOMPARE(loaded.boxes.back().text, QStringLiteral("Images cropped successfully."));
        QCOMPARE(FilesIn(dir.filePath("out")), QStringList{"cover.jpg"});
        QCOMPARE(FilesIn(dir.filePath("out/shoes/red")), QStringList{"boot.jpg"});
        QCOMPARE(FilesIn(dir.filePath("out/bags")), QStringList{"tote.jpg"});
        QCOMPARE(QImage(dir.filePath("out/shoes/red/boot.jpg")).size(), QSize(30, 30));
        QVERIFY(!QFileInfo::exists(dir.filePath("out/catalogue")));
    }

    void theTokenMenuPutsATokenAtTheCursor() {
        LoadedWindow loaded;
        loaded.Show();
        auto& name = loaded.Control<QLineEdit>("textFieldName");
        Type(name, "ab");
        name.setCursorPosition(1);
        TokenAction(loaded, "[Width]").trigger();
        QCOMPARE(name.text(), QStringLiteral("a[Width]b"));
        QCOMPARE(name.cursorPosition(), 8);
        // A selection is replaced, as typing replaces it.
        name.setSelection(0, 1);
        TokenAction(loaded, "[Date:yyyy-MM-dd HH-mm-ss]").trigger();
        QCOMPARE(name.text(), QStringLiteral("[Date:yyyy-MM-dd HH-mm-ss][Width]b"));
        QCOMPARE(loaded.settings().Read().nameTemplate, "[Date:yyyy-MM-dd HH-mm-ss][Width]b");
        // Every token the names know is offered.
        for (const char* token : {"[FileName]", "[FileIndex]", "[Folder]", "[Ext]", "[Date]",
                                  "[Camera]", "[Height]", "[Ratio]"}) {
            QVERIFY(TokenAction(loaded, token).isEnabled());
        }
    }

    void theNameLineShowsTheNameTheCropWrites() {
        QTemporaryDir dir;
        QDir(dir.path()).mkdir("shots");
        LoadedWindow loaded;
        loaded.Show();
        loaded.AddImages({vellumo::test::Write(vellumo::test::Quarters(300, 200),
                                               dir.filePath("shots/beach.png"))});
        OutputInto(loaded, dir);
        AutoCrop(loaded, "16:9");
        auto& name = loaded.Control<QLineEdit>("textFieldName");
        // What the window cannot know yet is shown as the token.
        Type(name, "[Date]_[Camera]_[FileName]");
        QCOMPARE(LabelText(loaded, "labelOutputName"),
                 QStringLiteral("Becomes: [Date]_[Camera]_beach.jpg"));
        Type(name, "[Folder]-[FileName]-[Width]x[Height]-[Ratio]-[Ext]");
        QCOMPARE(LabelText(loaded, "labelOutputName"),
                 QStringLiteral("Becomes: shots-beach-[Width]x[Height]-[Ratio]-png.jpg"));
        vellumo::test::ClickRow(loaded, 0);
        QVERIFY(vellumo::test::WaitForPreview(loaded));
        const QString line = LabelText(loaded, "labelOutputName");

        QVERIFY(vellumo::test::CropAndWait(loaded));
        const QStringList written = FilesIn(dir.filePath("out"));
        QCOMPARE(written.size(), 1);
        QCOMPARE(line, "Becomes: " + written[0]);
        const QImage crop(dir.filePath("out/" + written[0]));
        QCOMPARE(
            written[0],
            QStringLiteral("shots-beach-%1x%2-16x9-png.jpg").arg(crop.width()).arg(crop.height()));
        // A template that cannot be read says why instead.
        Type(name, "[Nope]");
        QVERIFY(
            LabelText(loaded, "labelOutputName").startsWith("Not a name: unknown token [Nope]"));
    }

    void aCropPlanKeepsTheNewSettings() {
        QTemporaryDir dir;
        LoadedWindow loaded;
        loaded.Show();
        loaded.AddImages(
            {vellumo::test::Write(vellumo::test::Quarters(40, 30), dir.filePath("a.png"))});
        Type(loaded.Control<QLineEdit>("textFieldMaxSize"), "64");
        Choose(loaded.Control<QComboBox>("comboMaxSizeUnit"), "MB");
        Click(loaded.Control<QCheckBox>("checkScaleDownToFit"));
        loaded.Control<QCheckBox>("checkKeepFolderStructure").setChecked(true);
        loaded.saveDialogAnswers.push_back(dir.filePath("batch"));
        QVERIFY(loaded.plans().Save());

        loaded.controller().OnFileNew();
        QCOMPARE(loaded.settings().Read().byteLimit.maxBytes, std::uint64_t{0});
        QVERIFY(!loaded.settings().Read().keepStructure);
        loaded.openDialogAnswers.push_back(QStringList{dir.filePath("batch.vellumoplan")});
        loaded.plans().Open();
        const CropSettings back = loaded.settings().Read();
        QCOMPARE(back.byteLimit.maxBytes, std::uint64_t{64000000});
        QVERIFY(back.byteLimit.scaleDown);
        QVERIFY(back.keepStructure);
        QCOMPARE(loaded.Control<QLineEdit>("textFieldMaxSize").text(), QStringLiteral("64"));
        QCOMPARE(loaded.Control<QComboBox>("comboMaxSizeUnit").currentText(), QStringLiteral("MB"));
    }

    void aSizeLimitedCropIsWrittenWithinTheLimit() {
        QTemporaryDir dir;
        LoadedWindow loaded;
        loaded.Show();
        loaded.AddImages({vellumo::test::Write(Noise(600, 400), dir.filePath("noise.png"))});
        OutputInto(loaded, dir);
        AutoCrop(loaded, "1:1");
        Type(loaded.Control<QLineEdit>("textFieldName"), "free");
        QVERIFY(vellumo::test::CropAndWait(loaded));
        const QFileInfo free(dir.filePath("out/free (1).jpg"));
        QVERIFY(free.size() > 60000);

        Type(loaded.Control<QLineEdit>("textFieldName"), "limited");
        Type(loaded.Control<QLineEdit>("textFieldMaxSize"), "60");
        Choose(loaded.Control<QComboBox>("comboMaxSizeUnit"), "KB");
        QVERIFY(vellumo::test::CropAndWait(loaded));
        QCOMPARE(loaded.boxes.back().text, QStringLiteral("Images cropped successfully."));
        const QFileInfo limited(dir.filePath("out/limited (1).jpg"));
        QVERIFY(limited.exists());
        QVERIFY2(limited.size() <= 60000, qPrintable(QString::number(limited.size())));
        QCOMPARE(QImage(limited.filePath()).size(), QSize(400, 400));

        // Too small for any quality: the picture is made smaller to fit.
        Type(loaded.Control<QLineEdit>("textFieldName"), "scaled");
        Type(loaded.Control<QLineEdit>("textFieldMaxSize"), "1500");
        Choose(loaded.Control<QComboBox>("comboMaxSizeUnit"), "bytes");
        Click(loaded.Control<QCheckBox>("checkScaleDownToFit"));
        QVERIFY(vellumo::test::CropAndWait(loaded));
        const QFileInfo scaled(dir.filePath("out/scaled (1).jpg"));
        QVERIFY(scaled.exists());
        QVERIFY2(scaled.size() <= 1500, qPrintable(QString::number(scaled.size())));
        QVERIFY(QImage(scaled.filePath()).width() < 400);
    }
};

QTEST_MAIN(OutputOptionsTest)
#include "OutputOptionsTest.moc"
