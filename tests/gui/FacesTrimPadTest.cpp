// The faces anchor, the head-and-shoulders rule, trimming and padding in the
// window: each control through the settings binding, a profile loaded and
// saved again keeping every one, the faces outlined on the preview as the
// worker found them, and the labels giving the sizes the job writes.

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include "batch/PreviewDecoder.h"
#include "batch/Profile.h"
#include "imaging/CropPlacement.h"
#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/PictureFiles.h"
#include "tests/gui/support/RealImages.h"
#include "tests/gui/support/WindowDriving.h"
#include "ui/controls/LatchingRadioButton.h"
#include "ui/dialogs/MessageBox.h"
#include "ui/preview/CropPreviewView.h"

using vellumo::CropAnchor;
using vellumo::CropMode;
using vellumo::CropSettings;
using vellumo::LatchingRadioButton;
using vellumo::PadBackground;
using vellumo::test::Choose;
using vellumo::test::Click;
using vellumo::test::ClickRow;
using vellumo::test::LabelText;
using vellumo::test::LoadedWindow;
using vellumo::test::Type;

namespace {

QString Sizes(LoadedWindow& loaded) {
    return LabelText(loaded, "labelOutputDimensionsWidth") + " / " +
           LabelText(loaded, "labelOutputDimensionsHeight");
}

QString Size(int width, int height) {
    return QStringLiteral("Width: %1 / Height: %2").arg(width).arg(height);
}

// Settings with every rule of this window part away from its start value,
// in values a control could round.
CropSettings Unusual() {
    CropSettings s;
    s.mode = CropMode::Auto;
    s.anchor = CropAnchor::Faces;
    s.portraitOfFace = vellumo::HeadAndShoulders{47.25f, 33.3f};
    s.trim = {true, 12.345678901, 17};
    s.pad.on = true;
    s.pad.ratio = {1.91, 1};
    s.pad.background = PadBackground::Colour;
    s.pad.colour = {0x12, 0x34, 0x56};
    return s;
}

// The only file in `folder`, decoded.
QImage WrittenPicture(const QString& folder) {
    const QStringList files = QDir(folder).entryList(QDir::Files);
    if (files.size() != 1) {
        return {};
    }
    return QImage(QDir(folder).filePath(files.front()));
}

// A white picture with a red block of `content` size at (left, top).
QImage Framed(QSize picture, QRect content) {
    QImage image(picture, QImage::Format_RGB32);
    image.fill(Qt::white);
    for (int y = content.top(); y <= content.bottom(); ++y) {
        for (int x = content.left(); x <= content.right(); ++x) {
            image.setPixelColor(x, y, QColor(200, 30, 30));
        }
    }
    return image;
}

// A window listing one 400 x 200 picture, with padding settings written
// into it as a profile brings them, to be cropped into dir/out.
struct PaddingWindow {
    PaddingWindow(CropMode mode, PadBackground fill, vellumo::OutputFormat format) {
        loaded.Show();
        loaded.AddImages(
            {vellumo::test::Write(vellumo::test::Quarters(400, 200), dir.filePath("wide.png"))});
        CropSettings s = loaded.settings().Read();
        s.mode = mode;
        s.pad.on = true;
        s.pad.background = fill;
        s.outputFormat = format;
        s.outputFolder = out().toStdString();
        loaded.settings().Write(s);
    }
    QString out() const { return dir.filePath("out"); }

    QTemporaryDir dir;
    LoadedWindow loaded;
};

}  // namespace

class FacesTrimPadTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void eachControlReachesTheSettingsByHand() {
        LoadedWindow loaded;
        loaded.Show();
        Click(loaded.Control<LatchingRadioButton>("radioAutoCrop"));
        Click(loaded.Control<QToolButton>("anchorFaces"));
        QCOMPARE(loaded.settings().Read().anchor, CropAnchor::Faces);

        QVERIFY(!loaded.Control<QLineEdit>("textFieldFaceHeight").isEnabled());
        QVERIFY(!loaded.settings().Read().portraitOfFace);
        Click(loaded.Control<QCheckBox>("checkHeadAndShoulders"));
        QCOMPARE(*loaded.settings().Read().portraitOfFace, (vellumo::HeadAndShoulders{45, 40}));
        Type(loaded.Control<QLineEdit>("textFieldFaceHeight"), "52.5");
        Type(loaded.Control<QLineEdit>("textFieldEyeLine"), "36");
        QCOMPARE(*loaded.settings().Read().portraitOfFace, (vellumo::HeadAndShoulders{52.5, 36}));

