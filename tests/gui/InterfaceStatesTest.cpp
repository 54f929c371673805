// The window's start values, the new-document command, and the states while
// and after a crop job; the window-level commands.

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/SizedImage.h"
#include "tests/gui/support/WindowDriving.h"
#include "tests/gui/support/Workers.h"
#include "tests/support/TestImages.h"
#include "ui/ProgressFraction.h"
#include "ui/controls/LatchingRadioButton.h"
#include "ui/controls/QualitySlider.h"
#include "ui/controls/Stepper.h"
#include "ui/list/ImageTableView.h"
#include "ui/preview/CropPreviewView.h"

using vellumo::CropPreviewView;
using vellumo::ImageTableView;
using vellumo::LatchingRadioButton;
using vellumo::QualitySlider;
using vellumo::Stepper;
using vellumo::ViewController;
using vellumo::test::LoadedWindow;

namespace {

// The controls a crop job locks, in the order it locks them: the 27 of old
// with the size limit among them, then the choice to replace the originals.
// (Keeping the folders' tree is locked too, but is offered only for a list
// found through folders: see OutputOptionsTest.)
const QStringList kLockedControls = {
    "buttonAddImages",
    "buttonRemoveSelected",
    "buttonRemoveAll",
    "radioAutoCrop",
    "comboAutoCropFormat",
    "radioCustomCrop",
    "radioCustomCropPixels",
    "textFieldCustomCropPixelsOriginX",
    "textFieldCustomCropPixelsOriginY",
    "textFieldCustomCropPixelsWidth",
    "textFieldCustomCropPixelsHeight",
    "radioCustomCropPercents",
    "textFieldCustomCropPercentsOriginX",
    "stepperCustomCropPercentsOriginX",
    "textFieldCustomCropPercentsOriginY",
    "stepperCustomCropPercentsOriginY",
    "textFieldCustomCropPercentsWidth",
    "stepperCustomCropPercentsWidth",
    "textFieldCustomCropPercentsHeight",
    "stepperCustomCropPercentsHeight",
    "comboFormat",
    "sliderQuality",
    "textFieldName",
    "textFieldOutputFolder",
    "checkKeepEXIFInformationAndCreationDate",
    "sizeLimit",
    "buttonBrowse",
    "buttonCropImages",
    "checkReplaceOriginals",
};

// Controls a crop job leaves alone.
const QStringList kControlsLeftEnabled = {
    "tableViewImage",
    "tabView",
    "imageViewCropPreview",
    "labelOriginalDimensionsWidth",
    "labelOriginalDimensionsHeight",
    "labelOutputDimensionsWidth",
    "labelOutputDimensionsHeight",
    "labelQuality",
    "progressIndicator",
};

// Notes, in order, each change of a watched control's enabled state, with the
// crop button's title at that moment.
class EnabledChangeRecorder : public QObject {
  public:
    EnabledChangeRecorder(LoadedWindow& loaded, const QStringList& names)
        : cropButton_(loaded.Control<QPushButton>("buttonCropImages")) {
        for (const QString& name : names) {
            loaded.Control<QWidget>(qPrintable(name)).installEventFilter(this);
        }
    }

    QStringList changes;
    QStringList cropTitles;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::EnabledChange) {
            changes << watched->objectName();
            cropTitles << cropButton_.text();
        }
        return false;
    }

  private:
    QPushButton& cropButton_;
};

QStringList Items(const QComboBox& combo) {
    QStringList items;
    for (int i = 0; i < combo.count(); ++i) {
        items << combo.itemText(i);
    }
    return items;
}

