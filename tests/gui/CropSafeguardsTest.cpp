// What the crop command asks and says so that nothing is lost or written by
// surprise: uncropped copies, a missing output folder, replacing the
// originals, and the report with its counts and its way to the folder.
// Also the output options that depend on the format, the note for files of
// several frames, and a report whose details are long.

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QUrl>
#include <memory>
#include <vips/vips8>

#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/PictureFiles.h"
#include "tests/gui/support/WindowDriving.h"
#include "tests/gui/support/Workers.h"
#include "tests/support/TestImages.h"
#include "ui/controls/LatchingRadioButton.h"
#include "ui/dialogs/CropQuestions.h"
#include "ui/dialogs/CropResult.h"
#include "ui/dialogs/OverwriteBox.h"

using vellumo::MessageBoxRequest;
using vellumo::MessageBoxStyle;
using vellumo::test::Choose;
using vellumo::test::Click;
using vellumo::test::CropAndWait;
using vellumo::test::LabelText;
using vellumo::test::LoadedWindow;
using vellumo::test::RecordingProcessor;
using vellumo::test::Type;

namespace {

// The window, shown, with `count` plain 120 x 80 pictures listed, writing
// PNG into `out` (not made yet).
struct Window {
    QTemporaryDir dir;
    LoadedWindow loaded;
    std::shared_ptr<RecordingProcessor> processor = std::make_shared<RecordingProcessor>();
    QStringList sources;

    explicit Window(int count) {
        loaded.controller().SetImageProcessor(processor);
        loaded.Show();
        for (int i = 1; i <= count; ++i) {
            sources << vellumo::test::Write(vellumo::test::Plain(120, 80, Qt::darkCyan),
                                            dir.filePath(QStringLiteral("p%1.png").arg(i)));
        }
        loaded.AddImages(sources);
        Choose(loaded.Control<QComboBox>("comboFormat"), "PNG");
    }
    QString Out() { return dir.filePath("out"); }
    void SetFolder(const QString& folder) {
        Type(loaded.Control<QLineEdit>("textFieldOutputFolder"), folder);
    }
    void CropTheLeftHalf() {
        Type(loaded.Control<QLineEdit>("textFieldCustomCropPixelsWidth"), "60");
        Type(loaded.Control<QLineEdit>("textFieldCustomCropPixelsHeight"), "80");
    }
    bool Idle() {
        return !loaded.controller().isCropping() &&
               loaded.Control<QPushButton>("buttonCropImages").isEnabled() &&
               loaded.Control<QPushButton>("buttonCropImages").text() == "Crop Images";
    }
};

}  // namespace

class CropSafeguardsTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void uncroppedCopiesAreWrittenOnlyWhenAgreed() {
        Window w(3);
        QVERIFY(QDir().mkpath(w.Out()));
        w.SetFolder(w.Out());
        // The start values: pixels 0, 0, 0, 0 crop none of the images.
        w.loaded.boxAnswers = {vellumo::kCancelAnswer};  // "Cancel"
        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(w.loaded.boxes.size(), 1u);
        QCOMPARE(w.loaded.boxes[0],
                 (MessageBoxRequest{"The crop rectangle leaves every image uncropped. Write "
                                    "uncropped copies?",
                                    MessageBoxStyle::Warning,
                                    {"Write Copies", "Cancel"}}));
        QCOMPARE(w.processor->measured(), 3);  // every image's size was read
        QVERIFY(w.processor->tasks().empty());
        QVERIFY(QDir(w.Out()).isEmpty());
        QVERIFY(w.Idle());