        QVERIFY(!loaded.Control<QLineEdit>("textFieldTrimTolerance").isEnabled());
        Click(loaded.Control<QCheckBox>("checkTrim"));
        Type(loaded.Control<QLineEdit>("textFieldTrimTolerance"), "12.5");
        auto& margin = loaded.Control<QSpinBox>("spinTrimMargin");
        margin.selectAll();
        QTest::keyClicks(&margin, "7");
        QCOMPARE(loaded.settings().Read().trim, (vellumo::TrimRule{true, 12.5, 7}));

        // A format that keeps a transparent fill.
        Choose(loaded.Control<QComboBox>("comboFormat"), "PNG");
        Click(loaded.Control<QCheckBox>("checkPad"));
        Type(loaded.Control<QLineEdit>("textFieldPadRatioWidth"), "16");
        Type(loaded.Control<QLineEdit>("textFieldPadRatioHeight"), "9");
        Type(loaded.Control<QLineEdit>("textFieldPadColour"), "#102030");
        vellumo::PadRule pad = loaded.settings().Read().pad;
        QCOMPARE(pad, (vellumo::PadRule{true, {16, 9}, PadBackground::Colour, {16, 32, 48}}));
        for (const auto& [title, fill] :
             {std::pair{"Edge", PadBackground::Edge}, std::pair{"Blur", PadBackground::Blur},
              std::pair{"Transparent", PadBackground::Transparent}}) {
            Choose(loaded.Control<QComboBox>("comboPadBackground"), title);
            QCOMPARE(loaded.settings().Read().pad.background, fill);
            QVERIFY(!loaded.Control<QLineEdit>("textFieldPadColour").isEnabled());
        }
        Choose(loaded.Control<QComboBox>("comboPadBackground"), "Colour");
        Type(loaded.Control<QLineEdit>("textFieldPadColour"), "navy");
        QCOMPARE(loaded.settings().Read().pad.colour, (vellumo::RgbColour{0, 0, 128}));
    }

    void writingShowsEverySettingAndReadingGivesItBack() {
        LoadedWindow loaded;
        loaded.Show();
        const CropSettings unusual = Unusual();
        loaded.settings().Write(unusual);
        QCOMPARE(loaded.Control<QLineEdit>("textFieldTrimTolerance").text(),
                 QStringLiteral("12.345678901"));
        QCOMPARE(loaded.Control<QLineEdit>("textFieldPadColour").text(), QStringLiteral("#123456"));
        QCOMPARE(loaded.Control<QLineEdit>("textFieldEyeLine").text(), QStringLiteral("33.3"));
        QVERIFY(loaded.Control<QToolButton>("anchorFaces").isChecked());
        const CropSettings back = loaded.settings().Read();
        QCOMPARE(back.anchor, unusual.anchor);
        QCOMPARE(back.portraitOfFace, unusual.portraitOfFace);
        QCOMPARE(back.trim, unusual.trim);
        QCOMPARE(back.pad, unusual.pad);

        loaded.settings().Write(CropSettings{});
        const CropSettings plain = loaded.settings().Read();
        QVERIFY(!plain.portraitOfFace);
        QCOMPARE(plain.trim, vellumo::TrimRule{});
        QCOMPARE(plain.pad, vellumo::PadRule{});
    }

    void aProfileLoadedAndSavedKeepsEveryNewSetting() {
        QTemporaryDir dir;
        LoadedWindow loaded;
        loaded.Show();
        for (const char* fill : {"#123456", "edge", "blur", "transparent"}) {
            CropSettings unusual = Unusual();
            QVERIFY(vellumo::ReadPadBackground(fill, unusual.pad));
            // A profile keeps the colour only as the fill itself.
            if (unusual.pad.background != PadBackground::Colour) {
                unusual.pad.colour = vellumo::RgbColour{};
            }
            const QString first = dir.filePath(QStringLiteral("first.vellumo"));
            QVERIFY(vellumo::WriteProfile(first.toStdString(), unusual).saved);
            loaded.openDialogAnswers.push_back(QStringList{first});
            loaded.profiles().Load();
            loaded.saveDialogAnswers.push_back(dir.filePath(QStringLiteral("second.vellumo")));
            loaded.profiles().SaveAs();
            const auto back = vellumo::ReadProfile(
                dir.filePath(QStringLiteral("second.vellumo")).toStdString(), CropSettings{});
            QVERIFY2(back.has_value(), back.reason().c_str());
            QCOMPARE(back->anchor, unusual.anchor);
            QCOMPARE(back->portraitOfFace, unusual.portraitOfFace);
            QCOMPARE(back->trim, unusual.trim);
            QCOMPARE(back->pad, unusual.pad);
            QCOMPARE(vellumo::ProfileText(*back), vellumo::ProfileText(unusual));
        }
        QVERIFY(loaded.boxes.empty());
    }

    void theFacesAnchorOutlinesEachFaceTheWorkerFound() {
        VELLUMO_QSKIP_WITHOUT_TESTDATA();
        const QString photo = vellumo::test::RealImage("faces/2007_007763.jpg");
        vellumo::InProcessPreviewDecoder decoder;
        const vellumo::PreviewResult found = decoder.DecodeLooking(
            photo.toStdString(), vellumo::kPlacementPictureSide, vellumo::PreviewLooks{true, {}});
        QVERIFY(found && found->faces && !found->faces->Failed());
        const auto faces = static_cast<qsizetype>(found->faces->faces.size());
        QVERIFY(faces >= 2);

        LoadedWindow loaded;
        loaded.Show();
        loaded.AddImages({photo});
        ClickRow(loaded, 0);
        auto& view = loaded.Control<vellumo::CropPreviewView>("imageViewCropPreview");
        Click(loaded.Control<LatchingRadioButton>("radioAutoCrop"));
        QVERIFY(vellumo::test::WaitForPreview(loaded));
        QCOMPARE(static_cast<qsizetype>(view.FaceOutlines().size()), 0);

        Click(loaded.Control<QToolButton>("anchorFaces"));
        QVERIFY(vellumo::test::WaitForPreview(loaded));
        QVERIFY(QTest::qWaitFor([&] { return !view.FaceOutlines().empty(); }, 60000));
        QCOMPARE(static_cast<qsizetype>(view.FaceOutlines().size()), faces);
        // Each outline lies on the picture drawn.
        for (const QRectF& outline : view.FaceOutlines()) {
            QVERIFY(QRectF(view.rect()).contains(outline));
        }

        Click(loaded.Control<QToolButton>("anchorCentre"));
        QVERIFY(vellumo::test::WaitForPreview(loaded));
        QCOMPARE(static_cast<qsizetype>(view.FaceOutlines().size()), 0);
    }

    void withTrimTheLabelsGiveTheSizeWritten() {
        QTemporaryDir dir;
        // 300 x 200 of content, a white border around it.
        const QString source = vellumo::test::Write(Framed({640, 400}, QRect(100, 60, 300, 200)),
                                                    dir.filePath("framed.png"));
        LoadedWindow loaded;
        loaded.Show();
        loaded.AddImages({source});
        ClickRow(loaded, 0);
        CropSettings s = loaded.settings().Read();
        s.mode = CropMode::None;
        s.trim = {true, 0.0, 10};
        s.outputFolder = dir.filePath("out").toStdString();
        s.outputFormat = vellumo::OutputFormat::Png;
        loaded.settings().Write(s);
        QVERIFY(vellumo::test::WaitForPreview(loaded));
        QVERIFY(QDir(dir.path()).mkpath("out"));
        QCOMPARE(Sizes(loaded), Size(320, 220));
        QVERIFY(vellumo::test::CropAndWait(loaded));
        const QImage written = WrittenPicture(dir.filePath("out"));
        QCOMPARE(Sizes(loaded), Size(written.width(), written.height()));

        // Another tolerance is measured again.
        Type(loaded.Control<QLineEdit>("textFieldTrimTolerance"), "100");
        QVERIFY(vellumo::test::WaitForPreview(loaded));
        QCOMPARE(Sizes(loaded), Size(640, 400));
    }

    void withPaddingTheLabelsGiveTheSizeWritten() {
        QTemporaryDir dir;
        const QString source =
            vellumo::test::Write(vellumo::test::Quarters(1000, 500), dir.filePath("wide.png"));
        LoadedWindow loaded;
        loaded.Show();
        loaded.AddImages({source});
        ClickRow(loaded, 0);
        loaded.Control<QLineEdit>("textFieldOutputFolder").setText(dir.filePath("out"));
        QVERIFY(QDir(dir.path()).mkpath("out"));
        Choose(loaded.Control<QComboBox>("comboFormat"), "PNG");
        Click(loaded.Control<LatchingRadioButton>("radioAutoCrop"));
        Click(loaded.Control<QCheckBox>("checkPad"));
        Type(loaded.Control<QLineEdit>("textFieldPadRatioWidth"), "1");
        Type(loaded.Control<QLineEdit>("textFieldPadRatioHeight"), "1");
        Choose(loaded.Control<QComboBox>("comboPadBackground"), "Edge");
        QVERIFY(vellumo::test::WaitForPreview(loaded));
        // The whole 1000 x 500 picture on a square canvas, not the auto-crop.
        QCOMPARE(Sizes(loaded), Size(1000, 1000));
        QVERIFY(vellumo::test::CropAndWait(loaded));
        // The report only: no refusal, and padding is no "uncropped copy".
        QCOMPARE(loaded.boxes.size(), std::size_t{1});
        const QImage written = WrittenPicture(dir.filePath("out"));
        QCOMPARE(Sizes(loaded), Size(written.width(), written.height()));
    }

    // Padding keeps the whole picture; a crop mode cuts it. Each turns the
    // other off, as the command line takes --pad only without a rectangle.
    void paddingAndACropModeTurnEachOtherOff() {
        LoadedWindow loaded;
        loaded.Show();
        auto& autoCrop = loaded.Control<LatchingRadioButton>("radioAutoCrop");
        auto& customCrop = loaded.Control<LatchingRadioButton>("radioCustomCrop");
        auto& pad = loaded.Control<QCheckBox>("checkPad");
        Click(autoCrop);
        Click(pad);
        QVERIFY(pad.isChecked());
        QVERIFY(!autoCrop.isChecked() && !customCrop.isChecked());
        QCOMPARE(loaded.settings().Read().mode, CropMode::None);
        QVERIFY(loaded.settings().Read().pad.on);

        Click(customCrop);
        QVERIFY(!pad.isChecked());
        QVERIFY(!loaded.Control<QLineEdit>("textFieldPadRatioWidth").isEnabled());
        QCOMPARE(loaded.settings().Read().mode, CropMode::Pixels);
        QVERIFY(!loaded.settings().Read().pad.on);
        Click(pad);
        Click(autoCrop);
        QVERIFY(!pad.isChecked());
        QCOMPARE(loaded.settings().Read().mode, CropMode::Auto);
    }

    // Settings that pad a cut (a profile the window saved before, say) are
    // refused as the command line refuses them: a notice, no file.
    void paddingAfterACutIsRefusedBeforeAnythingIsWritten() {
        PaddingWindow w(CropMode::Auto, PadBackground::Colour, vellumo::OutputFormat::Png);
        QVERIFY(vellumo::test::CropAndWait(w.loaded));
        QCOMPARE(w.loaded.boxes.size(), std::size_t{1});
        QCOMPARE(w.loaded.boxes[0],
                 vellumo::NoticeRequest(
                     "Padding places the whole image, or what the trim leaves, on a canvas of "
                     "its ratio, so it cannot follow the auto-crop or a custom rectangle, which "
                     "cut the image. Turn “Pad to ratio” off, or tick it again to pad instead of "
                     "cutting."));
        // Refused before the folder was even offered to be made.
        QVERIFY(!QDir(w.out()).exists());
        QVERIFY(w.loaded.Control<QPushButton>("buttonAddImages").isEnabled());
    }

    // A trim of a typed rectangle would be ignored: the window says so, as
    // the command line refuses it, and writes nothing.
    void aTrimOfACustomRectangleIsRefusedBeforeAnythingIsWritten() {
        QTemporaryDir dir;
        LoadedWindow loaded;
        loaded.Show();
        loaded.AddImages(
            {vellumo::test::Write(vellumo::test::Quarters(400, 200), dir.filePath("wide.png"))});
        Click(loaded.Control<LatchingRadioButton>("radioCustomCrop"));
        Click(loaded.Control<QCheckBox>("checkTrim"));
        CropSettings s = loaded.settings().Read();
        QCOMPARE(s.mode, CropMode::Pixels);
        QVERIFY(s.trim.on);
        s.pixelsWidth = 100.0f;
        s.pixelsHeight = 100.0f;
        s.outputFolder = dir.filePath("out").toStdString();
        loaded.settings().Write(s);
        QVERIFY(vellumo::test::CropAndWait(loaded));
        QCOMPARE(loaded.boxes.size(), std::size_t{1});
        QCOMPARE(loaded.boxes[0],
                 vellumo::NoticeRequest(
                     "Trimming finds the uniform borders of the whole image, and the auto-crop "
                     "then works within what is left; a custom rectangle already says what is "
                     "cut. Turn “Trim uniform borders” off, or choose the auto-crop."));
        QVERIFY(!QDir(dir.filePath("out")).exists());
    }

    void transparentPaddingIsOfferedOnlyForAFormatWithAlpha() {
        LoadedWindow loaded;
        loaded.Show();
        auto& fills = loaded.Control<QComboBox>("comboPadBackground");
        const auto transparent = [&fills] {
            return qobject_cast<QStandardItemModel*>(fills.model())
                ->item(static_cast<int>(PadBackground::Transparent));
        };
        const QString why = QStringLiteral(
            "JPG files have no transparency: choose another background, or a format that keeps "
            "it (PNG, TIFF, WEBP, AVIF, HEIC, JXL, JP2, GIF or BMP).");
        Click(loaded.Control<QCheckBox>("checkPad"));
        QCOMPARE(loaded.Control<QComboBox>("comboFormat").currentText(), QStringLiteral("JPG"));
        QVERIFY(!transparent()->isEnabled());
        QCOMPARE(transparent()->toolTip(), why);
        // The key that steps to it from Blur finds nothing to choose.
        Choose(fills, "Blur");
        QTest::keyClick(&fills, Qt::Key_Down);
        QCOMPARE(fills.currentText(), QStringLiteral("Blur"));

        Choose(loaded.Control<QComboBox>("comboFormat"), "PNG");
        QVERIFY(transparent()->isEnabled());
        QCOMPARE(transparent()->toolTip(), QString());
        Choose(fills, "Transparent");
        QCOMPARE(loaded.settings().Read().pad.background, PadBackground::Transparent);
        QCOMPARE(fills.toolTip(), QString());
        // Chosen before the format: it stays, and the box says why it will
        // not be written.
        Choose(loaded.Control<QComboBox>("comboFormat"), "JPG");
        QVERIFY(!transparent()->isEnabled());
        QCOMPARE(fills.toolTip(), why);
    }

    void transparentPaddingInJpegIsRefusedBeforeAnythingIsWritten() {
        PaddingWindow w(CropMode::None, PadBackground::Transparent, vellumo::OutputFormat::Jpeg);
        QVERIFY(QDir(w.dir.path()).mkpath("out"));
        QVERIFY(vellumo::test::CropAndWait(w.loaded));
        QCOMPARE(w.loaded.boxes.size(), std::size_t{1});
        QCOMPARE(w.loaded.boxes[0],
                 vellumo::NoticeRequest(
                     "JPEG files have no transparency: choose another background, or a format "
                     "that keeps it (PNG, TIFF, WEBP, AVIF, HEIC, JXL, JP2, GIF or BMP)."));
        QVERIFY(QDir(w.out()).entryList(QDir::Files).isEmpty());

        // The same settings in PNG are written, transparent where padded.
        Choose(w.loaded.Control<QComboBox>("comboFormat"), "PNG");
        w.loaded.boxes.clear();
        QVERIFY(vellumo::test::CropAndWait(w.loaded));
        const QImage written = WrittenPicture(w.out());
        QCOMPARE(written.size(), QSize(400, 400));
        QCOMPARE(written.pixelColor(0, 0).alpha(), 0);
        QCOMPARE(written.pixelColor(200, 200).alpha(), 255);
    }
};

QTEST_MAIN(FacesTrimPadTest)
#include "FacesTrimPadTest.moc"
