// The whole window at work, as a person uses it: five real files in five
// formats are added, 16:9 auto crop and PNG are chosen, an output folder is
// browsed to, Crop Images is pressed, the real overwrite questions are
// answered by clicking their buttons, and the report is read. Every output
// is then decoded by ImageMagick and compared with the same region of its
// source, decoded by ImageMagick too.

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <cstdlib>

#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/PictureFiles.h"
#include "tests/gui/support/RealImages.h"
#include "tests/gui/support/WindowDriving.h"
#include "tests/support/Commands.h"
#include "ui/controls/LatchingRadioButton.h"
#include "ui/dialogs/MessageBox.h"
#include "ui/dialogs/OverwriteBox.h"

using vellumo::test::LoadedWindow;

namespace {

// A source file and where its 16:9 crop lies in its upright pixels, from the
// top-left corner.
struct Expected {
    const char* source;
    const char* output;  // in the output folder
    int left, top, width, height;
};

// The largest centred 16:9 rectangle (9:16 for the portrait photo), its
// origin rounded to whole pixels and its size truncated.
const Expected kFiles[] = {
    // 1800 x 1200 stored, EXIF orientation 6: upright 1200 x 1800.
    {"orientation/Portrait_6.jpg", "Portrait_6_cropped (1).png", 94, 0, 1012, 1800},
    {"tiff/quad-lzw.tif", "quad-lzw_cropped (2).png", 0, 48, 512, 288},
    {"gif/hopper.gif", "hopper_cropped (3).png", 0, 28, 128, 72},
    {"bmp/gracehopper.bmp", "gracehopper_cropped (4).png", 0, 56, 256, 144},
    {"jp2/file1.jp2", "file1_cropped (5).png", 0, 40, 768, 432},
};

// What a person saw in one message box, and which button they pressed.
struct SeenBox {
    QString text;
    QString informativeText;
    QString details;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QStringList buttonsLeftToRight;
    QString pressed;
};

// Watches for modal message boxes and answers each with the next title of
// `answers`, clicking the button as a person would.
class BoxAnswerer : public QObject {
  public:
    explicit BoxAnswerer(QStringList answers) : answers_(std::move(answers)) {
        connect(&timer_, &QTimer::timeout, this, [this] { Look(); });
        timer_.start(20);
    }

    std::vector<SeenBox> seen;

  private:
    void Look() {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr || box == current_ || !box->isVisible()) {
            return;
        }
        current_ = box;
        SeenBox record;
        record.text = box->text();
        record.informativeText = box->informativeText();
        record.details = box->detailedText();
        record.icon = box->icon();
        QList<QAbstractButton*> buttons;
        for (QAbstractButton* button : box->buttons()) {
            // "Show Details..." is the box's own, not an answer.
            if (!button->property(vellumo::kAnswerProperty).isValid()) {
                continue;
            }
            buttons << button;
        }
        std::sort(buttons.begin(), buttons.end(), [](QAbstractButton* a, QAbstractButton* b) {
            return a->mapToGlobal(QPoint(0, 0)).x() < b->mapToGlobal(QPoint(0, 0)).x();
        });
        for (QAbstractButton* button : buttons) {
            record.buttonsLeftToRight << button->text();
        }
        record.pressed = answers_.isEmpty() ? QString() : answers_.takeFirst();
        seen.push_back(record);
        for (QAbstractButton* button : buttons) {
            if (button->text() == record.pressed) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        box->reject();
    }

    QStringList answers_;
    QTimer timer_;
    QPointer<QMessageBox> current_;
};

std::vector<unsigned char> Pixels(const QString& path, const std::string& operations) {
    return vellumo::test::MagickPixels(path.toStdString(), operations, "rgb", 8);
}

}  // namespace

class EndToEndTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void fiveRealFilesCroppedTo16By9AsPng() {
        VELLUMO_QSKIP_WITHOUT_TESTDATA();
        QTemporaryDir dir;
        const QString out = dir.filePath("cropped");
        QVERIFY(QDir().mkpath(out));
        LoadedWindow loaded;
        // Real message boxes, over the window.
        loaded.controller().services().showMessageBox =
            [&loaded](const vellumo::MessageBoxRequest& request) {
                return vellumo::RunMessageBox(request, &loaded.window());
            };
        loaded.Show();