void VerifyStartValues(LoadedWindow& loaded) {
    ViewController& controller = loaded.controller();
    QVERIFY(controller.imageList().paths().isEmpty());
    QCOMPARE(loaded.Control<ImageTableView>("tableViewImage").model()->rowCount(), 0);
    QCOMPARE(loaded.Control<QTabWidget>("tabView").currentIndex(), 0);

    QVERIFY(!loaded.Control<LatchingRadioButton>("radioAutoCrop").isChecked());
    QVERIFY(loaded.Control<LatchingRadioButton>("radioCustomCrop").isChecked());
    QVERIFY(loaded.Control<LatchingRadioButton>("radioCustomCropPixels").isChecked());
    QVERIFY(!loaded.Control<LatchingRadioButton>("radioCustomCropPercents").isChecked());

    for (const char* name : {"textFieldCustomCropPixelsOriginX", "textFieldCustomCropPixelsOriginY",
                             "textFieldCustomCropPixelsWidth", "textFieldCustomCropPixelsHeight"}) {
        QCOMPARE(loaded.Control<QLineEdit>(name).text(), QStringLiteral("0"));
    }
    QCOMPARE(loaded.Control<QLineEdit>("textFieldCustomCropPercentsOriginX").text(), "20");
    QCOMPARE(loaded.Control<QLineEdit>("textFieldCustomCropPercentsOriginY").text(), "20");
    QCOMPARE(loaded.Control<QLineEdit>("textFieldCustomCropPercentsWidth").text(), "60");
    QCOMPARE(loaded.Control<QLineEdit>("textFieldCustomCropPercentsHeight").text(), "60");
    QCOMPARE(loaded.Control<Stepper>("stepperCustomCropPercentsOriginX").value(), 20.0);
    QCOMPARE(loaded.Control<Stepper>("stepperCustomCropPercentsOriginY").value(), 20.0);
    QCOMPARE(loaded.Control<Stepper>("stepperCustomCropPercentsWidth").value(), 60.0);
    QCOMPARE(loaded.Control<Stepper>("stepperCustomCropPercentsHeight").value(), 60.0);

    auto& format = loaded.Control<QComboBox>("comboFormat");
    QCOMPARE(format.currentIndex(), 0);
    QCOMPARE(format.currentText(), QStringLiteral("JPG"));

    auto& slider = loaded.Control<QualitySlider>("sliderQuality");
    QCOMPARE(slider.doubleValue(), 80.0);
    QVERIFY(slider.isEnabled());
    QCOMPARE(loaded.Control<QLabel>("labelQuality").text(), QStringLiteral("80"));

    QCOMPARE(loaded.Control<QLineEdit>("textFieldName").text(),
             QStringLiteral("[FileName]_cropped ([FileIndex])"));
    QCOMPARE(loaded.Control<QLineEdit>("textFieldOutputFolder").text(), QString());
    QVERIFY(!loaded.Control<QCheckBox>("checkKeepEXIFInformationAndCreationDate").isChecked());
    QVERIFY(!loaded.Control<QCheckBox>("checkReplaceOriginals").isChecked());
    QCOMPARE(loaded.Control<QLineEdit>("textFieldMaxSize").text(), QString());
    QVERIFY(!loaded.Control<QCheckBox>("checkScaleDownToFit").isChecked());
    QVERIFY(!loaded.Control<QCheckBox>("checkKeepFolderStructure").isChecked());
    QVERIFY(!loaded.Control<QCheckBox>("checkKeepFolderStructure").isEnabled());
    QCOMPARE(loaded.Control<QLabel>("labelOutputName").text(), QString());
    QCOMPARE(loaded.Control<QProgressBar>("progressIndicator").value(), 0);
    QCOMPARE(loaded.Control<QLabel>("labelImageCount").text(), QStringLiteral("No images"));
    QCOMPARE(loaded.Control<QLabel>("labelPreviewNote").text(), QString());

    QVERIFY(controller.preview().image().IsEmpty());
    QVERIFY(loaded.Control<CropPreviewView>("imageViewCropPreview").image().isNull());
    QCOMPARE(loaded.Control<QLabel>("labelOriginalDimensionsWidth").text(), "Width: 0");
    QCOMPARE(loaded.Control<QLabel>("labelOriginalDimensionsHeight").text(), "Height: 0");
    QCOMPARE(loaded.Control<QLabel>("labelOutputDimensionsWidth").text(), "Width: 0");
    QCOMPARE(loaded.Control<QLabel>("labelOutputDimensionsHeight").text(), "Height: 0");
}

}  // namespace

class InterfaceStatesTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theWindowStartsWithTheStartValues() {
        LoadedWindow loaded;
        VerifyStartValues(loaded);
        ViewController& controller = loaded.controller();
        QCOMPARE(controller.imageList().acceptedExtensions(),
                 QStringList({"jpg", "jpeg", "jpe", "jp2", "jpx", "png", "gif", "tif", "tiff",
                              "bmp", "heic", "heif", "avif", "webp", "jxl"}));
        QCOMPARE(controller.profiles().currentPath(), QString());
        QCOMPARE(loaded.window().windowTitle(), QStringLiteral("Vellumo"));
        QCOMPARE(Items(loaded.Control<QComboBox>("comboAutoCropFormat")).mid(0, 4),
                 QStringList({"1:1", "4:3", "3:2", "16:9"}));
        QCOMPARE(loaded.Control<QComboBox>("comboAutoCropFormat").currentIndex(), 0);
        QCOMPARE(Items(loaded.Control<QComboBox>("comboFormat")),
                 QStringList({"JPG", "JPEG", "JPE", "JP2", "JPX", "PNG", "TIFF", "TIF", "GIF",
                              "BMP", "WEBP", "AVIF", "HEIC", "JXL"}));
        QCOMPARE(loaded.Control<QPushButton>("buttonCropImages").text(), "Crop Images");
        // Nothing was asked or opened on the way.
        QVERIFY(loaded.boxes.empty());
        QVERIFY(loaded.openDialogs.empty());
    }

    void newRestoresEveryValueButKeepsTheRatioAndTheEnabledStates() {
        QTemporaryDir folder;
        LoadedWindow loaded;
        ViewController& controller = loaded.controller();

        // Change everything the user can change.
        loaded.AddImages({folder.filePath("a.png"), folder.filePath("b.jpg")});
        QCOMPARE(controller.imageList().paths().size(), 2);
        loaded.Control<QTabWidget>("tabView").setCurrentIndex(1);
        loaded.Control<LatchingRadioButton>("radioAutoCrop").setChecked(true);
        loaded.Control<LatchingRadioButton>("radioCustomCrop").setChecked(false);
        loaded.Control<LatchingRadioButton>("radioCustomCropPixels").setChecked(false);
        loaded.Control<LatchingRadioButton>("radioCustomCropPercents").setChecked(true);
        for (const char* name :
             {"textFieldCustomCropPixelsOriginX", "textFieldCustomCropPixelsOriginY",
              "textFieldCustomCropPixelsWidth", "textFieldCustomCropPixelsHeight",
              "textFieldCustomCropPercentsOriginX", "textFieldCustomCropPercentsOriginY",
              "textFieldCustomCropPercentsWidth", "textFieldCustomCropPercentsHeight"}) {
            loaded.Control<QLineEdit>(name).setText("7");
        }
        for (const char* name :
             {"stepperCustomCropPercentsOriginX", "stepperCustomCropPercentsOriginY",
              "stepperCustomCropPercentsWidth", "stepperCustomCropPercentsHeight"}) {
            loaded.Control<Stepper>(name).setValue(7);
        }
        loaded.Control<QComboBox>("comboAutoCropFormat").setCurrentIndex(2);
        loaded.Control<QComboBox>("comboFormat").setCurrentIndex(8);
        loaded.Control<QualitySlider>("sliderQuality").setDoubleValue(33.5);
        loaded.Control<QLabel>("labelQuality").setText("33");
        loaded.Control<QLineEdit>("textFieldName").setText("photo");
        loaded.Control<QLineEdit>("textFieldOutputFolder").setText("/out");
        loaded.Control<QCheckBox>("checkKeepEXIFInformationAndCreationDate").setChecked(true);
        vellumo::SetProgressFraction(loaded.Control<QProgressBar>("progressIndicator"), 0.5);
        controller.preview().SetImage(vellumo::test::SizedImage(400, 300));
        controller.UpdateImageSize();
        QCOMPARE(loaded.Control<QLabel>("labelOriginalDimensionsWidth").text(), "Width: 400");
        loaded.Control<CropPreviewView>("imageViewCropPreview")
            .SetImage(QImage(40, 30, QImage::Format_RGB32));
        controller.profiles().setCurrentPath("/profiles/mine.vellumo");
        loaded.window().setWindowTitle("mine — Vellumo");
        // A job is running: the controls are locked, the slider too.
        controller.DisableInterface();

        controller.OnFileNew();

        VerifyStartValues(loaded);
        QCOMPARE(loaded.Control<QComboBox>("comboAutoCropFormat").currentIndex(), 2);
        QCOMPARE(controller.profiles().currentPath(), QString());
        QCOMPARE(loaded.window().windowTitle(), QStringLiteral("Vellumo"));
        // Enabled states are kept (the slider is enabled: "JPG" takes a
        // quality), and the crop button keeps its title.
        for (const QString& name : kLockedControls) {
            if (name == "sliderQuality") {
                continue;
            }
            QVERIFY2(!loaded.Control<QWidget>(qPrintable(name)).isEnabled(), qPrintable(name));
        }
        QCOMPARE(loaded.Control<QPushButton>("buttonCropImages").text(), "Cropping...");
    }

    void theNewCommandOfTheMenuStartsAfresh() {
        LoadedWindow loaded;
        loaded.Control<QLineEdit>("textFieldName").setText("changed");
        loaded.Control<QAction>("actionNew").trigger();
        QCOMPARE(loaded.Control<QLineEdit>("textFieldName").text(),
                 QStringLiteral("[FileName]_cropped ([FileIndex])"));
    }

    void resetChangesValuesOnly() {
        LoadedWindow loaded;
        loaded.Control<QPushButton>("buttonBrowse").setEnabled(false);
        loaded.Control<QComboBox>("comboFormat").setCurrentIndex(5);
        loaded.Control<QualitySlider>("sliderQuality").setEnabled(false);
        EnabledChangeRecorder recorder(loaded, kLockedControls);
        loaded.controller().ResetInterface();
        // Only the slider changes state: the default format takes a quality.
        QCOMPARE(recorder.changes, QStringList({"sliderQuality"}));
        QVERIFY(!loaded.Control<QPushButton>("buttonBrowse").isEnabled());
    }

    void disablingLocksTheControlsInOrderThenRetitlesTheCropButton() {
        LoadedWindow loaded;
        EnabledChangeRecorder recorder(loaded, kLockedControls + kControlsLeftEnabled);
        loaded.controller().DisableInterface();

        QCOMPARE(recorder.changes, kLockedControls);
        QCOMPARE(recorder.cropTitles.last(), QStringLiteral("Crop Images"));
        QCOMPARE(loaded.Control<QPushButton>("buttonCropImages").text(), "Cropping...");
        for (const QString& name : kLockedControls) {
            QVERIFY2(!loaded.Control<QWidget>(qPrintable(name)).isEnabled(), qPrintable(name));
        }
        for (const QString& name : kControlsLeftEnabled) {
            QVERIFY2(loaded.Control<QWidget>(qPrintable(name)).isEnabled(), qPrintable(name));
        }
        for (const char* name : {"actionNew", "actionQuit", "actionVideoTutorial"}) {
            QVERIFY2(loaded.Control<QAction>(name).isEnabled(), name);
        }
    }

    void enablingUnlocksInOrderThenSettlesTheSliderByFormat_data() {
        QTest::addColumn<int>("format");
        QTest::addColumn<bool>("sliderEnabled");
        QTest::addColumn<bool>("metadataEnabled");
        const QStringList titles = {"JPG", "JPEG", "JPE", "JP2", "JPX",
                                    "PNG", "TIFF", "TIF", "GIF", "BMP"};
        for (int i = 0; i < titles.size(); ++i) {
            QTest::newRow(qPrintable(titles[i])) << i << (i <= 4) << (i <= 7);
        }
        QTest::newRow("no format selected") << -1 << false << false;
    }

    void enablingUnlocksInOrderThenSettlesTheSliderByFormat() {
        QFETCH(int, format);
        QFETCH(bool, sliderEnabled);
        QFETCH(bool, metadataEnabled);
        LoadedWindow loaded;
        loaded.Control<QComboBox>("comboFormat").setCurrentIndex(format);
        loaded.controller().DisableInterface();

        EnabledChangeRecorder recorder(loaded, kLockedControls);
        loaded.controller().EnableInterface();

        // Enabled with the others, then settled by the format.
        QStringList expected = kLockedControls;
        if (!sliderEnabled) {
            expected << "sliderQuality";
        }
        if (!metadataEnabled) {
            expected << "checkKeepEXIFInformationAndCreationDate";
        }
        // Only JPEG of these can be fitted to a size limit.
        if (format < 0 || format > 2) {
            expected << "sizeLimit";
        }
        QCOMPARE(recorder.changes, expected);
        QCOMPARE(loaded.Control<QPushButton>("buttonCropImages").text(), "Crop Images");
        QCOMPARE(loaded.Control<QualitySlider>("sliderQuality").isEnabled(), sliderEnabled);
        QCOMPARE(loaded.Control<QCheckBox>("checkKeepEXIFInformationAndCreationDate").isEnabled(),
                 metadataEnabled);
        QCOMPARE(loaded.Control<QWidget>("sizeLimit").isEnabled(), format >= 0 && format <= 2);
        for (const QString& name : kLockedControls) {
            if (name != "sliderQuality" && name != "checkKeepEXIFInformationAndCreationDate" &&
                name != "sizeLimit") {
                QVERIFY2(loaded.Control<QWidget>(qPrintable(name)).isEnabled(), qPrintable(name));
            }
        }
    }

    void afterAJobReplacingTheOriginalsTheNameFolderAndFormatStayUnused() {
        LoadedWindow loaded;
        loaded.Control<QCheckBox>("checkReplaceOriginals").setChecked(true);
        loaded.controller().DisableInterface();
        loaded.controller().EnableInterface();
        for (const char* name :
             {"comboFormat", "textFieldName", "textFieldOutputFolder", "buttonBrowse"}) {
            QVERIFY2(!loaded.Control<QWidget>(name).isEnabled(), name);
        }
        QVERIFY(loaded.Control<QualitySlider>("sliderQuality").isEnabled());
        QVERIFY(loaded.Control<QCheckBox>("checkKeepEXIFInformationAndCreationDate").isEnabled());
        // New ends it, and they are used again.
        loaded.controller().OnFileNew();
        QVERIFY(!loaded.Control<QCheckBox>("checkReplaceOriginals").isChecked());
        for (const char* name :
             {"comboFormat", "textFieldName", "textFieldOutputFolder", "buttonBrowse"}) {
            QVERIFY2(loaded.Control<QWidget>(name).isEnabled(), name);
        }
    }

    void enablingLeavesTheCropModeControlsOfTheOtherModeEnabled() {
        LoadedWindow loaded;
        loaded.Control<LatchingRadioButton>("radioAutoCrop").setChecked(true);
        loaded.Control<LatchingRadioButton>("radioCustomCrop").setChecked(false);
        loaded.controller().DisableInterface();
        loaded.controller().EnableInterface();
        QVERIFY(loaded.Control<QLineEdit>("textFieldCustomCropPixelsWidth").isEnabled());
        QVERIFY(loaded.Control<Stepper>("stepperCustomCropPercentsWidth").isEnabled());
        QVERIFY(loaded.Control<LatchingRadioButton>("radioCustomCropPercents").isEnabled());
    }

    // Also while the window's own job runs (its image held mid-crop): the
    // window closes at once, asking nothing.
    void theWindowMayAlwaysClose() {
        QTemporaryDir dir;
        LoadedWindow loaded;
        const auto processor = std::make_shared<vellumo::test::RecordingProcessor>();
        loaded.controller().SetImageProcessor(processor);
        loaded.Show();
        const QString image = dir.filePath(QStringLiteral("a.png"));
        vellumo::test::CoordinateImage(120, 80).pngsave(image.toUtf8().constData());
        loaded.AddImages({image});
        loaded.Control<QLineEdit>("textFieldOutputFolder").setText(dir.path());
        loaded.Control<LatchingRadioButton>("radioAutoCrop").click();
        processor->Hold();
        vellumo::test::Click(loaded.Control<QPushButton>("buttonCropImages"));
        QTRY_COMPARE(processor->started(), 1);
        QVERIFY(loaded.controller().isCropping());
        QVERIFY(loaded.controller().windowShouldClose(loaded.window()));
        QVERIFY(loaded.window().close());
        QVERIFY(!loaded.window().isVisible());
        QVERIFY(loaded.boxes.empty());
        // The job goes on without its window; let it end before the test does.
        processor->Release();
        QTRY_VERIFY(!loaded.controller().isCropping());
    }

    void theVideoTutorialOpensItsAddressAndWithoutABrowserGivesIt() {
        LoadedWindow loaded;
        loaded.Control<QAction>("actionVideoTutorial").trigger();
        QCOMPARE(loaded.openedUrls.size(), 1u);
        const QUrl address = loaded.openedUrls.front();
        QCOMPARE(address.toString(), QString::fromLatin1(ViewController::kVideoTutorialAddress));
        QVERIFY(address.isValid());
        QCOMPARE(address.scheme(), QStringLiteral("https"));
        // The test's opener fails, as it does where no browser is installed:
        // the address is given in a notice, and nothing else changed.
        QCOMPARE(loaded.boxes.size(), 1u);
        QCOMPARE(loaded.boxes[0],
                 vellumo::NoticeRequest(
                     QStringLiteral("No web browser could be opened. The video tutorial is at ") +
                     QString::fromLatin1(ViewController::kVideoTutorialAddress)));
        VerifyStartValues(loaded);
    }

    void theVideoTutorialSaysNothingWhenTheBrowserOpens() {
        LoadedWindow loaded;
        loaded.controller().services().openUrl = [](const QUrl&) { return true; };
        loaded.Control<QAction>("actionVideoTutorial").trigger();
        QVERIFY(loaded.boxes.empty());
    }
};

QTEST_MAIN(InterfaceStatesTest)
#include "InterfaceStatesTest.moc"
