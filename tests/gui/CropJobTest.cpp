// The crop command through the window: its two notices, the overwrite
// questions and what each answer does to the files, the job's progress and
// status line, the metadata option, and the report with its details.

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <memory>

#include "batch/OverwritePrompts.h"
#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/PictureFiles.h"
#include "tests/gui/support/RealImages.h"
#include "tests/gui/support/WindowDriving.h"
#include "tests/gui/support/Workers.h"
#include "tests/support/Commands.h"
#include "tests/support/ReadBack.h"
#include "tests/support/TestImages.h"
#include "ui/ProgressFraction.h"
#include "ui/controls/LatchingRadioButton.h"
#include "ui/dialogs/CropQuestions.h"
#include "ui/dialogs/OverwriteBox.h"

using vellumo::ImageOutcome;
using vellumo::ImageStatus;
using vellumo::ImageTask;
using vellumo::LatchingRadioButton;
using vellumo::MessageBoxRequest;
using vellumo::MessageBoxStyle;
using vellumo::OverwriteDecision;
using vellumo::test::Choose;
using vellumo::test::Click;
using vellumo::test::CropAndWait;
using vellumo::test::LabelText;
using vellumo::test::LoadedWindow;
using vellumo::test::RecordingProcessor;

namespace {

using D = OverwriteDecision;

const QList<QColor> kColours = {Qt::red, Qt::green, Qt::blue, Qt::yellow, Qt::cyan, Qt::magenta};

MessageBoxRequest Question(const QString& path) {
    return {"The file " + path + " already exists. Do you want to overwrite it?",
            MessageBoxStyle::Warning,
            {"Yes", "Yes to All", "No", "No to All"}};
}

// The window, shown, writing PNG files into an output folder, with a
// recording processor.
struct JobWindow {
    QTemporaryDir dir;
    LoadedWindow loaded;
    std::shared_ptr<RecordingProcessor> processor = std::make_shared<RecordingProcessor>();
    QStringList sources;

    JobWindow() {
        loaded.controller().SetImageProcessor(processor);
        loaded.Show();
        QDir(dir.path()).mkdir("out");
        loaded.Control<QLineEdit>("textFieldOutputFolder").setText(dir.filePath("out"));
        Choose(loaded.Control<QComboBox>("comboFormat"), "PNG");
        // A rectangle of the whole 120 x 80 picture: each output is its
        // source's every pixel.
        vellumo::test::Type(loaded.Control<QLineEdit>("textFieldCustomCropPixelsWidth"), "120");
        vellumo::test::Type(loaded.Control<QLineEdit>("textFieldCustomCropPixelsHeight"), "80");
    }

    // Lists `count` plain pictures of different colours, 120 x 80.
    void AddPictures(int count) {
        QStringList added;
        for (int i = 0; i < count; ++i) {
            const int number = static_cast<int>(sources.size()) + 1;
            added << vellumo::test::Write(
                vellumo::test::Plain(120, 80, kColours[(number - 1) % kColours.size()]),
                dir.filePath(QStringLiteral("p%1.png").arg(number)));
            sources << added.back();
        }
        loaded.AddImages(added);
    }

    // Where the job writes image `index` (from 0).
    QString Output(int index) {
        return dir.filePath(QStringLiteral("out/p%1_cropped (%1).png").arg(index + 1));
    }

    // Puts an existing file of another size and colour where output `index`
    // goes.
    void PutExisting(int index) {
        vellumo::test::Write(vellumo::test::Plain(30, 20, Qt::black), Output(index));
    }

    // Output `index` is a fresh crop of its source (not the file put there).
    bool Replaced(int index) {
        const QImage written(Output(index));
        return written.size() == QSize(120, 80) &&
               written.pixelColor(5, 5) == kColours[index % kColours.size()];
    }
    bool Kept(int index) { return QImage(Output(index)).size() == QSize(30, 20); }

