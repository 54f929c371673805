// The crop rules through the window's controls: more ratios and a custom
// one, the orientation rule, the anchor picker, the smart placements and the
// output size, as the preview, the labels and the job's settings show them.

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <memory>

#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/PictureFiles.h"
#include "tests/gui/support/WindowDriving.h"
#include "tests/gui/support/Workers.h"
#include "ui/controls/LatchingRadioButton.h"

using vellumo::CropAnchor;
using vellumo::LatchingRadioButton;
using vellumo::ResizeMode;
using vellumo::test::Choose;
using vellumo::test::Click;
using vellumo::test::ClickRow;
using vellumo::test::LabelText;
using vellumo::test::LoadedWindow;
using vellumo::test::PreviewPicture;
using vellumo::test::RecordingProcessor;
using vellumo::test::Type;

namespace {

// The window with one picture listed and selected (1000 x 500 in four
// coloured quarters unless another is given), auto-crop on.
struct Fixture {
    QTemporaryDir dir;
    LoadedWindow loaded;
    std::shared_ptr<RecordingProcessor> processor = std::make_shared<RecordingProcessor>();
    QImage picture;

    explicit Fixture(QImage shown = vellumo::test::Quarters(1000, 500))
        : picture(std::move(shown)) {
        const QString source = vellumo::test::Write(picture, dir.filePath("picture.png"));
        loaded.controller().SetImageProcessor(processor);
        loaded.Show();
        loaded.AddImages({source});
        ClickRow(loaded, 0);
        Wait();
        loaded.Control<QLineEdit>("textFieldOutputFolder").setText(dir.filePath("out"));
        Choose(loaded.Control<QComboBox>("comboFormat"), "PNG");
        Click(loaded.Control<LatchingRadioButton>("radioAutoCrop"));
        Wait();
    }
    void Wait() { QVERIFY(vellumo::test::WaitForPreview(loaded)); }
    QString Output() {
        return LabelText(loaded, "labelOutputDimensionsWidth") + " / " +
               LabelText(loaded, "labelOutputDimensionsHeight");
    }
    QComboBox& Ratios() { return loaded.Control<QComboBox>("comboAutoCropFormat"); }
    QLineEdit& Field(const char* name) { return loaded.Control<QLineEdit>(name); }
    QToolButton& Anchor(const char* name) { return loaded.Control<QToolButton>(name); }
    // Whether the preview shows the picture's own colour at (x, y from the
    // top) of the full picture, or its veiled colour.
    bool Clear(int x, int y) {
        const QImage shown = PreviewPicture(loaded);
        const QColor plain = picture.pixelColor(x, y);
        return vellumo::test::Near(shown.pixelColor(x * shown.width() / picture.width(),
                                                    y * shown.height() / picture.height()),
                                   plain, 6);
    }
    // The settings the job got.
    vellumo::CropSettings JobSettings() {
        loaded.Control<QPushButton>("buttonCropImages").click();
        if (!QTest::qWaitFor([&] { return !processor->tasks().empty(); }, 20000)) {
            QTest::qFail("the job did not start", __FILE__, __LINE__);
            return {};
        }
        return processor->tasks().front().settings;
    }
};

QString Size(int width, int height) {
    return QStringLiteral("Width: %1 / Height: %2").arg(width).arg(height);
}

// A flat picture with a busy patch near its right edge.
QImage OffCentreSubject() {
    QImage picture(1200, 800, QImage::Format_RGB32);
    picture.fill(QColor(90, 90, 90));
    for (int y = 300; y < 500; ++y) {
        for (int x = 950; x < 1150; ++x) {
            const unsigned h = static_cast<unsigned>(x * 7919 + y * 104729) * 2654435761u;
            picture.setPixelColor(x, y, QColor(h >> 24, (h >> 16) & 255, (h >> 8) & 255));
        }
    }
    return picture;
}

}  // namespace

class CropRulesTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theRatioListKeepsTheFourFirstAndEndsWithCustom() {
        Fixture f;
        QStringList titles;
        for (int i = 0; i < f.Ratios().count(); ++i) {
            titles << f.Ratios().itemText(i);
        }
        QCOMPARE(titles, (QStringList{"1:1", "4:3", "3:2", "16:9", "5:4", "7:5", "2:1", "1.91:1",
                                      "21:9", QString::fromUtf8("Custom\u2026")}));
        Choose(f.Ratios(), "5:4");
        QCOMPARE(f.Output(), Size(625, 500));
        Choose(f.Ratios(), "1.91:1");
        QCOMPARE(f.Output(), Size(955, 500));
    }

    void aCustomRatioTakesPositiveDecimalsOnly() {
        Fixture f;
        QVERIFY(!f.Field("textFieldRatioWidth").isEnabled());
        Choose(f.Ratios(), QString::fromUtf8("Custom\u2026"));
        QVERIFY(f.Field("textFieldRatioWidth").isEnabled());
        // Default 4:5, matched to the landscape picture: 5:4.
        QCOMPARE(f.Output(), Size(625, 500));
        Type(f.Field("textFieldRatioWidth"), "2.5");
        Type(f.Field("textFieldRatioHeight"), "1");
        QCOMPARE(f.Output(), Size(1000, 400));
        // Zero, a sign or letters cannot be entered.
        for (const char* bad : {"0", "-3", "abc", "0.0"}) {
            f.Field("textFieldRatioWidth").clear();
            QTest::keyClicks(&f.Field("textFieldRatioWidth"), bad);
            QVERIFY2(!f.Field("textFieldRatioWidth").hasAcceptableInput(), bad);
        }
    }

    void matchingOrientationTurnsTheRatioAndOffUsesItAsGiven() {
        Fixture f;
        Choose(f.Ratios(), QString::fromUtf8("Custom\u2026"));
        auto& match = f.loaded.Control<QCheckBox>("checkMatchOrientation");
        QVERIFY(match.isChecked());
        QCOMPARE(f.Output(), Size(625, 500));
        Click(match);
        QCOMPARE(f.Output(), Size(400, 500));
        QCOMPARE(f.JobSettings().matchOrientation, false);
    }

    void theAnchorPickerMovesTheRectangle() {
        Fixture f;
        Choose(f.Ratios(), "1:1");  // 500 x 500
        QVERIFY(f.Anchor("anchorCentre").isChecked());
        f.Wait();
        QVERIFY(!f.Clear(100, 100));
        QVERIFY(f.Clear(300, 100));
        QVERIFY(!f.Clear(900, 400));
        Click(f.Anchor("anchorLeft"));
        f.Wait();
        QVERIFY(f.Clear(100, 100));
        QVERIFY(!f.Clear(900, 400));
        Click(f.Anchor("anchorBottomRight"));
        f.Wait();
        QVERIFY(!f.Clear(100, 100));
        QVERIFY(!f.Clear(300, 100));
        QVERIFY(f.Clear(900, 400));
        QCOMPARE(f.Output(), Size(500, 500));
        QCOMPARE(f.JobSettings().anchor, CropAnchor::BottomRight);
    }

    void attentionFindsTheSubjectOffTheGuiThread() {
        Fixture f(OffCentreSubject());
        Choose(f.Ratios(), "1:1");  // 800 x 800
        f.Wait();
        // Centred (columns 200 to 999), the patch is cut off.
        QVERIFY(!f.Clear(1120, 100));
        QVERIFY(f.Clear(300, 100));
        Click(f.Anchor("anchorAttention"));
        f.Wait();
        // Over the patch: columns 350 or more to the right edge of it.
        QVERIFY(f.Clear(1120, 100));
        QVERIFY(!f.Clear(300, 100));
        QCOMPARE(LabelText(f.loaded, "labelPreviewNote"), QString());
        QCOMPARE(f.Output(), Size(800, 800));
    }

    void theOutputSizeFollowsTheResizeRule() {
        Fixture f;
        Choose(f.Ratios(), "1:1");
        auto& mode = f.loaded.Control<QComboBox>("comboResize");
        auto& width = f.loaded.Control<QSpinBox>("spinResizeWidth");
        auto& height = f.loaded.Control<QSpinBox>("spinResizeHeight");
        auto& enlarge = f.loaded.Control<QCheckBox>("checkAllowEnlarging");
        QVERIFY(!width.isEnabled());
        Choose(mode, "To exactly");
        width.setValue(300);
        height.setValue(200);
        // The crop takes the ratio 3:2, then the size.
        QCOMPARE(f.Output(), Size(300, 200));
        Choose(mode, "To width");
        QVERIFY(!height.isEnabled());
        width.setValue(250);
        QCOMPARE(f.Output(), Size(250, 250));
        width.setValue(2000);
        QCOMPARE(f.Output(), Size(500, 500));
        QVERIFY(LabelText(f.loaded, "labelPreviewNote").contains("not enlarged"));
        Click(enlarge);
        QCOMPARE(f.Output(), Size(2000, 2000));
        // Nothing outside 1 to 65535 can be set.
        width.setValue(0);
        QCOMPARE(width.value(), 1);
        width.setValue(70000);
        QCOMPARE(width.value(), 65535);
        width.setValue(1500);
        QCOMPARE(f.Output(), Size(1500, 1500));
        const vellumo::CropSettings job = f.JobSettings();
        QCOMPARE(job.resize.mode, ResizeMode::Width);
        QCOMPARE(job.resize.width, 1500);
        QVERIFY(job.resize.enlarge);
    }
};

QTEST_MAIN(CropRulesTest)
#include "CropRulesTest.moc"
