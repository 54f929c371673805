// The crop modes as the window shows them: the radio pairs, the ratio list,
// the pixel and percent fields with their steppers, and what the preview, the
// labels and the job make of them.

#include <QComboBox>
#include <QFileInfo>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/PictureFiles.h"
#include "tests/gui/support/WindowDriving.h"
#include "tests/gui/support/Workers.h"
#include "ui/controls/LatchingRadioButton.h"
#include "ui/controls/Stepper.h"

using vellumo::LatchingRadioButton;
using vellumo::Stepper;
using vellumo::test::Choose;
using vellumo::test::Click;
using vellumo::test::ClickRow;
using vellumo::test::LabelText;
using vellumo::test::LoadedWindow;
using vellumo::test::PreviewPicture;
using vellumo::test::RecordingProcessor;
using vellumo::test::Type;

namespace {

constexpr int kWidth = 1000;
constexpr int kHeight = 500;

// The window, shown, with one 1000 x 500 picture in four coloured quarters
// listed and selected, and an output folder for jobs.
struct Fixture {
    QTemporaryDir dir;
    LoadedWindow loaded;
    std::shared_ptr<RecordingProcessor> processor = std::make_shared<RecordingProcessor>();
    QString source;

    Fixture() {
        source = vellumo::test::Write(vellumo::test::Quarters(kWidth, kHeight),
                                      dir.filePath("quarters.png"));
        QDir(dir.path()).mkdir("out");
        loaded.controller().SetImageProcessor(processor);
        loaded.Show();
        loaded.AddImages({source});
        ClickRow(loaded, 0);
        loaded.Control<QLineEdit>("textFieldOutputFolder").setText(dir.filePath("out"));
        Choose(loaded.Control<QComboBox>("comboFormat"), "PNG");
    }

    LatchingRadioButton& Radio(const char* name) {
        return loaded.Control<LatchingRadioButton>(name);
    }
    QLineEdit& Field(const char* name) { return loaded.Control<QLineEdit>(name); }

    QString OutputLabels() {
        return LabelText(loaded, "labelOutputDimensionsWidth") + " / " +
               LabelText(loaded, "labelOutputDimensionsHeight");
    }

    // The preview's colour at a point of the full picture, given from its
    // top-left corner.
    QColor PreviewAt(double x, double yFromTop) {
        const QImage picture = PreviewPicture(loaded);
        if (picture.isNull()) {
            return {};
        }
        return picture.pixelColor(static_cast<int>(x * picture.width() / kWidth),
                                  static_cast<int>(yFromTop * picture.height() / kHeight));
    }

    bool VeiledAt(double x, double yFromTop, QColor plain) {
        return vellumo::test::Near(PreviewAt(x, yFromTop), vellumo::test::Veiled(plain), 6);
    }
    bool ClearAt(double x, double yFromTop, QColor plain) {
        return vellumo::test::Near(PreviewAt(x, yFromTop), plain, 6);
    }

    QString OutputPath() { return dir.filePath("out/quarters_cropped (1).png"); }
};

void Refresh(Fixture& f) {
    QVERIFY(vellumo::test::WaitForPreview(f.loaded));
}

}  // namespace

class CropModesTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void eachRadioTurnsOffOnlyTheOtherOfItsPair() {
        Fixture f;
        auto& automatic = f.Radio("radioAutoCrop");
        auto& custom = f.Radio("radioCustomCrop");
        auto& pixels = f.Radio("radioCustomCropPixels");
        auto& percents = f.Radio("radioCustomCropPercents");

        Click(automatic);
        QVERIFY(automatic.isChecked());
        QVERIFY(!custom.isChecked());
        QVERIFY(pixels.isChecked());
        QVERIFY(!percents.isChecked());

        Click(percents);
        QVERIFY(percents.isChecked());
        QVERIFY(!pixels.isChecked());
        // The first level is left alone: custom crop stays off.
        QVERIFY(automatic.isChecked());
        QVERIFY(!custom.isChecked());

        Click(custom);
        QVERIFY(custom.isChecked());
        QVERIFY(!automatic.isChecked());
        QVERIFY(percents.isChecked());

        Click(pixels);
        QVERIFY(pixels.isChecked());
        QVERIFY(!percents.isChecked());
        QVERIFY(custom.isChecked());

