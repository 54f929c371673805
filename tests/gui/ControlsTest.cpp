// The window's own controls: stepper, quality slider, latching radios,
// progress fraction, preview, dimension texts and the path rules.

#include <QLineEdit>
#include <QProcess>
#include <QProgressBar>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>
#include <QUrl>
#include <cmath>
#include <limits>

#include "tests/gui/support/LoadedWindow.h"
#include "ui/ProgressFraction.h"
#include "ui/controls/LatchingRadioButton.h"
#include "ui/controls/QualitySlider.h"
#include "ui/controls/Stepper.h"
#include "ui/dialogs/OpenFilesDialog.h"
#include "ui/list/ImagePaths.h"
#include "ui/preview/CropPreviewView.h"
#include "ui/preview/DimensionText.h"

using vellumo::CropPreviewView;
using vellumo::LatchingRadioButton;
using vellumo::QualitySlider;
using vellumo::Stepper;
using vellumo::test::LoadedWindow;

namespace {

QImage Filled(int width, int height, QColor color) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

int CountPixels(const QImage& image, QColor color) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixelColor(x, y) == color ? 1 : 0;
        }
    }
    return count;
}

// Clicks a radio button on its round indicator.
void ClickRadio(QRadioButton& radio) {
    QStyleOptionButton option;
    option.initFrom(&radio);
    const QRect indicator =
        radio.style()->subElementRect(QStyle::SE_RadioButtonIndicator, &option, &radio);
    QTest::mouseClick(&radio, Qt::LeftButton, {}, indicator.center());
}

}  // namespace

class ControlsTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theStepperStaysInItsRangeAndReportsOnlyTheUsersSteps() {
        Stepper stepper;
        QSignalSpy stepped(&stepper, &Stepper::valueStepped);
        stepper.setValue(30);
        QCOMPARE(stepper.value(), 30.0);
        QCOMPARE(stepped.count(), 0);

        stepper.stepUp();
        QCOMPARE(stepper.value(), 31.0);
        QCOMPARE(stepped.count(), 1);
        QCOMPARE(stepped.last().first().toDouble(), 31.0);

        stepper.setValue(100);
        stepper.stepUp();  // no wrapping
        QCOMPARE(stepper.value(), 100.0);
        QCOMPARE(stepped.count(), 1);

        stepper.setValue(-5);
        QCOMPARE(stepper.value(), 0.0);
        stepper.stepDown();
        QCOMPARE(stepper.value(), 0.0);
        QCOMPARE(stepped.count(), 1);

