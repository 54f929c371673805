// Adjusting the crop by hand on the preview, with real mouse and key events:
// moving and resizing the rectangle, the image's edges, undo and redo,
// resets, a job that writes adjusted images beside images cropped by the
// rule, crop plans, and the question before unsaved adjustments are left.
// The suite also runs at a device pixel ratio of 2.

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <cmath>

#include "batch/CropPlan.h"
#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/PictureFiles.h"
#include "tests/gui/support/WindowDriving.h"
#include "tests/support/Commands.h"
#include "tests/support/TestImages.h"
#include "ui/controls/LatchingRadioButton.h"
#include "ui/list/ImageList.h"
#include "ui/preview/CropAdjustmentStore.h"
#include "ui/preview/CropPreviewView.h"

using vellumo::CropPreviewView;
using vellumo::LatchingRadioButton;
using vellumo::Rect;
using vellumo::test::Choose;
using vellumo::test::Click;
using vellumo::test::ClickRow;
using vellumo::test::LabelText;
using vellumo::test::LoadedWindow;

namespace {

constexpr int kWidth = 1200;
constexpr int kHeight = 800;

// ImageMagick's crop geometry (origin at the top) of a rectangle whose origin
// is at the lower-left corner of an image `height` rows high.
std::string MagickCrop(const Rect& r, int height) {
    return "-crop " + std::to_string(std::lround(r.width)) + "x" +
           std::to_string(std::lround(r.height)) + "+" + std::to_string(std::lround(r.x)) + "+" +
           std::to_string(std::lround(height - r.y - r.height)) + " +repage";
}

struct Fixture {
    QTemporaryDir dir;
    LoadedWindow loaded;
    QStringList paths;

    // `count` pictures of kWidth x kHeight whose pixels tell their
    // coordinates, the first selected, auto-crop `ratio` on.
    explicit Fixture(int count = 1, const char* ratio = "1:1", QSize window = {}) {
        for (int i = 0; i < count; ++i) {
            const QString path = dir.filePath(QStringLiteral("picture%1.png").arg(i));
            vellumo::test::CoordinateImage(kWidth, kHeight).pngsave(path.toUtf8().constData());
            paths.push_back(path);
        }
        loaded.Show();
        if (window.isValid()) {
            loaded.window().resize(window);
        }
        loaded.AddImages(paths);
        ClickRow(loaded, 0);
        loaded.Control<QLineEdit>("textFieldOutputFolder").setText(dir.filePath("out"));
        loaded.Control<QLineEdit>("textFieldName").setText(QStringLiteral("[FileName]"));
        Choose(loaded.Control<QComboBox>("comboFormat"), "PNG");
        Click(loaded.Control<LatchingRadioButton>("radioAutoCrop"));
        Choose(loaded.Control<QComboBox>("comboAutoCropFormat"), QString::fromLatin1(ratio));
        Wait();
    }
    void Wait() { QVERIFY(vellumo::test::WaitForPreview(loaded)); }
    CropPreviewView& View() { return loaded.Control<CropPreviewView>("imageViewCropPreview"); }
    vellumo::CropAdjustmentStore& Store() { return loaded.controller().cropAdjustments(); }
    std::optional<Rect> Adjusted(int row = 0) { return Store().Adjustment(paths[row]); }
    // The frame's rectangle as the view shows it now.
    Rect Frame() {
        const auto& frame = View().cropFrame();
        return frame ? (View().liveRect() ? *View().liveRect() : frame->rect) : Rect{};
    }
    // Image pixels per view unit, across and up.
    double Scale() { return double(kWidth) / View().ImageRect().width(); }