    std::vector<MessageBoxRequest> Questions() {
        std::vector<MessageBoxRequest> questions;
        for (const MessageBoxRequest& box : loaded.boxes) {
            if (box.buttons.size() == 4) {
                questions.push_back(box);
            }
        }
        return questions;
    }
};

// A processor that writes nothing and reports what it is told to.
class ScriptedProcessor final : public vellumo::ImageProcessor {
  public:
    explicit ScriptedProcessor(ImageOutcome outcome) : outcome_(std::move(outcome)) {}
    ImageOutcome Process(const ImageTask&) override { return outcome_; }

  private:
    ImageOutcome outcome_;
};

}  // namespace

class CropJobTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void anEmptyListGivesOnlyTheNoImagesNotice() {
        LoadedWindow loaded;
        loaded.Show();
        QCOMPARE(loaded.Control<QLineEdit>("textFieldOutputFolder").text(), QString());
        QVERIFY(CropAndWait(loaded));
        QCOMPARE(loaded.boxes.size(), std::size_t{1});
        QCOMPARE(loaded.boxes[0], vellumo::NoticeRequest("There are no images to crop."));
        // Nothing else changed: the interface was never locked.
        QVERIFY(loaded.Control<QPushButton>("buttonAddImages").isEnabled());
        QCOMPARE(loaded.Control<QPushButton>("buttonCropImages").text(),
                 QStringLiteral("Crop Images"));
    }

    void anEmptyFolderGivesTheFolderNotice() {
        JobWindow w;
        w.AddPictures(1);
        w.loaded.Control<QLineEdit>("textFieldOutputFolder").clear();
        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(w.loaded.boxes.size(), std::size_t{1});
        QCOMPARE(w.loaded.boxes[0], vellumo::NoticeRequest("Please select an output folder."));
        QVERIFY(w.processor->tasks().empty());
        QVERIFY(w.loaded.Control<QPushButton>("buttonAddImages").isEnabled());
    }

    void aFolderOfOneBlankPassesTheCheck() {
        JobWindow w;
        w.AddPictures(1);
        // The blank is a folder name of its own, relative to where the
        // program runs.
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(w.dir.path()));
        QVERIFY(QDir(w.dir.path()).mkdir(" "));
        w.loaded.Control<QLineEdit>("textFieldOutputFolder").setText(" ");
        const bool ended = CropAndWait(w.loaded);
        QDir::setCurrent(before);
        QVERIFY(ended);
        QCOMPARE(w.loaded.boxes.back().text, QStringLiteral("Images cropped successfully."));
        QCOMPARE(QImage(w.dir.filePath(" /p1_cropped (1).png")).size(), QSize(120, 80));
    }

    void zeroPixelsAndNoModeCropWithTheEmptyRectangle() {
        JobWindow w;
        w.AddPictures(1);
        // The start values: pixels, all 0. Whole copies are written once the
        // question about them is answered yes (its default).
        vellumo::test::Type(w.loaded.Control<QLineEdit>("textFieldCustomCropPixelsWidth"), "0");
        vellumo::test::Type(w.loaded.Control<QLineEdit>("textFieldCustomCropPixelsHeight"), "0");
        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(w.loaded.boxes.front().text, QString::fromLatin1(vellumo::kUncroppedQuestion));
        QCOMPARE(w.processor->outcomes().back().rect.value(), (vellumo::Rect{0, 0, 0, 0}));
        QCOMPARE(w.processor->outcomes().back().WarningLine(),
                 std::string("Whole image: the rectangle is empty"));
        QVERIFY(w.Replaced(0));

        // Pixels with a height of 0.
        QFile::remove(w.Output(0));
        vellumo::test::Type(w.loaded.Control<QLineEdit>("textFieldCustomCropPixelsWidth"), "50");
        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(w.processor->outcomes().back().rect.value(), (vellumo::Rect{0, 0, 50, 0}));
        QVERIFY(w.Replaced(0));

        // No mode at all: auto crop and custom crop both off.
        QFile::remove(w.Output(0));
        w.loaded.Control<LatchingRadioButton>("radioCustomCrop").setChecked(false);
        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(w.processor->outcomes().back().rect.value(), (vellumo::Rect{0, 0, 0, 0}));
        QVERIFY(w.Replaced(0));
        QCOMPARE(w.loaded.boxes.back().text, QStringLiteral("Images cropped successfully."));
    }

    void threeImagesShowProgressOfAThirdTwoThirdsAndFullThenNone() {
        JobWindow w;
        w.AddPictures(3);
        auto& bar = w.loaded.Control<QProgressBar>("progressIndicator");
        auto& status = w.loaded.Control<QLabel>("labelJobStatus");
        // Start away from 0 so that the first value shows.
        vellumo::SetProgressFraction(bar, 0.5);
        QStringList seen;
        QObject::connect(&bar, &QProgressBar::valueChanged, [&](int value) {
            seen << QStringLiteral("%1 %2").arg(value).arg(status.text());
        });
        w.processor->Hold();
        Click(w.loaded.Control<QPushButton>("buttonCropImages"));
        QCOMPARE(w.loaded.Control<QPushButton>("buttonCropImages").text(),
                 QStringLiteral("Cropping..."));
        // The images' sizes are read first, away from the window.
        QTRY_COMPARE(status.text(), QStringLiteral("Cropping 1 of 3"));
        QCOMPARE(w.processor->measured(), 1);  // the first is cropped: enough said
        w.processor->Release();
        QTRY_VERIFY(!w.loaded.controller().isCropping());

        QCOMPARE(seen.size(), 4);
        // Finished images over the job's images: full when the last is done.
        QCOMPARE(seen[0].section(' ', 0, 0), QStringLiteral("333"));
        QCOMPARE(seen[1].section(' ', 0, 0), QStringLiteral("667"));
        QCOMPARE(seen[2].section(' ', 0, 0), QStringLiteral("1000"));
        QCOMPARE(seen[3], QStringLiteral("0 "));
        const QRegularExpression running(
            QString::fromUtf8("^\\d+ Cropping (\\d) of 3 — about \\d+ s left$"));
        QCOMPARE(running.match(seen[0]).captured(1), QStringLiteral("2"));
        QCOMPARE(running.match(seen[1]).captured(1), QStringLiteral("3"));
        QCOMPARE(seen[2].section(' ', 1), QString());  // all done: the line is empty
        QCOMPARE(status.text(), QString());
        QCOMPARE(w.loaded.Control<QPushButton>("buttonCropImages").text(),
                 QStringLiteral("Crop Images"));
        QCOMPARE(w.loaded.boxes.back().text, QStringLiteral("Images cropped successfully."));
    }

    void escapeStopsTheJobBeforeAnyNewImageBegins() {
        JobWindow w;
        w.AddPictures(4);
        auto& stop = w.loaded.Control<QPushButton>("buttonStopCropping");
        QVERIFY(!stop.isEnabled());  // nothing to stop
        w.processor->Hold();
        Click(w.loaded.Control<QPushButton>("buttonCropImages"));
        QTRY_COMPARE(w.processor->started(), 1);
        QVERIFY(stop.isEnabled());
        QTest::keyClick(&w.loaded.window(), Qt::Key_Escape);
        QTRY_VERIFY(!w.loaded.controller().isCropping());
        QCOMPARE(w.processor->started(), 1);  // no new image began
        QCOMPARE(w.loaded.boxes.back().text,
                 QStringLiteral("Cropping was stopped: 0 of 4 images were written."));
        QCOMPARE(w.loaded.boxes.back().informativeText,
                 QStringLiteral("4 images: 0 written, 4 not cropped"));
        QCOMPARE(w.loaded.boxes.back().style, MessageBoxStyle::Warning);
        QVERIFY(!stop.isEnabled());
        QVERIFY(w.loaded.Control<QPushButton>("buttonCropImages").isEnabled());
        QVERIFY(QDir(w.dir.filePath("out")).isEmpty());
    }

    // With the real workers, several images in flight: Stop ends them at
    // once, and no output path holds a partial file.
    void stopEndsTheImagesInFlightLeavingNoPartialFile() {
        QTemporaryDir dir;
        LoadedWindow loaded;
        loaded.Show();
        QStringList sources;
        for (int i = 0; i < 6; ++i) {
            const QString path = dir.filePath(QStringLiteral("big%1.png").arg(i));
            vellumo::test::PhotoLikeImage(4000, 3000).pngsave(path.toUtf8().constData());
            sources << path;
        }
        loaded.AddImages(sources);
        const QString out = dir.filePath(QStringLiteral("out"));
        loaded.Control<QLineEdit>("textFieldOutputFolder").setText(out);
        Choose(loaded.Control<QComboBox>("comboFormat"), "PNG");
        Click(loaded.Control<QPushButton>("buttonCropImages"));
        // Stopped while an image is being written: its temporary file is there.
        const auto writing = [&] {
            return !QDir(out)
                        .entryList({QStringLiteral(".vellumo-*")}, QDir::Files | QDir::Hidden)
                        .isEmpty();
        };
        QTRY_VERIFY_WITH_TIMEOUT(writing(), 60000);
        Click(loaded.Control<QPushButton>("buttonStopCropping"));
        QTRY_VERIFY_WITH_TIMEOUT(!loaded.controller().isCropping(), 20000);
        const QRegularExpression stopped(
            QStringLiteral("^Cropping was stopped: (\\d) of 6 images were written\\.$"));
        const QRegularExpressionMatch said = stopped.match(loaded.boxes.back().text);
        QVERIFY2(said.hasMatch(), qPrintable(loaded.boxes.back().text));
        QVERIFY(said.captured(1).toInt() < 6);
        QCOMPARE(QDir(out).entryList({QStringLiteral(".vellumo-*")}, QDir::Files | QDir::Hidden),
                 QStringList());
        const QStringList written = QDir(out).entryList(QDir::Files);
        QCOMPARE(written.size(), said.captured(1).toInt());
        for (const QString& name : written) {
            // Whole files: every pixel decodes.
            QCOMPARE(
                vellumo::test::MagickPixels(QDir(out).filePath(name).toStdString(), "", "rgb", 8)
                    .size(),
                std::size_t{4000} * 3000 * 3);
        }
    }

    void theWindowStaysResponsiveWhileTheJobRuns() {
        JobWindow w;
        w.AddPictures(2);
        w.processor->Hold();
        Click(w.loaded.Control<QPushButton>("buttonCropImages"));
        QTRY_COMPARE(w.processor->started(), 1);
        QVERIFY(w.loaded.controller().isCropping());
        QVERIFY(!w.loaded.Control<QPushButton>("buttonAddImages").isEnabled());
        // While the job's image is held, the list still previews its images:
        // the GUI thread is not waiting for the job.
        vellumo::test::ClickRow(w.loaded, 1);
        QCOMPARE(LabelText(w.loaded, "labelOriginalDimensionsWidth"), QStringLiteral("Width: 120"));
        QVERIFY(w.loaded.controller().isCropping());
        w.processor->Release();
        QTRY_VERIFY(!w.loaded.controller().isCropping());
        QVERIFY(w.loaded.Control<QPushButton>("buttonAddImages").isEnabled());
    }

    void aFailedSaveStopsTheMetadataForTheRestButNotTheSaves() {
        VELLUMO_QSKIP_WITHOUT_TESTDATA();
        JobWindow w;
        QStringList cameras;
        for (const char* name : {"first.jpg", "second.jpg", "third.jpg"}) {
            cameras << w.dir.filePath(name);
            QVERIFY(QFile::copy(vellumo::test::RealImage("jpeg/Canon_40D.jpg"), cameras.back()));
        }
        w.loaded.AddImages(cameras);
        Choose(w.loaded.Control<QComboBox>("comboFormat"), "JPG");
        Click(w.loaded.Control<QCheckBox>("checkKeepEXIFInformationAndCreationDate"));
        // A folder with something in it where the first output goes: it
        // cannot be replaced.
        const QString blocked = w.dir.filePath("out/first_cropped (1).jpg");
        QVERIFY(QDir().mkpath(blocked + "/inside"));
        w.loaded.boxAnswers.push_back(vellumo::kAnswerYes);

        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(w.Questions().size(), std::size_t{1});
        const MessageBoxRequest& report = w.loaded.boxes.back();
        QCOMPARE(report.text, QStringLiteral("Some images could not be cropped."));
        QCOMPARE(report.style, MessageBoxStyle::Warning);
        QCOMPARE(report.buttons, QStringList({"Show in Folder", "OK"}));
        // The 120 x 80 rectangle is clipped on the 100 x 68 photos.
        QCOMPARE(report.informativeText,
                 QStringLiteral("3 images: 2 written, 1 failed; 2 with warnings"));
        QVERIFY2(report.details.startsWith("Not cropped: " + cameras[0] + " ("),
                 qPrintable(report.details));
        QVERIFY(QFileInfo(blocked).isDir());

        for (const char* written : {"out/second_cropped (2).jpg", "out/third_cropped (3).jpg"}) {
            const std::string path = w.dir.filePath(written).toStdString();
            QCOMPARE(QImage(w.dir.filePath(written)).size(), QSize(100, 68));
            QCOMPARE(vellumo::test::ExifToolValue(path, "Model"), std::string());
        }
        // Without the failure the metadata goes with every image.
        QVERIFY(QDir(blocked).removeRecursively());
        w.loaded.boxAnswers.push_back(vellumo::kAnswerYesToAll);
        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(w.loaded.boxes.back().text, QStringLiteral("Images cropped successfully."));
        QCOMPARE(vellumo::test::ExifToolValue(
                     w.dir.filePath("out/third_cropped (3).jpg").toStdString(), "Model"),
                 std::string("Canon EOS 40D"));
    }

    void anImageAnsweredNoKeepsItsPixelsButGetsTheMetadata() {
        VELLUMO_QSKIP_WITHOUT_TESTDATA();
        JobWindow w;
        const QString camera = w.dir.filePath("camera.jpg");
        QVERIFY(QFile::copy(vellumo::test::RealImage("jpeg/Canon_40D.jpg"), camera));
        w.loaded.AddImages({camera});
        Choose(w.loaded.Control<QComboBox>("comboFormat"), "JPG");
        Click(w.loaded.Control<QCheckBox>("checkKeepEXIFInformationAndCreationDate"));
        const QString kept = w.dir.filePath("out/camera_cropped (1).jpg");
        vellumo::test::Write(vellumo::test::Quarters(64, 48), kept);
        QCOMPARE(vellumo::test::ExifToolValue(kept.toStdString(), "Model"), std::string());
        const QImage before(kept);
        w.loaded.boxAnswers.push_back(vellumo::kAnswerNo);

        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(w.Questions().size(), std::size_t{1});
        QCOMPARE(w.loaded.boxes.back().text, QStringLiteral("Images cropped successfully."));
        QCOMPARE(w.loaded.boxes.back().details,
                 "Skipped: " + camera + " (" + kept + " already exists and was kept)");
        QCOMPARE(QImage(kept), before);
        QCOMPARE(vellumo::test::ExifToolValue(kept.toStdString(), "Model"),
                 std::string("Canon EOS 40D"));
    }

    void aFailedRemovalDoesNotCountAsAFailure() {
        JobWindow w;
        w.AddPictures(1);
        ImageOutcome outcome;
        outcome.status = ImageStatus::Written;
        outcome.notes = {
            {vellumo::NoteKind::RemoveFailed, "could not remove the old file: Permission denied"}};
        w.loaded.controller().SetImageProcessor(std::make_shared<ScriptedProcessor>(outcome));
        w.PutExisting(0);
        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(w.loaded.boxes.back().text, QStringLiteral("Images cropped successfully."));
        QCOMPARE(w.loaded.boxes.back().style, MessageBoxStyle::Informational);
    }

    void theReportNamesEachFailedAndSkippedImage() {
        JobWindow w;
        w.AddPictures(1);
        const QString text = w.dir.filePath("notes.png");
        {
            QFile file(text);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write("not a picture");
        }
        w.loaded.AddImages({text});
        w.AddPictures(1);
        w.PutExisting(0);
        w.loaded.boxAnswers.push_back(vellumo::kAnswerNo);
        QVERIFY(CropAndWait(w.loaded));
        const MessageBoxRequest& report = w.loaded.boxes.back();
        QCOMPARE(report.text, QStringLiteral("Some images could not be cropped."));
        QCOMPARE(report.details, "Skipped: " + w.sources[0] + " (" + w.Output(0) +
                                     " already exists and was kept)\nNot cropped: " + text +
                                     " (cannot decode: not an image Vellumo reads (a text file))");
        QVERIFY(w.Kept(0));
        QVERIFY(QFile::exists(w.dir.filePath("out/p2_cropped (3).png")));
    }

    void withNoExistingFilesNothingIsAsked() {
        JobWindow w;
        w.AddPictures(3);
        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(w.loaded.boxes.size(), std::size_t{1});
        QCOMPARE(w.processor->decisions(),
                 (std::vector<D>{D::NoConflict, D::NoConflict, D::NoConflict}));
        for (int i = 0; i < 3; ++i) {
            QVERIFY(w.Replaced(i));
        }
    }

    void yesToAllOnTheSecondOfFiveConflicts() {
        JobWindow w;
        w.AddPictures(6);
        for (int i : {0, 1, 2, 4, 5}) {
            w.PutExisting(i);
        }
        w.loaded.boxAnswers = {vellumo::kAnswerNo, vellumo::kAnswerYesToAll};
        QVERIFY(CropAndWait(w.loaded));
        const auto questions = w.Questions();
        QCOMPARE(questions.size(), std::size_t{2});
        QCOMPARE(questions[0], Question(w.Output(0)));
        QCOMPARE(questions[1], Question(w.Output(1)));
        QCOMPARE(w.processor->decisions(),
                 (std::vector<D>{D::Skip, D::Overwrite, D::Overwrite, D::NoConflict, D::Overwrite,
                                 D::Overwrite}));
        QVERIFY(w.Kept(0));
        for (int i = 1; i < 6; ++i) {
            QVERIFY2(w.Replaced(i), qPrintable(QString::number(i)));
        }
        QCOMPARE(w.loaded.boxes.back().text, QStringLiteral("Images cropped successfully."));
    }

    void noToAllOnTheFirstConflict() {
        JobWindow w;
        w.AddPictures(4);
        for (int i : {0, 2, 3}) {
            w.PutExisting(i);
        }
        w.loaded.boxAnswers = {vellumo::kAnswerNoToAll};
        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(w.Questions().size(), std::size_t{1});
        QCOMPARE(w.processor->decisions(),
                 (std::vector<D>{D::Skip, D::NoConflict, D::Skip, D::Skip}));
        QVERIFY(w.Kept(0));
        QVERIFY(w.Replaced(1));
        QVERIFY(w.Kept(2));
        QVERIFY(w.Kept(3));
        // Every conflict answered "No": still a success.
        QCOMPARE(w.loaded.boxes.back().text, QStringLiteral("Images cropped successfully."));
        QCOMPARE(w.loaded.boxes.back().style, MessageBoxStyle::Informational);
    }

    void everyImageAnsweredNoStillReportsSuccess() {
        JobWindow w;
        w.AddPictures(3);
        for (int i = 0; i < 3; ++i) {
            w.PutExisting(i);
        }
        w.loaded.boxAnswers = {vellumo::kAnswerNo, vellumo::kAnswerNo, vellumo::kAnswerNo};
        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(w.Questions().size(), std::size_t{3});
        QCOMPARE(w.processor->decisions(), (std::vector<D>{D::Skip, D::Skip, D::Skip}));
        for (int i = 0; i < 3; ++i) {
            QVERIFY(w.Kept(i));
        }
        QCOMPARE(w.loaded.boxes.back(),
                 (MessageBoxRequest{"Images cropped successfully.",
                                    MessageBoxStyle::Informational,
                                    {"Show in Folder", "OK"},
                                    "Skipped: " + w.sources[0] + " (" + w.Output(0) +
                                        " already exists and was kept)\nSkipped: " + w.sources[1] +
                                        " (" + w.Output(1) +
                                        " already exists and was kept)\nSkipped: " + w.sources[2] +
                                        " (" + w.Output(2) + " already exists and was kept)",
                                    "3 images: 0 written, 3 kept as they were",
                                    1}));
    }

    void twoImagesWithOneOutputPathAreNumberedOnlyWhenAgreed() {
        JobWindow w;
        QDir(w.dir.path()).mkdir("a");
        QDir(w.dir.path()).mkdir("b");
        const QString first = vellumo::test::Write(vellumo::test::Plain(120, 80, Qt::red),
                                                   w.dir.filePath("a/same.png"));
        const QString second = vellumo::test::Write(vellumo::test::Plain(120, 80, Qt::blue),
                                                    w.dir.filePath("b/same.png"));
        w.loaded.AddImages({first});
        w.loaded.AddImages({second});
        vellumo::test::Type(w.loaded.Control<QLineEdit>("textFieldName"), "[FileName]");
        const QString shared = w.dir.filePath("out/same.png");

        // Cancelled: nothing is written, and the window is as before.
        w.loaded.boxAnswers = {vellumo::kCancelAnswer};
        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(w.loaded.boxes.size(), std::size_t{1});
        const MessageBoxRequest warning = w.loaded.boxes.front();
        QCOMPARE(warning.text,
                 QStringLiteral("2 images would be written to the same files, one over another:"));
        QCOMPARE(warning.informativeText, shared + ": " + first + ", " + second);
        QCOMPARE(warning.buttons, QStringList({"Number the Clashing Files", "Cancel"}));
        QCOMPARE(warning.style, MessageBoxStyle::Warning);
        QVERIFY(w.processor->tasks().empty());
        QVERIFY(QDir(w.dir.filePath("out")).isEmpty());
        QVERIFY(!w.loaded.controller().isCropping());
        QVERIFY(w.loaded.Control<QPushButton>("buttonCropImages").isEnabled());

        // Numbered: the later image gets " (2)", as a file manager names a copy.
        w.loaded.boxAnswers = {vellumo::kGoOnAnswer};
        QVERIFY(CropAndWait(w.loaded));
        QCOMPARE(w.Questions().size(), std::size_t{0});
        QCOMPARE(w.processor->decisions(), (std::vector<D>{D::NoConflict, D::NoConflict}));
        QCOMPARE(QImage(shared).pixelColor(1, 1), QColor(Qt::red));
        QCOMPARE(QImage(w.dir.filePath("out/same (2).png")).pixelColor(1, 1), QColor(Qt::blue));
        QCOMPARE(w.loaded.boxes.back().text, QStringLiteral("Images cropped successfully."));
    }

    void aFolderAtAnOutputPathIsAskedAbout() {
        JobWindow w;
        w.AddPictures(1);
        QVERIFY(QDir().mkpath(w.Output(0)));
        w.loaded.boxAnswers = {vellumo::kAnswerYes};
        QVERIFY(CropAndWait(w.loaded));
        const auto questions = w.Questions();
        QCOMPARE(questions.size(), std::size_t{1});
        QCOMPARE(questions[0], Question(w.Output(0)));
        QCOMPARE(w.processor->decisions(), (std::vector<D>{D::Overwrite}));
        // The empty folder made way for the file.
        QVERIFY(QFileInfo(w.Output(0)).isFile());
        QVERIFY(w.Replaced(0));
    }
};

QTEST_MAIN(CropJobTest)
#include "CropJobTest.moc"