        // Clicking a radio that is on leaves it on.
        Click(pixels);
        QVERIFY(pixels.isChecked());
    }

    void withAutoCropOnTheUnitRadiosChangeOnlyTheUnit() {
        Fixture f;
        Choose(f.loaded.Control<QComboBox>("comboAutoCropFormat"), "16:9");
        Click(f.Radio("radioAutoCrop"));
        Refresh(f);
        // 16:9 of 1000 x 500: the full height, 888.9 wide, centred.
        QCOMPARE(f.OutputLabels(), QStringLiteral("Width: 888 / Height: 500"));
        QVERIFY(f.VeiledAt(20, 200, Qt::red));
        QVERIFY(f.ClearAt(80, 10, Qt::red));
        QVERIFY(f.ClearAt(920, 490, Qt::yellow));

        for (const char* unit : {"radioCustomCropPercents", "radioCustomCropPixels"}) {
            Click(f.Radio(unit));
            Refresh(f);
            QVERIFY(f.Radio("radioAutoCrop").isChecked());
            QVERIFY(!f.Radio("radioCustomCrop").isChecked());
            // Still the auto-crop rectangle: full height, the sides veiled.
            QCOMPARE(f.OutputLabels(), QStringLiteral("Width: 888 / Height: 500"));
            QVERIFY(f.VeiledAt(20, 200, Qt::red));
            QVERIFY(f.ClearAt(80, 10, Qt::red));
            QVERIFY(f.ClearAt(920, 490, Qt::yellow));
            QVERIFY(f.VeiledAt(980, 490, Qt::yellow));
        }
    }

    void anotherRatioShowsAtOnceAndTheLabelsAreWhatTheJobWrites() {
        Fixture f;
        auto& ratios = f.loaded.Control<QComboBox>("comboAutoCropFormat");
        Choose(ratios, "1:1");
        Click(f.Radio("radioAutoCrop"));
        Refresh(f);
        QCOMPARE(f.OutputLabels(), QStringLiteral("Width: 500 / Height: 500"));
        const QImage before = PreviewPicture(f.loaded);

        QSignalSpy chosen(&ratios, &QComboBox::activated);
        Choose(ratios, "16:9");
        QCOMPARE(chosen.count(), 3);  // through "4:3" and "3:2" to "16:9"
        Refresh(f);
        QCOMPARE(f.OutputLabels(), QStringLiteral("Width: 888 / Height: 500"));
        QVERIFY(PreviewPicture(f.loaded) != before);
        // The 16:9 rectangle is 888.9 wide, centred: 55.6 to 944.4 across.
        QVERIFY(f.VeiledAt(40, 100, Qt::red));
        QVERIFY(f.ClearAt(70, 100, Qt::red));
        QVERIFY(f.ClearAt(930, 100, Qt::green));
        QVERIFY(f.VeiledAt(960, 100, Qt::green));

        QVERIFY(vellumo::test::CropAndWait(f.loaded));
        QCOMPARE(QImage(f.OutputPath()).size(), QSize(888, 500));

        // Another selection in the list shows it for that image.
        f.loaded.AddImages({vellumo::test::Write(vellumo::test::Plain(400, 800, Qt::gray),
                                                 f.dir.filePath("tall.png"))});
        Choose(ratios, "4:3");
        ClickRow(f.loaded, 1);
        QCOMPARE(f.OutputLabels(), QStringLiteral("Width: 400 / Height: 533"));
    }

    void aStepperRefreshesAndTheLabelsAreWhatTheJobWrites() {
        Fixture f;
        Click(f.Radio("radioCustomCropPercents"));
        Refresh(f);
        QCOMPARE(f.OutputLabels(), QStringLiteral("Width: 600 / Height: 300"));
        const QImage before = PreviewPicture(f.loaded);

        auto& stepper = f.loaded.Control<Stepper>("stepperCustomCropPercentsWidth");
        // The upper arrow.
        QTest::mouseClick(&stepper, Qt::LeftButton, {}, QPoint(stepper.width() / 2, 3));
        QCOMPARE(stepper.value(), 61.0);
        QCOMPARE(f.Field("textFieldCustomCropPercentsWidth").text(), QStringLiteral("61"));
        Refresh(f);
        QCOMPARE(f.OutputLabels(), QStringLiteral("Width: 610 / Height: 300"));
        QVERIFY(PreviewPicture(f.loaded) != before);

        QVERIFY(vellumo::test::CropAndWait(f.loaded));
        QCOMPARE(f.loaded.boxes.back().text, QStringLiteral("Images cropped successfully."));
        const QImage written(f.OutputPath());
        QCOMPARE(written.size(), QSize(610, 300));
    }

    void typingIntoAPercentFieldRefreshesAtOnceAndMovesItsStepper() {
        Fixture f;
        Click(f.Radio("radioCustomCropPercents"));
        Refresh(f);
        const QImage before = PreviewPicture(f.loaded);
        Type(f.Field("textFieldCustomCropPercentsHeight"), "10");
        Refresh(f);
        QCOMPARE(f.OutputLabels(), QStringLiteral("Width: 600 / Height: 50"));
        QVERIFY(PreviewPicture(f.loaded) != before);
        // The next step goes on from what was typed.
        auto& stepper = f.loaded.Control<Stepper>("stepperCustomCropPercentsHeight");
        QCOMPARE(stepper.value(), 10.0);
        QTest::mouseClick(&stepper, Qt::LeftButton, {}, QPoint(stepper.width() / 2, 3));
        QCOMPARE(f.Field("textFieldCustomCropPercentsHeight").text(), QStringLiteral("11"));
        Refresh(f);
        QCOMPARE(f.OutputLabels(), QStringLiteral("Width: 600 / Height: 55"));
        QVERIFY(vellumo::test::CropAndWait(f.loaded));
        QCOMPARE(QImage(f.OutputPath()).size(), QSize(600, 55));
    }

    void aPercentWidthOf150IsOneAndAHalfWidthsPassedOnUnchanged() {
        Fixture f;
        Click(f.Radio("radioCustomCropPercents"));
        Type(f.Field("textFieldCustomCropPercentsWidth"), "150");
        Click(f.Radio("radioCustomCropPercents"));  // a refresh
        Refresh(f);
        // What lies on the image: from 20 % to the right edge.
        QCOMPARE(f.OutputLabels(), QStringLiteral("Width: 800 / Height: 300"));
        QVERIFY(f.VeiledAt(150, 200, Qt::red));
        QVERIFY(f.ClearAt(990, 300, Qt::yellow));

        QVERIFY(vellumo::test::CropAndWait(f.loaded));
        const auto outcomes = f.processor->outcomes();
        QCOMPARE(outcomes.size(), std::size_t{1});
        QVERIFY(outcomes[0].rect.has_value());
        QCOMPARE(outcomes[0].rect->x, 200.0);
        QCOMPARE(outcomes[0].rect->width, 1500.0);
        QCOMPARE(QImage(f.OutputPath()).size(), QSize(800, 300));
    }

    void pixelFieldsAtZeroLeaveTheImageWholeAndSaySo() {
        Fixture f;
        QVERIFY(f.Radio("radioCustomCropPixels").isChecked());
        for (const char* name :
             {"textFieldCustomCropPixelsOriginX", "textFieldCustomCropPixelsOriginY",
              "textFieldCustomCropPixelsWidth", "textFieldCustomCropPixelsHeight"}) {
            QCOMPARE(f.Field(name).text(), QStringLiteral("0"));
        }
        // The output is the original size, the preview shows it unveiled, and
        // the note under it says why.
        QCOMPARE(f.OutputLabels(), QStringLiteral("Width: 1000 / Height: 500"));
        QVERIFY(f.ClearAt(250, 125, Qt::red));
        QVERIFY(f.ClearAt(750, 375, Qt::yellow));
        QCOMPARE(LabelText(f.loaded, "labelPreviewNote"),
                 QStringLiteral("Whole image: the rectangle is empty"));

        // The job asks first, then writes the copy whole when told to.
        QVERIFY(vellumo::test::CropAndWait(f.loaded));
        QCOMPARE(f.loaded.boxes.front().text,
                 QStringLiteral("The crop rectangle leaves every image uncropped. Write uncropped "
                                "copies?"));
        QCOMPARE(f.processor->outcomes().at(0).rect.value(), (vellumo::Rect{0, 0, 0, 0}));
        const QImage written(f.OutputPath());
        QCOMPARE(written.size(), QSize(1000, 500));
        QCOMPARE(written.pixelColor(10, 10), QColor(Qt::red));
    }

    void percents20_20_60_60OnA1000By500Picture() {
        Fixture f;
        Click(f.Radio("radioCustomCropPercents"));
        Refresh(f);
        QCOMPARE(f.OutputLabels(), QStringLiteral("Width: 600 / Height: 300"));
        // Inside: 200 to 800 across, 100 to 400 down (y counts from the
        // bottom, and the rectangle is centred).
        QVERIFY(f.ClearAt(210, 110, Qt::red));
        QVERIFY(f.ClearAt(790, 390, Qt::yellow));
        QVERIFY(f.VeiledAt(190, 200, Qt::red));
        QVERIFY(f.VeiledAt(810, 200, Qt::green));
        QVERIFY(f.VeiledAt(400, 90, Qt::red));
        QVERIFY(f.VeiledAt(400, 410, Qt::blue));

        QVERIFY(vellumo::test::CropAndWait(f.loaded));
        QCOMPARE(f.processor->outcomes().at(0).rect.value(), (vellumo::Rect{200, 100, 600, 300}));
        const QImage written(f.OutputPath());
        QCOMPARE(written.size(), QSize(600, 300));
        QCOMPARE(written.pixelColor(0, 0), QColor(Qt::red));
        QCOMPARE(written.pixelColor(299, 149), QColor(Qt::red));
        QCOMPARE(written.pixelColor(300, 149), QColor(Qt::green));
        QCOMPARE(written.pixelColor(299, 150), QColor(Qt::blue));
        QCOMPARE(written.pixelColor(599, 299), QColor(Qt::yellow));
    }

    void typingIntoAPixelFieldRefreshesAtOnce() {
        Fixture f;
        Type(f.Field("textFieldCustomCropPixelsWidth"), "300");
        Type(f.Field("textFieldCustomCropPixelsHeight"), "200");
        Refresh(f);
        QCOMPARE(f.OutputLabels(), QStringLiteral("Width: 300 / Height: 200"));
        // Origin 0, 0 is the lower-left corner.
        QVERIFY(f.ClearAt(290, 310, Qt::blue));
        QVERIFY(f.VeiledAt(310, 310, Qt::blue));
        QVERIFY(f.VeiledAt(290, 290, Qt::blue));

        Type(f.Field("textFieldCustomCropPixelsOriginX"), "600");
        Refresh(f);
        QVERIFY(f.ClearAt(610, 490, Qt::yellow));
        QVERIFY(f.VeiledAt(590, 490, Qt::yellow));
    }

    void theFieldsTakeNumbersOnly() {
        Fixture f;
        auto& width = f.Field("textFieldCustomCropPixelsWidth");
        auto& height = f.Field("textFieldCustomCropPixelsHeight");
        auto& x = f.Field("textFieldCustomCropPixelsOriginX");
        Type(width, "abc");
        QCOMPARE(width.text(), QString());
        Type(width, " 250.7 px");
        QCOMPARE(width.text(), QStringLiteral("250.7"));
        Type(height, "1.2e2");
        QCOMPARE(height.text(), QStringLiteral("1.2e2"));
        // Origins may be negative: what lies off the image is clipped.
        Type(x, "-50");
        QCOMPARE(x.text(), QStringLiteral("-50"));
        Refresh(f);
        QCOMPARE(f.OutputLabels(), QStringLiteral("Width: 200 / Height: 120"));
        QCOMPARE(LabelText(f.loaded, "labelPreviewNote"),
                 QStringLiteral("Clipped to 200 \u00d7 120"));
        for (const char* name :
             {"textFieldCustomCropPercentsOriginX", "textFieldCustomCropPercentsWidth"}) {
            Type(f.Field(name), "x1");
            QCOMPARE(f.Field(name).text(), QStringLiteral("1"));
        }
        Click(f.Radio("radioCustomCropPixels"));
        QVERIFY(vellumo::test::CropAndWait(f.loaded));
        const vellumo::CropSettings& used = f.processor->tasks().at(0).settings;
        QCOMPARE(used.pixelsWidth, 250.7f);
        QCOMPARE(used.pixelsHeight, 120.0f);
        QCOMPARE(used.pixelsOriginX, -50.0f);
        QCOMPARE(QImage(f.OutputPath()).size(), QSize(200, 120));
        QCOMPARE(f.processor->outcomes().at(0).WarningLine(),
                 std::string("Clipped to 200 \u00d7 120"));
    }

    void aRectangleBeyondThePictureSaysItIsWrittenWhole() {
        Fixture f;
        Type(f.Field("textFieldCustomCropPixelsOriginX"), "1000");
        Type(f.Field("textFieldCustomCropPixelsOriginY"), "100");
        Type(f.Field("textFieldCustomCropPixelsWidth"), "300");
        Type(f.Field("textFieldCustomCropPixelsHeight"), "200");
        Refresh(f);
        QCOMPARE(f.OutputLabels(), QStringLiteral("Width: 1000 / Height: 500"));
        QCOMPARE(LabelText(f.loaded, "labelPreviewNote"),
                 QStringLiteral("Whole image: the rectangle lies outside this image"));
        QVERIFY(f.ClearAt(980, 20, Qt::green));
    }
};

QTEST_MAIN(CropModesTest)
#include "CropModesTest.moc"