    // A drag with the mouse from `from` by `by`, in the view's units.
    void Drag(QPointF from, QPoint by) {
        const QPoint start = from.toPoint();
        QTest::mousePress(&View(), Qt::LeftButton, {}, start);
        // In steps, as a hand moves.
        for (int step = 1; step <= 4; ++step) {
            QTest::mouseMove(&View(), start + by * step / 4);
        }
        QTest::mouseRelease(&View(), Qt::LeftButton, {}, start + by);
        Wait();
    }
    QPointF Centre() { return View().FrameRectInView().center(); }
    QString Output() {
        return LabelText(loaded, "labelOutputDimensionsWidth") + " / " +
               LabelText(loaded, "labelOutputDimensionsHeight");
    }
    QAction& Action(const char* name) { return loaded.Control<QAction>(name); }
};

class AdjustCropTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void aDragInsideMovesTheRectangleByTheImagePixelsUnderTheMouse() {
        // At two window sizes: the same screen distance is another number
        // of image pixels.
        for (const QSize window : {QSize(1000, 700), QSize(1400, 900)}) {
            Fixture f(1, "1:1", window);
            QCOMPARE(f.Frame(), (Rect{200, 0, 800, 800}));
            const double scale = f.Scale();
            f.Drag(f.Centre(), QPoint(-40, 0));
            const double expectedX = std::max(0.0, std::round(200 - 40 * scale));
            QCOMPARE(f.Adjusted(), (std::optional<Rect>(Rect{expectedX, 0, 800, 800})));
            QCOMPARE(f.Output(), QStringLiteral("Width: 800 / Height: 800"));
            // The preview's picture is veiled outside the new place: the
            // column just right of the rectangle, and not inside it.
            const QImage shown = vellumo::test::PreviewPicture(f.loaded);
            const double pictureScale = double(shown.width()) / kWidth;
            const int inside = int((expectedX + 790) * pictureScale);
            const int outside = int((expectedX + 810) * pictureScale) + 1;
            QVERIFY(QColor(shown.pixel(outside, shown.height() / 2)).lightness() >
                    QColor(shown.pixel(inside, shown.height() / 2)).lightness());
            // The row carries the mark.
            const QModelIndex row =
                f.loaded.Control<QAbstractItemView>("tableViewImage").model()->index(0, 0);
            QVERIFY(row.data(vellumo::ImageList::kAdjustedRole).toBool());
            QVERIFY(!f.View().liveRect().has_value());
        }
    }

    void theRectangleStopsAtTheImagesEdges() {
        Fixture f(1, "1:1");
        f.Drag(f.Centre(), QPoint(-2000, -2000));
        QCOMPARE(f.Adjusted(), (std::optional<Rect>(Rect{0, 0, 800, 800})));
        f.Drag(f.Centre(), QPoint(2000, 2000));
        QCOMPARE(f.Adjusted(), (std::optional<Rect>(Rect{400, 0, 800, 800})));
        // While dragging, too: the live rectangle never leaves the image.
        QTest::mousePress(&f.View(), Qt::LeftButton, {}, f.Centre().toPoint());
        QTest::mouseMove(&f.View(), f.Centre().toPoint() + QPoint(-900, 0));
        QCOMPARE(f.View().liveRect()->x, 0.0);
        QTest::mouseRelease(&f.View(), Qt::LeftButton, {}, f.Centre().toPoint());
        f.Wait();
    }

    void aHandleDragKeepsTheRulesRatioToThePixel() {
        Fixture f(1, "16:9");
        QCOMPARE(f.Frame(), (Rect{0, 62.5, 1200, 675}));
        // The top-left corner, in by a bit; then the right edge.
        f.Drag(f.View().FrameRectInView().topLeft(), QPoint(57, 23));
        const Rect corner = *f.Adjusted();
        QVERIFY(corner.width < 1200);
        QCOMPARE(corner.height, std::round(corner.width * 9.0 / 16.0));
        // The opposite corner (bottom right) stayed where it was.
        QCOMPARE(corner.x + corner.width, 1200.0);
        QCOMPARE(corner.y, 63.0);
        f.Drag(QPointF(f.View().FrameRectInView().right(), f.Centre().y()), QPoint(-91, 0));
        const Rect edge = *f.Adjusted();
        QCOMPARE(edge.height, std::round(edge.width * 9.0 / 16.0));
        QCOMPARE(edge.x, corner.x);
        QVERIFY(edge.width < corner.width);
        QCOMPARE(f.Output(),
                 QStringLiteral("Width: %1 / Height: %2").arg(edge.width).arg(edge.height));
    }