        // Two outputs exist already: the second and the fourth.
        const QImage old = vellumo::test::Plain(40, 30, Qt::magenta);
        vellumo::test::Write(old, out + "/" + kFiles[1].output);
        vellumo::test::Write(old, out + "/" + kFiles[3].output);

        QStringList sources;
        for (const Expected& file : kFiles) {
            sources << vellumo::test::RealImage(file.source);
        }
        // One file a time, in this order (files chosen together would come
        // in the order of their names).
        for (const QString& source : sources) {
            loaded.openDialogAnswers.push_back(QStringList{source});
            vellumo::test::Click(loaded.Control<QPushButton>("buttonAddImages"));
        }
        QCOMPARE(loaded.imageList().paths(), sources);

        vellumo::test::Choose(loaded.Control<QComboBox>("comboAutoCropFormat"), "16:9");
        vellumo::test::Click(loaded.Control<vellumo::LatchingRadioButton>("radioAutoCrop"));
        vellumo::test::ClickRow(loaded, 0);
        QCOMPARE(vellumo::test::LabelText(loaded, "labelOutputDimensionsWidth"),
                 QStringLiteral("Width: 1012"));
        QCOMPARE(vellumo::test::LabelText(loaded, "labelOutputDimensionsHeight"),
                 QStringLiteral("Height: 1800"));

        vellumo::test::Choose(loaded.Control<QComboBox>("comboFormat"), "PNG");
        loaded.openDialogAnswers.push_back(QStringList{out});
        vellumo::test::Click(loaded.Control<QPushButton>("buttonBrowse"));

        BoxAnswerer answerer({"Yes", "No", "OK"});
        vellumo::test::Click(loaded.Control<QPushButton>("buttonCropImages"));
        QTRY_VERIFY_WITH_TIMEOUT(answerer.seen.size() == 3 && !loaded.controller().isCropping(),
                                 60000);

        const QStringList buttons = {"Yes", "Yes to All", "No", "No to All"};
        for (int i : {0, 1}) {
            const int file = i == 0 ? 1 : 3;
            QCOMPARE(answerer.seen[i].text, "The file " + out + "/" + kFiles[file].output +
                                                " already exists. Do you want to overwrite it?");
            QCOMPARE(answerer.seen[i].buttonsLeftToRight, buttons);
            QCOMPARE(answerer.seen[i].icon, QMessageBox::Warning);
        }
        const SeenBox& report = answerer.seen[2];
        QCOMPARE(report.text, QStringLiteral("Images cropped successfully."));
        QCOMPARE(report.icon, QMessageBox::Information);
        QCOMPARE(report.buttonsLeftToRight, QStringList({"Show in Folder", "OK"}));
        QCOMPARE(report.informativeText, QStringLiteral("5 images: 4 written, 1 kept as it was"));
        QCOMPARE(report.details, "Skipped: " + sources[3] + " (" + out + "/" + kFiles[3].output +
                                     " already exists and was kept)");

        // The kept file is as it was; every other output is its source's
        // region, pixel for pixel as ImageMagick decodes both.
        QCOMPARE(QImage(out + "/" + kFiles[3].output), old);
        const auto keptSize =
            vellumo::test::MagickIdentifySize((out + "/" + kFiles[3].output).toStdString());
        QCOMPARE(keptSize.width, 40);
        QCOMPARE(keptSize.height, 30);
        for (int i : {0, 1, 2, 4}) {
            const Expected& file = kFiles[i];
            const QString written = out + "/" + file.output;
            const auto size = vellumo::test::MagickIdentifySize(written.toStdString());
            QCOMPARE(size.width, file.width);
            QCOMPARE(size.height, file.height);
            const auto got = Pixels(written, "");
            const auto want = Pixels(
                sources[i], "-auto-orient -crop " + std::to_string(file.width) + "x" +
                                std::to_string(file.height) + "+" + std::to_string(file.left) +
                                "+" + std::to_string(file.top) + " +repage");
            QCOMPARE(got.size(), want.size());
            QCOMPARE(got.size(), std::size_t(file.width) * file.height * 3);
            int worst = 0;
            for (std::size_t j = 0; j < got.size(); ++j) {
                worst = std::max(worst, std::abs(int(got[j]) - int(want[j])));
            }
            QVERIFY2(worst <= 1, qPrintable(QString("%1: off by %2").arg(file.source).arg(worst)));
        }
        QCOMPARE(QDir(out).entryList(QDir::Files).size(), 5);
    }
};

QTEST_MAIN(EndToEndTest)
#include "EndToEndTest.moc"