        w.loaded.boxAnswers = {vellumo::kGoOnAnswer};  // "Write Copies"
        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(QDir(w.Out()).entryList(QDir::Files).size(), 3);
        const MessageBoxRequest& report = w.loaded.boxes.back();
        QCOMPARE(report.informativeText, QStringLiteral("3 images: 3 written; 3 with warnings"));
        QVERIFY2(report.details.contains("Warning: " + w.sources[0] +
                                         " (Whole image: the rectangle is empty)"),
                 qPrintable(report.details));
    }

    void aRuleThatCropsSomeImageAsksNothing() {
        Window w(1);
        w.loaded.AddImages({vellumo::test::Write(vellumo::test::Plain(300, 200, Qt::red),
                                                 w.dir.filePath("z-large.png"))});
        QVERIFY(QDir().mkpath(w.Out()));
        w.SetFolder(w.Out());
        // 200 x 150 from the corner: the small picture lies inside it (whole),
        // the large one is cropped.
        Type(w.loaded.Control<QLineEdit>("textFieldCustomCropPixelsWidth"), "200");
        Type(w.loaded.Control<QLineEdit>("textFieldCustomCropPixelsHeight"), "150");
        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(w.loaded.boxes.size(), 1u);
        QCOMPARE(w.loaded.boxes[0].text, QStringLiteral("Images cropped successfully."));
        QCOMPARE(w.loaded.boxes[0].informativeText,
                 QStringLiteral("2 images: 2 written; 1 with a warning"));
        QCOMPARE(QImage(w.Out() + "/z-large_cropped (2).png").size(), QSize(200, 150));
        QCOMPARE(QImage(w.Out() + "/p1_cropped (1).png").size(), QSize(120, 80));
    }

    void aMissingFolderIsMadeWithItsParentsWhenAgreed() {
        Window w(2);
        w.CropTheLeftHalf();
        const QString deep = w.dir.filePath("new/deeper/out");
        w.SetFolder(deep);

        w.loaded.boxAnswers = {vellumo::kCancelAnswer};  // "Cancel"
        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(w.loaded.boxes.back(),
                 (MessageBoxRequest{"The folder " + deep + " does not exist. Create it?",
                                    MessageBoxStyle::Warning,
                                    {"Create", "Cancel"}}));
        QVERIFY(!QFileInfo::exists(w.dir.filePath("new")));
        QVERIFY(w.Idle());
        QVERIFY(w.loaded.Control<QPushButton>("buttonAddImages").isEnabled());

        w.loaded.boxAnswers = {vellumo::kGoOnAnswer};  // "Create"
        QVERIFY(CropAndWait(w.loaded));
        QVERIFY(QFileInfo(deep).isDir());
        QCOMPARE(QImage(deep + "/p2_cropped (2).png").size(), QSize(60, 80));
        QCOMPARE(w.loaded.boxes.back().text, QStringLiteral("Images cropped successfully."));
    }

    void aFileWhereTheFolderShouldBeIsRefused() {
        Window w(1);
        w.CropTheLeftHalf();
        const QString file = w.sources[0];
        w.SetFolder(file);
        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(w.loaded.boxes.back(),
                 vellumo::NoticeRequest("The output folder " + file + " is a file, not a folder."));
        QVERIFY(w.processor->tasks().empty());
        QVERIFY(w.Idle());
    }

    void theReportCountsAndShowsTheFolder() {
        Window w(3);
        w.CropTheLeftHalf();
        QVERIFY(QDir().mkpath(w.Out()));
        w.SetFolder(w.Out());
        // The second output exists and is kept.
        vellumo::test::Write(vellumo::test::Plain(10, 10, Qt::black),
                             w.Out() + "/p2_cropped (2).png");
        w.loaded.boxAnswers = {vellumo::kAnswerNo, vellumo::kShowInFolderAnswer};
        QVERIFY(CropAndWait(w.loaded));
        // The report, then the notice that no file manager could be opened
        // (the test's opener fails, as where none is installed).
        const MessageBoxRequest& report = w.loaded.boxes.at(w.loaded.boxes.size() - 2);
        QCOMPARE(report.text, QStringLiteral("Images cropped successfully."));
        QCOMPARE(report.informativeText, QStringLiteral("3 images: 2 written, 1 kept as it was"));
        QCOMPARE(report.buttons, QStringList({"Show in Folder", "OK"}));
        QCOMPARE(report.defaultButton, 1);
        QCOMPARE(w.loaded.openedUrls.size(), 1u);
        QCOMPARE(w.loaded.openedUrls[0], QUrl::fromLocalFile(w.Out()));
        QCOMPARE(w.loaded.boxes.back(),
                 vellumo::NoticeRequest("No file manager could be opened to show the folder " +
                                        w.Out() + "."));

        // Where one opens, nothing more is said.
        w.loaded.controller().services().openUrl = [](const QUrl&) { return true; };
        const std::size_t before = w.loaded.boxes.size();
        w.loaded.boxAnswers = {vellumo::kAnswerYesToAll, vellumo::kShowInFolderAnswer};
        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(w.loaded.boxes.size(), before + 2);  // the question and the report
    }

    void replacingTheOriginalsAsksFirstThenReplacesEachByItsOwnCrop() {
        Window w(2);
        w.CropTheLeftHalf();
        auto& replace = w.loaded.Control<QCheckBox>("checkReplaceOriginals");
        Click(replace);
        QVERIFY(replace.isChecked());
        // The name, folder and format are not used meanwhile.
        for (const char* name :
             {"comboFormat", "textFieldName", "textFieldOutputFolder", "buttonBrowse"}) {
            QVERIFY2(!w.loaded.Control<QWidget>(name).isEnabled(), name);
        }
        QVERIFY(w.loaded.Control<QWidget>("sliderQuality").isEnabled());

        w.loaded.boxAnswers = {vellumo::kCancelAnswer};  // "Cancel"
        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(w.loaded.boxes.back(),
                 (MessageBoxRequest{"Replace the original files of the 2 listed images by their "
                                    "crops? The originals cannot be restored.",
                                    MessageBoxStyle::Warning,
                                    {"Replace the Originals", "Cancel"}}));
        QCOMPARE(QImage(w.sources[0]).size(), QSize(120, 80));
        QVERIFY(w.Idle());

        // No output folder is needed, and no overwrite is asked about.
        QCOMPARE(w.loaded.Control<QLineEdit>("textFieldOutputFolder").text(), QString());
        w.loaded.boxAnswers = {vellumo::kGoOnAnswer};
        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(w.loaded.boxes.back().text, QStringLiteral("Images cropped successfully."));
        for (const QString& source : w.sources) {
            QCOMPARE(QImage(source).size(), QSize(60, 80));
        }
        QCOMPARE(QDir(w.dir.path()).entryList(QDir::Files | QDir::Hidden).size(), 2);
        QCOMPARE(w.processor->decisions(),
                 (std::vector<vellumo::OverwriteDecision>{vellumo::OverwriteDecision::Overwrite,
                                                          vellumo::OverwriteDecision::Overwrite}));
    }

    void anOutputOverAnOriginalIsNeverWrittenWhateverTheAnswers() {
        Window w(2);
        w.CropTheLeftHalf();
        // The outputs are the listed files themselves: their folder, their
        // names, their format.
        w.SetFolder(w.dir.path());
        Type(w.loaded.Control<QLineEdit>("textFieldName"), "[FileName]");
        QByteArray before[2];
        for (int i = 0; i < 2; ++i) {
            QFile file(w.sources[i]);
            QVERIFY(file.open(QIODevice::ReadOnly));
            before[i] = file.readAll();
        }
        w.loaded.boxAnswers = {vellumo::kAnswerYesToAll, vellumo::kAnswerYesToAll};
        QVERIFY(CropAndWait(w.loaded));
        // Nothing to ask: the originals are out of reach.
        QCOMPARE(w.loaded.boxes.size(), 1u);
        const MessageBoxRequest& report = w.loaded.boxes.back();
        QCOMPARE(report.text, QStringLiteral("Some images could not be cropped."));
        QCOMPARE(report.informativeText, QStringLiteral("2 images: 0 written, 2 failed"));
        QVERIFY2(
            report.details.contains("Not cropped: " + w.sources[0] +
                                    " (the output would replace an original image of this batch)"),
            qPrintable(report.details));
        for (int i = 0; i < 2; ++i) {
            QFile file(w.sources[i]);
            QVERIFY(file.open(QIODevice::ReadOnly));
            QCOMPARE(file.readAll(), before[i]);
        }
    }

    void theMetadataOptionIsOfferedOnlyForFormatsThatCarryIt() {
        LoadedWindow loaded;
        loaded.Show();
        auto& keep = loaded.Control<QCheckBox>("checkKeepEXIFInformationAndCreationDate");
        auto& format = loaded.Control<QComboBox>("comboFormat");
        for (const char* title : {"GIF", "BMP"}) {
            Choose(format, title);
            QVERIFY2(!keep.isEnabled(), title);
            QCOMPARE(keep.toolTip(),
                     QStringLiteral("GIF and BMP files cannot carry EXIF information"));
        }
        for (const char* title : {"JPG", "JP2", "PNG", "TIFF"}) {
            Choose(format, title);
            QVERIFY2(keep.isEnabled(), title);
            QCOMPARE(keep.toolTip(), QString());
        }
    }

    void aFileOfTwelveFramesSaysOnlyItsFirstIsCropped() {
        QTemporaryDir dir;
        vips::VImage frames = vellumo::test::CoordinateImage(40, 40 * 12);
        frames.set("page-height", 40);
        const QString path = dir.filePath("anim.gif");
        frames.gifsave(path.toUtf8().constData());
        LoadedWindow loaded;
        loaded.Show();
        loaded.AddImages({path});
        Click(loaded.Control<vellumo::LatchingRadioButton>("radioAutoCrop"));
        vellumo::test::ClickRow(loaded, 0);
        QCOMPARE(LabelText(loaded, "labelOriginalDimensionsWidth"), QStringLiteral("Width: 40"));
        QCOMPARE(LabelText(loaded, "labelPreviewNote"), QStringLiteral("first frame only (of 12)"));
        // With a clipped rectangle, both notes.
        Click(loaded.Control<vellumo::LatchingRadioButton>("radioCustomCrop"));
        Type(loaded.Control<QLineEdit>("textFieldCustomCropPixelsWidth"), "50");
        Type(loaded.Control<QLineEdit>("textFieldCustomCropPixelsHeight"), "20");
        QCOMPARE(LabelText(loaded, "labelPreviewNote"),
                 QStringLiteral("Clipped to 40 \u00d7 20; first frame only (of 12)"));
    }

    void aReportsLongDetailsWrapAndTheBoxCanGrow() {
        QString details;
        for (int i = 0; i < 30; ++i) {
            details += QStringLiteral(
                           "Not cropped: /a/very/long/path/without/any/spaces/to/wrap/"
                           "at/from/one/camera/IMG_%1_with_a_long_name_indeed.jpg "
                           "(cannot decode: not a JPEG file)\n")
                           .arg(i, 4, 10, QLatin1Char('0'));
        }
        MessageBoxRequest request{"Some images could not be cropped.", MessageBoxStyle::Warning,
                                  QStringList{"Show in Folder", "OK"}, details,
                                  "30 images: 0 written, 30 failed",   1};
        const auto box = vellumo::BuildMessageBox(request, nullptr);
        box->show();
        // Open the details, as "Show Details..." does.
        for (QAbstractButton* button : box->buttons()) {
            if (box->buttonRole(button) == QMessageBox::ActionRole &&
                !button->property(vellumo::kAnswerProperty).isValid()) {
                button->click();
            }
        }
        QApplication::processEvents();
        auto* text = box->findChild<QTextEdit*>();
        QVERIFY(text != nullptr);
        QVERIFY(text->isVisible());
        QCOMPARE(box->informativeText(), request.informativeText);
        QCOMPARE(box->defaultButton()->text(), QStringLiteral("OK"));
        QVERIFY(!text->horizontalScrollBar()->isVisible());
        QCOMPARE(text->horizontalScrollBar()->maximum(), 0);
        // Larger, to read more at once.
        const QSize before = box->size();
        box->resize(before.width() + 300, before.height() + 300);
        QApplication::processEvents();
        QVERIFY2(box->width() >= before.width() + 300,
                 qPrintable(QStringLiteral("%1 x %2 from %3 x %4")
                                .arg(box->width())
                                .arg(box->height())
                                .arg(before.width())
                                .arg(before.height())));
        QVERIFY(text->height() > 150);
    }
};

QTEST_MAIN(CropSafeguardsTest)
#include "CropSafeguardsTest.moc"
