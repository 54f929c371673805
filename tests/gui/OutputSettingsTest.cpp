// The output settings as the window shows them: the format list and the
// quality slider, the quality label, the folder chooser, the name template
// and the metadata option.

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/PictureFiles.h"
#include "tests/gui/support/WindowDriving.h"
#include "ui/controls/LatchingRadioButton.h"
#include "ui/controls/QualitySlider.h"
#include "ui/dialogs/OpenFilesDialog.h"

using vellumo::OpenFilesRequest;
using vellumo::QualitySlider;
using vellumo::test::Choose;
using vellumo::test::Click;
using vellumo::test::LabelText;
using vellumo::test::LoadedWindow;

namespace {

// Moves the slider to `value` the way a person does: the program puts it one
// step short, then the right arrow key takes the last step.
void MoveSliderTo(QualitySlider& slider, double value) {
    slider.setDoubleValue(value - 1.0);
    slider.setFocus();
    QTest::keyClick(&slider, Qt::Key_Right);
    if (slider.doubleValue() != value) {
        vellumo::Fatal("test: the slider did not reach " + std::to_string(value));
    }
}

// A window with one listed picture and an output folder, ready to crop.
struct JobFixture {
    QTemporaryDir dir;
    LoadedWindow loaded;

    JobFixture() {
        loaded.Show();
        loaded.AddImages(
            {vellumo::test::Write(vellumo::test::Quarters(120, 80), dir.filePath("a.png"))});
        QDir(dir.path()).mkdir("out");
        loaded.Control<QLineEdit>("textFieldOutputFolder").setText(dir.filePath("out"));
    }
};

}  // namespace

class OutputSettingsTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void webPAndJpegXlSayTheTopOfTheSliderIsLossless() {
        LoadedWindow loaded;
        loaded.Show();
        auto& formats = loaded.Control<QComboBox>("comboFormat");
        auto& slider = loaded.Control<QualitySlider>("sliderQuality");
        MoveSliderTo(slider, 100);
        QCOMPARE(LabelText(loaded, "labelQuality"), QStringLiteral("100"));
        for (const char* title : {"WEBP", "JXL"}) {
            Choose(formats, title);
            QVERIFY2(slider.isEnabled(), title);
            QCOMPARE(LabelText(loaded, "labelQuality"), QStringLiteral("100 (lossless)"));
        }
        MoveSliderTo(slider, 99);
        QCOMPARE(LabelText(loaded, "labelQuality"), QStringLiteral("99"));
        MoveSliderTo(slider, 100);
        for (const char* title : {"AVIF", "HEIC", "JPG", "JP2"}) {
            Choose(formats, title);
            QVERIFY2(slider.isEnabled(), title);
            QCOMPARE(LabelText(loaded, "labelQuality"), QStringLiteral("100"));
        }
        // Without Exif in JPEG XL, the metadata option says why it is off.
        Choose(formats, "JXL");
        auto& keep = loaded.Control<QCheckBox>("checkKeepEXIFInformationAndCreationDate");
        QVERIFY(!keep.isEnabled());
        QCOMPARE(keep.toolTip(),
                 QStringLiteral("Vellumo writes only the colour profile into JXL files"));
        for (const char* title : {"WEBP", "AVIF", "HEIC"}) {
            Choose(formats, title);
            QVERIFY2(keep.isEnabled(), title);
        }
    }

    void pngDisablesTheSliderAndJpxBringsItBackWithItsValue() {
        LoadedWindow loaded;
        loaded.Show();
        auto& formats = loaded.Control<QComboBox>("comboFormat");
        auto& slider = loaded.Control<QualitySlider>("sliderQuality");
        MoveSliderTo(slider, 57);
        QCOMPARE(LabelText(loaded, "labelQuality"), QStringLiteral("57"));

        Choose(formats, "PNG");
        QVERIFY(!slider.isEnabled());
        QCOMPARE(slider.doubleValue(), 57.0);
        QCOMPARE(LabelText(loaded, "labelQuality"), QStringLiteral("57"));

        Choose(formats, "JPX");
        QVERIFY(slider.isEnabled());
        QCOMPARE(slider.doubleValue(), 57.0);
        QCOMPARE(LabelText(loaded, "labelQuality"), QStringLiteral("57"));

        for (const char* title : {"TIFF", "TIF", "GIF", "BMP"}) {
            Choose(formats, title);
            QVERIFY2(!slider.isEnabled(), title);
        }
        for (const char* title : {"JPG", "JPEG", "JPE", "JP2", "JPX"}) {
            Choose(formats, title);
            QVERIFY2(slider.isEnabled(), title);
        }
    }

    void afterAJobTheSliderFollowsTheFormat_data() {
        QTest::addColumn<QString>("format");
        QTest::addColumn<bool>("sliderEnabled");
        QTest::newRow("GIF") << "GIF" << false;
        QTest::newRow("JPE") << "JPE" << true;
    }

    void afterAJobTheSliderFollowsTheFormat() {
        QFETCH(QString, format);
        QFETCH(bool, sliderEnabled);
        JobFixture f;
        Choose(f.loaded.Control<QComboBox>("comboFormat"), format);
        QVERIFY(vellumo::test::CropAndWait(f.loaded));
        QCOMPARE(f.loaded.boxes.back().text, QStringLiteral("Images cropped successfully."));
        QVERIFY(QFile::exists(f.dir.filePath("out/a_cropped (1)." + format.toLower())));
        QCOMPARE(f.loaded.Control<QualitySlider>("sliderQuality").isEnabled(), sliderEnabled);
    }

    void theQualityLabelShowsTheWholeNumberBelowTheValue_data() {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("label");
        QTest::newRow("1.0") << 1.0 << "1";
        QTest::newRow("1.01") << 1.01 << "1";
        QTest::newRow("2.99") << 2.99 << "2";
        QTest::newRow("80.7") << 80.7 << "80";
        QTest::newRow("100") << 100.0 << "100";
    }

    void theQualityLabelShowsTheWholeNumberBelowTheValue() {
        QFETCH(double, value);
        QFETCH(QString, label);
        LoadedWindow loaded;
        loaded.Show();
        MoveSliderTo(loaded.Control<QualitySlider>("sliderQuality"), value);
        QCOMPARE(LabelText(loaded, "labelQuality"), label);
    }

    void atZeroTheLabelShowsOne() {
        LoadedWindow loaded;
        loaded.Show();
        auto& slider = loaded.Control<QualitySlider>("sliderQuality");
        slider.setDoubleValue(1.0);
        slider.setFocus();
        QTest::keyClick(&slider, Qt::Key_Left);
        QCOMPARE(slider.doubleValue(), 0.0);
        QCOMPARE(LabelText(loaded, "labelQuality"), QStringLiteral("1"));
    }

    void theLabelFollowsTheUserNotTheProgram() {
        LoadedWindow loaded;
        loaded.Show();
        auto& slider = loaded.Control<QualitySlider>("sliderQuality");
        slider.setDoubleValue(33.0);
        QCOMPARE(LabelText(loaded, "labelQuality"), QStringLiteral("80"));
        // A drag with the mouse is the user's.
        slider.setDoubleValue(50.0);
        const QPoint handle = slider.rect().center();
        QTest::mousePress(&slider, Qt::LeftButton, {}, handle);
        QTest::mouseMove(&slider, handle + QPoint(slider.width() / 4, 0));
        QTest::mouseRelease(&slider, Qt::LeftButton, {}, handle + QPoint(slider.width() / 4, 0));
        QVERIFY(slider.doubleValue() > 60.0);
        QCOMPARE(LabelText(loaded, "labelQuality"),
                 QString::number(static_cast<int>(slider.doubleValue())));
    }

    void cancellingTheFolderChooserKeepsTheField() {
        LoadedWindow loaded;
        loaded.Show();
        auto& folder = loaded.Control<QLineEdit>("textFieldOutputFolder");
        folder.setText("/kept");
        Click(loaded.Control<QPushButton>("buttonBrowse"));  // cancelled
        QCOMPARE(folder.text(), QStringLiteral("/kept"));
        QCOMPARE(loaded.openDialogs.size(), std::size_t{1});
        OpenFilesRequest expected;
        expected.prompt = "Select Folder";
        expected.allowsMultipleSelection = false;
        expected.canCreateDirectories = false;
        expected.canChooseDirectories = true;
        expected.canChooseFiles = false;
        expected.memoryKey = "outputFolder";  // the folder it starts in next time
        QCOMPARE(loaded.openDialogs[0], expected);

        loaded.openDialogAnswers.push_back(QStringList{});
        Click(loaded.Control<QPushButton>("buttonBrowse"));
        QCOMPARE(folder.text(), QStringLiteral("/kept"));

        loaded.openDialogAnswers.push_back(QStringList{"/chosen/folder"});
        Click(loaded.Control<QPushButton>("buttonBrowse"));
        QCOMPARE(folder.text(), QStringLiteral("/chosen/folder"));
    }

    void theRealFolderChooserIsTitledWithItsPrompt() {
        QTemporaryDir dir;
        LoadedWindow loaded;
        loaded.Show();
        loaded.controller().services().chooseFilesToOpen =
            [&loaded](const OpenFilesRequest& request) {
                return vellumo::RunOpenFilesDialog(request, &loaded.window());
            };
        auto& folder = loaded.Control<QLineEdit>("textFieldOutputFolder");
        folder.setText("/kept");

        // Looked at, then cancelled from inside its own loop.
        QString title;
        QString acceptLabel;
        QFileDialog::FileMode mode = QFileDialog::AnyFile;
        bool dirsOnly = false;
        QTimer::singleShot(100, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) {
                return;
            }
            title = dialog->windowTitle();
            acceptLabel = dialog->labelText(QFileDialog::Accept);
            mode = dialog->fileMode();
            dirsOnly = dialog->testOption(QFileDialog::ShowDirsOnly);
            dialog->reject();
        });
        Click(loaded.Control<QPushButton>("buttonBrowse"));
        QCOMPARE(title, QStringLiteral("Select Folder"));
        QCOMPARE(acceptLabel, QStringLiteral("Select Folder"));
        QCOMPARE(mode, QFileDialog::Directory);
        QVERIFY(dirsOnly);
        QCOMPARE(folder.text(), QStringLiteral("/kept"));

        // Chosen: the field takes the folder's path.
        QTimer::singleShot(100, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) {
                return;
            }
            dialog->setDirectory(dir.path());
            QMetaObject::invokeMethod(dialog, "accept");
        });
        Click(loaded.Control<QPushButton>("buttonBrowse"));
        QCOMPARE(folder.text(), dir.path());
    }

    void anEmptyNameGivesTheBareFileNames() {
        JobFixture f;
        auto& name = f.loaded.Control<QLineEdit>("textFieldName");
        vellumo::test::Type(name, "");
        QCOMPARE(name.text(), QString());
        QVERIFY(vellumo::test::CropAndWait(f.loaded));
        QCOMPARE(QDir(f.dir.filePath("out")).entryList(QDir::Files), QStringList{"a.jpg"});
    }

    void theNameAndTheOptionAreReadByTheJobOnly() {
        JobFixture f;
        auto& name = f.loaded.Control<QLineEdit>("textFieldName");
        auto& keep = f.loaded.Control<QCheckBox>("checkKeepEXIFInformationAndCreationDate");
        vellumo::test::Type(name, "photo");
        Click(keep);
        QVERIFY(keep.isChecked());
        Click(keep);
        QVERIFY(!keep.isChecked());
        Click(keep);
        QVERIFY(keep.isChecked());
        QCOMPARE(f.loaded.settings().Read().nameTemplate, "photo");
        QVERIFY(f.loaded.settings().Read().keepMetadata);
        QVERIFY(vellumo::test::CropAndWait(f.loaded));
        QCOMPARE(QDir(f.dir.filePath("out")).entryList(QDir::Files), QStringList{"photo (1).jpg"});
    }

    void theLosslessJpegCropShowsAndWritesTheRectangleOnTheBlockGrid() {
        QTemporaryDir dir;
        LoadedWindow loaded;
        loaded.Show();
        // 1000 x 700, written by Qt with 4:2:0 chroma: 16-pixel blocks.
        loaded.AddImages(
            {vellumo::test::Write(vellumo::test::Quarters(1000, 700), dir.filePath("photo.jpg"))});
        QDir(dir.path()).mkdir("out");
        loaded.Control<QLineEdit>("textFieldOutputFolder").setText(dir.filePath("out"));
        Choose(loaded.Control<QComboBox>("comboAutoCropFormat"), "16:9");
        Click(loaded.Control<vellumo::LatchingRadioButton>("radioAutoCrop"));
        vellumo::test::ClickRow(loaded, 0);
        QVERIFY(vellumo::test::WaitForPreview(loaded));
        // The centred 16:9 part: 1000 x 562 from row 69.
        QCOMPARE(LabelText(loaded, "labelOutputDimensionsHeight"), QStringLiteral("Height: 562"));

        auto& lossless = loaded.Control<QCheckBox>("checkCropJPEGFilesWithoutReencoding");
        QVERIFY(lossless.isEnabled());
        Click(lossless);
        // Row 69 moves up to row 64, a block boundary; the bottom stays.
        QCOMPARE(LabelText(loaded, "labelOutputDimensionsWidth"), QStringLiteral("Width: 1000"));
        QCOMPARE(LabelText(loaded, "labelOutputDimensionsHeight"), QStringLiteral("Height: 567"));
        QCOMPARE(LabelText(loaded, "labelPreviewNote"),
                 QStringLiteral("Lossless: widened to the file's 16 \u00d7 16 blocks"));
        QCOMPARE(LabelText(loaded, "labelQuality"), QStringLiteral("80 (not used: lossless)"));

        // Not for PNG output; the setting comes back with JPEG.
        auto& formats = loaded.Control<QComboBox>("comboFormat");
        Choose(formats, "PNG");
        QVERIFY(!lossless.isEnabled());
        QCOMPARE(LabelText(loaded, "labelOutputDimensionsHeight"), QStringLiteral("Height: 562"));
        QCOMPARE(LabelText(loaded, "labelQuality"), QStringLiteral("80"));
        Choose(formats, "JPG");
        QVERIFY(lossless.isEnabled() && lossless.isChecked());
        QCOMPARE(LabelText(loaded, "labelOutputDimensionsHeight"), QStringLiteral("Height: 567"));

        QVERIFY(vellumo::test::CropAndWait(loaded));
        const QImage written(dir.filePath("out/photo_cropped (1).jpg"));
        QCOMPARE(written.size(), QSize(1000, 567));
    }
};

QTEST_MAIN(OutputSettingsTest)
#include "OutputSettingsTest.moc"