    void pixelModeHandlesAreFree() {
        Fixture f(1, "1:1");
        Click(f.loaded.Control<LatchingRadioButton>("radioCustomCrop"));
        Click(f.loaded.Control<LatchingRadioButton>("radioCustomCropPercents"));
        f.Wait();
        const Rect start = f.Frame();  // 60 % in the middle
        f.Drag(QPointF(f.View().FrameRectInView().right(), f.Centre().y()), QPoint(30, 0));
        const Rect wider = *f.Adjusted();
        QCOMPARE(wider.height, std::round(start.height));
        QVERIFY(wider.width > start.width + 10);
    }

    void arrowKeysMoveByOnePixelAndShiftByTen() {
        Fixture f(1, "16:9");
        f.View().setFocus();
        QTest::keyClick(&f.View(), Qt::Key_Up);
        QCOMPARE(f.Adjusted(), (std::optional<Rect>(Rect{0, 64, 1200, 675})));  // snapped, then up
        QTest::keyClick(&f.View(), Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(f.Adjusted(), (std::optional<Rect>(Rect{0, 54, 1200, 675})));
        for (int i = 0; i < 10; ++i) {
            QTest::keyClick(&f.View(), Qt::Key_Down, Qt::ShiftModifier);
        }
        QCOMPARE(f.Adjusted()->y, 0.0);             // stops at the bottom edge
        QTest::keyClick(&f.View(), Qt::Key_Right);  // no room across
        QCOMPARE(f.Adjusted()->x, 0.0);
        f.Wait();
        // One run of key presses is one step of the history.
        f.Action("actionUndo").trigger();
        QVERIFY(!f.Adjusted().has_value());
        QCOMPARE(f.Action("actionUndo").isEnabled(), false);
    }

    void undoAndRedoGiveBackExactRectangles() {
        Fixture f(1, "1:1");
        f.Drag(f.Centre(), QPoint(-30, 0));
        const Rect first = *f.Adjusted();
        f.Drag(f.View().FrameRectInView().bottomRight(), QPoint(-50, -50));
        const Rect second = *f.Adjusted();
        QVERIFY(second != first);
        QCOMPARE(f.Action("actionUndo").text(), QStringLiteral("&Undo Adjust Crop"));
        f.Action("actionUndo").trigger();
        QCOMPARE(f.Adjusted(), std::optional<Rect>(first));
        f.Action("actionUndo").trigger();
        QVERIFY(!f.Adjusted().has_value());
        f.Wait();
        QCOMPARE(f.Frame(), (Rect{200, 0, 800, 800}));
        f.Action("actionRedo").trigger();
        f.Action("actionRedo").trigger();
        QCOMPARE(f.Adjusted(), std::optional<Rect>(second));
        f.Wait();
        QCOMPARE(f.Output(),
                 QStringLiteral("Width: %1 / Height: %2").arg(second.width).arg(second.height));
    }

    void resetsReturnImagesToTheRuleAndAreUndoable() {
        Fixture f(3, "1:1");
        for (int row : {0, 1, 2}) {
            ClickRow(f.loaded, row);
            f.Drag(f.Centre(), QPoint(-20 - 10 * row, 0));
        }
        QVERIFY(f.Adjusted(0) && f.Adjusted(1) && f.Adjusted(2));
        // Changing the rule leaves adjusted images alone.
        Choose(f.loaded.Control<QComboBox>("comboAutoCropFormat"), QStringLiteral("4:3"));
        f.Wait();
        QCOMPARE(f.Output(), QStringLiteral("Width: 800 / Height: 800"));
        f.Action("actionResetCrop").trigger();  // row 2 is selected
        QVERIFY(!f.Adjusted(2).has_value());
        f.Wait();
        QCOMPARE(f.Output(), QStringLiteral("Width: 1066 / Height: 800"));
        f.Action("actionResetAllCrops").trigger();
        QVERIFY(!f.Adjusted(0) && !f.Adjusted(1));
        f.Action("actionUndo").trigger();
        QVERIFY(f.Adjusted(0) && f.Adjusted(1) && !f.Adjusted(2));
    }

    void aJobWritesThreeAdjustedImagesByTheirRectanglesAndSevenByTheRule() {
        Fixture f(10, "1:1");
        for (int row : {2, 5, 9}) {
            ClickRow(f.loaded, row);
            f.Drag(f.Centre(), QPoint(-15 * row, 0));
            f.Drag(f.View().FrameRectInView().topLeft(), QPoint(20, 20));
        }
        QVERIFY(vellumo::test::CropAndWait(f.loaded));
        for (int row = 0; row < 10; ++row) {
            const Rect expected = f.Adjusted(row).value_or(Rect{200, 0, 800, 800});
            if (row == 2 || row == 5 || row == 9) {
                QVERIFY(f.Adjusted(row) && *f.Adjusted(row) != (Rect{200, 0, 800, 800}));
            }
            const std::string source = f.paths[row].toStdString();
            const std::string out =
                f.dir.filePath(QStringLiteral("out/picture%1.png").arg(row)).toStdString();
            QCOMPARE(vellumo::test::MagickPixels(out, "", "rgb", 8),
                     vellumo::test::MagickPixels(source, MagickCrop(expected, kHeight), "rgb", 8));
        }
    }

    void aPlanRoundTripAndTheCommandLineWriteTheSameFiles() {
        QString plan;
        QByteArray windowBytes;
        Rect adjusted;
        QTemporaryDir keep;
        {
            Fixture f(2, "1:1");
            f.Drag(f.Centre(), QPoint(-25, 0));
            adjusted = *f.Adjusted();
            plan = keep.filePath(QStringLiteral("batch.vellumoplan"));
            f.loaded.saveDialogAnswers.push_back(keep.filePath(QStringLiteral("batch")));
            f.Action("actionSaveCropPlan").trigger();
            QVERIFY(QFile::exists(plan));
            QVERIFY(!f.Store().HasUnsavedAdjustments());
            // Copy the sources, so that a second window finds them.
            for (const QString& path : f.paths) {
                QVERIFY(QFile::copy(path, keep.filePath(QFileInfo(path).fileName())));
            }
            QVERIFY(vellumo::test::CropAndWait(f.loaded));
            QFile out(f.dir.filePath(QStringLiteral("out/picture0.png")));
            QVERIFY(out.open(QIODevice::ReadOnly));
            windowBytes = out.readAll();
        }
        // The plan names the temporary folder that is gone: point it at the
        // copies, as a person moving a batch would edit it.
        QFile file(plan);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QByteArray text = file.readAll();
        file.close();
        const vellumo::Loaded<vellumo::CropPlan> read =
            vellumo::CropPlanFromText(text.toStdString(), {});
        QVERIFY(read);
        vellumo::CropPlan moved = *read;
        for (auto& image : moved.images) {
            image.path = keep.filePath(QFileInfo(QString::fromStdString(image.path)).fileName())
                             .toStdString();
        }
        moved.settings.outputFolder = keep.filePath(QStringLiteral("cli")).toStdString();
        QVERIFY(vellumo::WriteCropPlan(plan.toStdString(), moved).saved);

        // Opened in a new window: list, settings and the adjustment are back.
        LoadedWindow second;
        second.Show();
        second.openDialogAnswers.push_back(QStringList{plan});
        second.Control<QAction>("actionOpenCropPlan").trigger();
        QCOMPARE(second.imageList().paths().size(), 2);
        QCOMPARE(second.settings().Read().mode, vellumo::CropMode::Auto);
        QCOMPARE(second.controller().cropAdjustments().Adjustment(second.imageList().paths()[0]),
                 std::optional<Rect>(adjusted));
        QVERIFY(!second.controller().cropAdjustments().HasUnsavedAdjustments());

        // The command line crops the plan to the same bytes.
        const auto run = vellumo::test::RunCommand(std::string(VELLUMO_CLI) + " --plan " +
                                                   vellumo::test::ShellQuote(plan.toStdString()));
        QCOMPARE(run.exitCode, 0);
        QFile cli(keep.filePath(QStringLiteral("cli/picture0.png")));
        QVERIFY(cli.open(QIODevice::ReadOnly));
        QCOMPARE(cli.readAll(), windowBytes);
    }

    void aBadPlanIsRefusedNamingTheFileAndChangesNothing() {
        Fixture f(2, "1:1");
        f.Drag(f.Centre(), QPoint(-25, 0));
        const Rect adjusted = *f.Adjusted();
        const QString plan = f.dir.filePath(QStringLiteral("bad.vellumoplan"));
        QFile file(plan);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(R"({"version": 1, "images": [{"path": "/a.jpg",
            "rect": {"x": 0, "y": 0, "width": -3, "height": 5}}]})");
        file.close();
        f.loaded.boxAnswers.push_back(vellumo::PlanFiles::kDontSaveAdjustments);
        f.loaded.openDialogAnswers.push_back(QStringList{plan});
        const std::size_t before = f.loaded.boxes.size();
        f.Action("actionOpenCropPlan").trigger();
        QCOMPARE(f.loaded.boxes.size(), before + 2);
        QCOMPARE(f.loaded.boxes.back().text,
                 QStringLiteral("The crop plan %1 could not be opened: the rectangle of image 1 "
                                "has a negative width.")
                     .arg(plan));
        QCOMPARE(f.loaded.imageList().paths(), f.paths);
        QCOMPARE(f.Adjusted(), std::optional<Rect>(adjusted));
    }

    void aPlansMissingImagesAreNamedKeptAndMarked() {
        QTemporaryDir dir;
        const QString there =
            vellumo::test::Write(vellumo::test::Plain(100, 80, Qt::red), dir.filePath("a.png"));
        const QString plan = dir.filePath(QStringLiteral("p.vellumoplan"));
        QVERIFY(vellumo::WriteCropPlan(
                    plan.toStdString(),
                    vellumo::MakeCropPlan(
                        {}, {there.toStdString(), dir.filePath("gone.png").toStdString()}, {}))
                    .saved);
        LoadedWindow loaded;
        loaded.Show();
        loaded.openDialogAnswers.push_back(QStringList{plan});
        loaded.Control<QAction>("actionOpenCropPlan").trigger();
        QCOMPARE(loaded.imageList().paths().size(), 2);
        QCOMPARE(loaded.boxes.back().text, QStringLiteral("1 image of the crop plan no longer "
                                                          "exists: %1")
                                               .arg(dir.filePath("gone.png")));
        const QModelIndex row =
            loaded.Control<QAbstractItemView>("tableViewImage").model()->index(1, 0);
        QVERIFY(row.data(Qt::ToolTipRole).toString().contains("the file no longer exists"));
    }

    void closingAsksOnlyWithUnsavedAdjustments() {
        Fixture f(1, "1:1");
        QVERIFY(f.loaded.controller().windowShouldClose(f.loaded.window()));
        const std::size_t quiet = f.loaded.boxes.size();
        QCOMPARE(quiet, f.loaded.boxes.size());
        f.Drag(f.Centre(), QPoint(-25, 0));
        f.loaded.boxAnswers.push_back(vellumo::PlanFiles::kKeepAdjustments);
        QVERIFY(!f.loaded.controller().windowShouldClose(f.loaded.window()));
        QCOMPARE(f.loaded.boxes.back().text,
                 QStringLiteral("Save the crop adjustments before closing?"));
        QCOMPARE(f.loaded.boxes.back().buttons, (QStringList{"Save", "Don't Save", "Cancel"}));
        f.loaded.boxAnswers.push_back(vellumo::PlanFiles::kDontSaveAdjustments);
        QVERIFY(f.loaded.controller().windowShouldClose(f.loaded.window()));
        // Undone back to the state saved (none): nothing to ask.
        f.Action("actionUndo").trigger();
        const std::size_t boxes = f.loaded.boxes.size();
        QVERIFY(f.loaded.controller().windowShouldClose(f.loaded.window()));
        QCOMPARE(f.loaded.boxes.size(), boxes);
    }
};

}  // namespace

QTEST_MAIN(AdjustCropTest)
#include "AdjustCropTest.moc"