        stepper.setIncrement(2.5);
        stepper.stepBy(3);
        QCOMPARE(stepper.value(), 7.5);
    }

    void theWindowsSteppersRunFromZeroToAHundredInSteps() {
        LoadedWindow loaded;
        loaded.Show();
        for (const char* name :
             {"stepperCustomCropPercentsOriginX", "stepperCustomCropPercentsOriginY",
              "stepperCustomCropPercentsWidth", "stepperCustomCropPercentsHeight"}) {
            const auto& stepper = loaded.Control<Stepper>(name);
            QCOMPARE(stepper.minimum(), 0.0);
            QCOMPARE(stepper.maximum(), 100.0);
            QCOMPARE(stepper.increment(), 1.0);
            QVERIFY(!stepper.wrapping());
        }
        auto& stepper = loaded.Control<Stepper>("stepperCustomCropPercentsWidth");
        QSignalSpy stepped(&stepper, &Stepper::valueStepped);
        // The upper arrow, then the lower one, then the keyboard.
        QTest::mouseClick(&stepper, Qt::LeftButton, {}, QPoint(stepper.width() / 2, 3));
        QCOMPARE(stepper.value(), 61.0);
        QTest::mouseClick(&stepper, Qt::LeftButton, {},
                          QPoint(stepper.width() / 2, stepper.height() - 4));
        QCOMPARE(stepper.value(), 60.0);
        stepper.setFocus();
        QTest::keyClick(&stepper, Qt::Key_Down);
        QCOMPARE(stepper.value(), 59.0);
        QCOMPARE(stepped.count(), 3);
        // The stepper shows no number of its own: its field does.
        QVERIFY(stepper.width() <
                loaded.Control<QLineEdit>("textFieldCustomCropPercentsWidth").width());
    }

    void theQualitySliderHoldsFractions() {
        QualitySlider slider;
        QSignalSpy changed(&slider, &QualitySlider::doubleValueChanged);
        for (const double value : {1.0, 1.01, 2.99, 80.7, 100.0, 0.0}) {
            slider.setDoubleValue(value);
            QCOMPARE(slider.doubleValue(), value);
            QCOMPARE(changed.last().first().toDouble(), value);
        }
        slider.setDoubleValue(250);
        QCOMPARE(slider.doubleValue(), 100.0);
    }

    void theWindowsSliderRunsFromZeroToAHundredInWholeSteps() {
        LoadedWindow loaded;
        loaded.Show();
        auto& slider = loaded.Control<QualitySlider>("sliderQuality");
        QCOMPARE(slider.doubleMinimum(), 0.0);
        QCOMPARE(slider.doubleMaximum(), 100.0);
        slider.setDoubleValue(80.5);
        slider.setFocus();
        QTest::keyClick(&slider, Qt::Key_Right);
        QCOMPARE(slider.doubleValue(), 81.5);
        QTest::keyClick(&slider, Qt::Key_Left);
        QTest::keyClick(&slider, Qt::Key_Left);
        QCOMPARE(slider.doubleValue(), 79.5);
    }

    void aClickTurnsARadioOnButNeverOff() {
        LoadedWindow loaded;
        loaded.Show();
        auto& automatic = loaded.Control<LatchingRadioButton>("radioAutoCrop");
        auto& custom = loaded.Control<LatchingRadioButton>("radioCustomCrop");
        QVERIFY(!automatic.isChecked());
        QVERIFY(custom.isChecked());

        QSignalSpy clicked(&custom, &QAbstractButton::clicked);
        ClickRadio(custom);
        QVERIFY(custom.isChecked());
        QCOMPARE(clicked.count(), 1);

        // The pair is not exclusive by itself: in the window, its handler
        // switches the other one off.
        ClickRadio(automatic);
        QVERIFY(automatic.isChecked());
        QVERIFY(!custom.isChecked());
        QWidget siblings;
        auto* first = new LatchingRadioButton(QStringLiteral("first"), &siblings);
        auto* second = new LatchingRadioButton(QStringLiteral("second"), &siblings);
        second->move(0, 40);
        siblings.show();
        QVERIFY(QTest::qWaitForWindowExposed(&siblings));
        ClickRadio(*first);
        ClickRadio(*second);
        QVERIFY(first->isChecked());
        QVERIFY(second->isChecked());

        // The program can put both off.
        custom.setChecked(true);
        automatic.setChecked(false);
        custom.setChecked(false);
        QVERIFY(!automatic.isChecked());
        QVERIFY(!custom.isChecked());
    }

    void theProgressBarTakesFractions() {
        LoadedWindow loaded;
        auto& bar = loaded.Control<QProgressBar>("progressIndicator");
        QCOMPARE(bar.minimum(), 0);
        QCOMPARE(bar.maximum(), 1000);
        QVERIFY(!bar.isTextVisible());
        vellumo::SetProgressFraction(bar, 1.0 / 3.0);
        QCOMPARE(bar.value(), 333);
        QVERIFY(std::abs(vellumo::ProgressFraction(bar) - 1.0 / 3.0) < 0.001);
        vellumo::SetProgressFraction(bar, 2.0 / 3.0);
        QCOMPARE(bar.value(), 667);
        vellumo::SetProgressFraction(bar, 0.0);
        QCOMPARE(bar.value(), 0);
    }

    void thePreviewFitsThePictureKeepingItsShape() {
        CropPreviewView preview;
        preview.resize(400, 300);
        preview.SetImage(Filled(800, 200, Qt::red));
        const QRect shown = preview.ImageRect();
        // 388 x 288 inside the margins; the picture is four times as wide as
        // it is high.
        QCOMPARE(shown.width(), 388);
        QCOMPARE(shown.height(), 97);
        QCOMPARE(shown.center().x(), preview.rect().center().x());
        QVERIFY(std::abs(shown.center().y() - preview.rect().center().y()) <= 1);

        const QImage drawn = preview.grab().toImage();
        QCOMPARE(drawn.pixelColor(shown.center()), QColor(Qt::red));
        QCOMPARE(drawn.pixelColor(shown.center().x(), shown.top() - 5), drawn.pixelColor(200, 20));
        QVERIFY(drawn.pixelColor(200, 20) != QColor(Qt::red));
        const int red = CountPixels(drawn, Qt::red);
        QVERIFY2(std::abs(red - 388 * 97) < 388 * 2, qPrintable(QString::number(red)));
    }

    void thePreviewNeverEnlargesAndCanBeEmptied() {
        CropPreviewView preview;
        preview.resize(400, 300);
        preview.SetImage(Filled(50, 40, Qt::blue));
        QCOMPARE(preview.ImageRect().size(), QSize(50, 40));
        QCOMPARE(CountPixels(preview.grab().toImage(), Qt::blue), 50 * 40);

        preview.SetImage(QImage());
        QVERIFY(preview.image().isNull());
        QVERIFY(preview.ImageRect().isEmpty());
        QCOMPARE(CountPixels(preview.grab().toImage(), Qt::blue), 0);
    }

    void dimensionsAreShownAsWholeNumbersTruncated() {
        using vellumo::DimensionText;
        QCOMPARE(DimensionText(vellumo::kWidthCaption, 4000), QStringLiteral("Width: 4000"));
        QCOMPARE(DimensionText(vellumo::kWidthCaption, 2.9), QStringLiteral("Width: 2"));
        QCOMPARE(DimensionText(vellumo::kHeightCaption, 0.9), QStringLiteral("Height: 0"));
        QCOMPARE(DimensionText(vellumo::kHeightCaption, -2.9), QStringLiteral("Height: -2"));
        QCOMPARE(DimensionText(vellumo::kWidthCaption, 9.0e18),
                 QStringLiteral("Width: 9000000000000000000"));
    }

    void aDimensionThatIsNoWholeNumberStopsTheProgram_data() {
        QTest::addColumn<QString>("value");
        QTest::newRow("not a number") << "nan";
        QTest::newRow("infinite") << "inf";
        QTest::newRow("beyond 64 bits") << "1e19";
        QTest::newRow("below 64 bits") << "-1e19";
    }

    void aDimensionThatIsNoWholeNumberStopsTheProgram() {
        QFETCH(QString, value);
        QProcess probe;
        probe.start(QStringLiteral(VELLUMO_FATAL_PROBE), {"dimension", value});
        QVERIFY(probe.waitForFinished(30000));
        QCOMPARE(probe.exitStatus(), QProcess::CrashExit);
        const QString errors = QString::fromUtf8(probe.readAllStandardError());
        QVERIFY2(errors.contains("a dimension cannot be shown as a whole number"),
                 qPrintable(errors));
    }

    void extensionsAreReadFromTheLastPathComponent() {
        QCOMPARE(vellumo::LowerCaseExtension("/pics/Beach.JPEG"), QStringLiteral("jpeg"));
        QCOMPARE(vellumo::LowerCaseExtension("/pics/archive.tar.GZ"), QStringLiteral("gz"));
        QCOMPARE(vellumo::LowerCaseExtension("/pics/photo"), QString());
        QCOMPARE(vellumo::LowerCaseExtension("/pics.png/photo"), QString());
    }

    void dropsAreJudgedByLocalFileNames() {
        QVERIFY(vellumo::IsImageFileUrl(QUrl::fromLocalFile("/pics/A.PNG")));
        QVERIFY(vellumo::IsImageFileUrl(QUrl::fromLocalFile("/pics/scan.jpx")));
        QVERIFY(!vellumo::IsImageFileUrl(QUrl::fromLocalFile("/pics/notes.txt")));
        QVERIFY(!vellumo::IsImageFileUrl(QUrl::fromLocalFile("/pics/photo")));
        QVERIFY(!vellumo::IsImageFileUrl(QUrl("https://example.com/photo.png")));
    }

    void theFileDialogFilterIgnoresCase() {
        const QString filter = vellumo::NameFilterForExtensions({"jpg", "jp2"});
        QCOMPARE(filter, QStringLiteral("Images (*.[jJ][pP][gG] *.[jJ][pP]2)"));
        const QRegularExpression jpg(
            QRegularExpression::wildcardToRegularExpression("*.[jJ][pP][gG]"));
        QVERIFY(jpg.match("photo.jpg").hasMatch());
        QVERIFY(jpg.match("photo.JPG").hasMatch());
        QVERIFY(jpg.match("photo.JpG").hasMatch());
        QVERIFY(!jpg.match("photo.jpeg").hasMatch());
        QVERIFY(!jpg.match("photo.jpg.txt").hasMatch());
    }
};

QTEST_MAIN(ControlsTest)
#include "ControlsTest.moc"
