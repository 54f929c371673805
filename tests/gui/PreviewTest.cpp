// The preview of the selected image and the four dimension labels: what a
// selection shows, how it is decoded away from the GUI thread, and what the
// labels say in each crop mode.

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QStyle>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <memory>

#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/PictureFiles.h"
#include "tests/gui/support/RealImages.h"
#include "tests/gui/support/WindowDriving.h"
#include "tests/gui/support/Workers.h"
#include "tests/support/Commands.h"
#include "ui/controls/LatchingRadioButton.h"
#include "ui/dialogs/ListQuestions.h"
#include "ui/list/ImageTableView.h"
#include "ui/preview/CropPreviewView.h"
#include "ui/preview/PreviewPrefetch.h"
#include "ui/sheet/ContactSheetController.h"
#include "ui/thumbnails/ThumbnailLoader.h"

using vellumo::CropPreviewView;
using vellumo::ImageTableView;
using vellumo::LatchingRadioButton;
using vellumo::test::Click;
using vellumo::test::ClickRow;
using vellumo::test::GatedPreviewDecoder;
using vellumo::test::LabelText;
using vellumo::test::LoadedWindow;
using vellumo::test::PreviewPicture;
using vellumo::test::Type;

namespace {

QString AllLabels(LoadedWindow& loaded) {
    return LabelText(loaded, "labelOriginalDimensionsWidth") + " / " +
           LabelText(loaded, "labelOriginalDimensionsHeight") + " -> " +
           LabelText(loaded, "labelOutputDimensionsWidth") + " / " +
           LabelText(loaded, "labelOutputDimensionsHeight");
}

const QString kNoImageLabels = QStringLiteral("Width: 0 / Height: 0 -> Width: 0 / Height: 0");

// Clicks a row without waiting for its preview.
void PressRow(LoadedWindow& loaded, int row) {
    auto& table = loaded.Control<ImageTableView>("tableViewImage");
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
                      table.visualRect(table.model()->index(row, 0)).center());
}

QImage IconImage(const QIcon& icon) {
    return icon.pixmap(QSize(20, 20)).toImage().convertToFormat(QImage::Format_ARGB32);
}

}  // namespace

class PreviewTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void selectingThenDeselectingEmptiesThePreviewAndTheLabels() {
        QTemporaryDir dir;
        LoadedWindow loaded;
        loaded.Show();
        loaded.AddImages(
            {vellumo::test::Write(vellumo::test::Quarters(1000, 500), dir.filePath("a.png"))});
        ClickRow(loaded, 0);
        QVERIFY(!PreviewPicture(loaded).isNull());
        QCOMPARE(AllLabels(loaded),
                 QStringLiteral("Width: 1000 / Height: 500 -> Width: 1000 / Height: 500"));

        vellumo::test::DeselectRow(loaded, 0);
        QVERIFY(PreviewPicture(loaded).isNull());
        QCOMPARE(AllLabels(loaded), kNoImageLabels);
        QVERIFY(loaded.preview().image().IsEmpty());
    }

    void aPictureOfASmallerPointSizeIsShownAndMeasuredInPixels() {
        QTemporaryDir dir;
        // 4000 x 3000 pixels at 300 dots per inch: 960 x 720 points.
        QImage picture = vellumo::test::Quarters(4000, 3000);
        picture.setDotsPerMeterX(11811);
        picture.setDotsPerMeterY(11811);
        const QString path = vellumo::test::Write(picture, dir.filePath("dense.jpg"));
        const auto density =
            vellumo::test::RunCommand("identify -units PixelsPerInch -format '%x %y' " +
                                      vellumo::test::ShellQuote(path.toStdString()));
        QCOMPARE(QString::fromStdString(density.out), QStringLiteral("300 300"));

        LoadedWindow loaded;
        loaded.Show();
        loaded.AddImages({path});
        ClickRow(loaded, 0);
        QCOMPARE(AllLabels(loaded),
                 QStringLiteral("Width: 4000 / Height: 3000 -> Width: 4000 / Height: 3000"));
        QCOMPARE(loaded.preview().image().Width(), 4000.0);
        QCOMPARE(loaded.preview().image().Height(), 3000.0);
        // The picture is the whole image at the preview's size.
        const QImage shown = PreviewPicture(loaded);
        QVERIFY(shown.width() < 4000);
        QCOMPARE(shown.height(), (shown.width() * 3 + 2) / 4);
    }

    void aWidthOf2Point9Shows2AndLessThanAPixelShowsTheOriginal() {
        QTemporaryDir dir;
        LoadedWindow loaded;
        loaded.Show();
        loaded.AddImages(
            {vellumo::test::Write(vellumo::test::Quarters(1000, 500), dir.filePath("a.png"))});
        ClickRow(loaded, 0);
        auto& width = loaded.Control<QLineEdit>("textFieldCustomCropPixelsWidth");
        auto& height = loaded.Control<QLineEdit>("textFieldCustomCropPixelsHeight");
        Type(height, "100");
        Type(width, "2.9");
        QVERIFY(vellumo::test::WaitForPreview(loaded));
        QCOMPARE(AllLabels(loaded),
                 QStringLiteral("Width: 1000 / Height: 500 -> Width: 2 / Height: 100"));
        // 0.9 by 100 leaves less than a pixel: the image is kept whole.
        Type(width, "0.9");
        QCOMPARE(AllLabels(loaded),
                 QStringLiteral("Width: 1000 / Height: 500 -> Width: 1000 / Height: 500"));
    }

    void withNoUnitChosenTheImageIsShownWhole() {
        QTemporaryDir dir;
        LoadedWindow loaded;
        loaded.Show();
        loaded.AddImages(
            {vellumo::test::Write(vellumo::test::Quarters(1000, 500), dir.filePath("a.png")),
             vellumo::test::Write(vellumo::test::Plain(300, 200, Qt::black),
                                  dir.filePath("b.png"))});
        ClickRow(loaded, 0);
        Click(loaded.Control<LatchingRadioButton>("radioCustomCropPercents"));
        QCOMPARE(AllLabels(loaded),
                 QStringLiteral("Width: 1000 / Height: 500 -> Width: 600 / Height: 300"));

        // Custom crop with neither unit: only the program can get there.
        loaded.Control<LatchingRadioButton>("radioCustomCropPercents").setChecked(false);
        QVERIFY(loaded.Control<LatchingRadioButton>("radioCustomCrop").isChecked());
        QVERIFY(!loaded.Control<LatchingRadioButton>("radioCustomCropPixels").isChecked());
        ClickRow(loaded, 1);
        // The job writes the whole image: the labels, the picture and the
        // note say so.
        QCOMPARE(AllLabels(loaded),
                 QStringLiteral("Width: 300 / Height: 200 -> Width: 300 / Height: 200"));
        const QImage shown = PreviewPicture(loaded);
        QCOMPARE(shown.size(), QSize(300, 200));
        QCOMPARE(shown.pixelColor(150, 100), QColor(Qt::black));
        QCOMPARE(loaded.Control<QLabel>("labelPreviewNote").text(),
                 QStringLiteral("Whole image: neither pixels nor percents are chosen"));
    }

    void thePictureIsTheWholePhotoAndTheLabelsItsFullSize() {
        VELLUMO_QSKIP_WITHOUT_TESTDATA();
        LoadedWindow loaded;
        auto decoder = std::make_shared<GatedPreviewDecoder>();
        loaded.preview().SetDecoder(decoder);
        loaded.Show();
        loaded.AddImages({vellumo::test::RealImage("large/sky.jpg")});
        ClickRow(loaded, 0);
        QCOMPARE(AllLabels(loaded),
                 QStringLiteral("Width: 4080 / Height: 3072 -> Width: 4080 / Height: 3072"));

        // Decoded no larger than the preview can show.
        auto& view = loaded.Control<CropPreviewView>("imageViewCropPreview");
        QCOMPARE(decoder->maxSides().back(), view.LongestPictureSide());
        const QImage shown = PreviewPicture(loaded);
        QCOMPARE(shown.width(), view.LongestPictureSide());
        QVERIFY(std::abs(shown.height() - shown.width() * 3072.0 / 4080.0) <= 1.0);
        // Shown whole, as large as fits, its shape kept.
        const QRect drawn = view.ImageRect();
        QVERIFY(drawn.width() <= shown.width());
        QVERIFY(std::abs(drawn.width() / static_cast<double>(drawn.height()) - 4080.0 / 3072.0) <
                0.02);
        QVERIFY(drawn.height() >= view.height() - 14 || drawn.width() >= view.width() - 14);
    }

    void aSlowDecodeOfAnEarlierSelectionIsDropped() {
        QTemporaryDir dir;
        const QString slow =
            vellumo::test::Write(vellumo::test::Plain(800, 600, Qt::red), dir.filePath("slow.png"));
        const QString quick = vellumo::test::Write(vellumo::test::Plain(300, 200, Qt::blue),
                                                   dir.filePath("t-quick.png"));
        LoadedWindow loaded;
        auto decoder = std::make_shared<GatedPreviewDecoder>();
        loaded.preview().SetDecoder(decoder);
        loaded.Show();
        loaded.AddImages({slow, quick});

        decoder->Hold(slow.toStdString());
        PressRow(loaded, 0);
        QTRY_COMPARE(decoder->started(), 1);
        ClickRow(loaded, 1);
        QCOMPARE(AllLabels(loaded),
                 QStringLiteral("Width: 300 / Height: 200 -> Width: 300 / Height: 200"));

        // The slow picture comes back and is dropped.
        const quint64 arrived = loaded.preview().deliveries().decodes;
        decoder->Release(slow.toStdString());
        QTRY_COMPARE(loaded.preview().deliveries().decodes, arrived + 1);
        QCOMPARE(AllLabels(loaded),
                 QStringLiteral("Width: 300 / Height: 200 -> Width: 300 / Height: 200"));
        QCOMPARE(PreviewPicture(loaded).pixelColor(150, 100), QColor(Qt::blue));
    }

    // The row's thumbnail, made for the list, is shown at once in the size
    // of the picture being decoded, without a crop frame, until the picture
    // comes. A file decoded again keeps its sharp picture meanwhile.
    void theFilesThumbnailStandsInWhileItsPictureIsDecoded() {
        QTemporaryDir dir;
        const QString blue =
            vellumo::test::Write(vellumo::test::Plain(800, 600, Qt::blue), dir.filePath("a.png"));
        const QString red =
            vellumo::test::Write(vellumo::test::Plain(1200, 600, Qt::red), dir.filePath("b.png"));
        LoadedWindow loaded;
        auto decoder = std::make_shared<GatedPreviewDecoder>();
        loaded.preview().SetDecoder(decoder);
        loaded.Show();
        loaded.AddImages({blue, red});
        vellumo::ThumbnailLoader& thumbnails = loaded.controller().contactSheet()->thumbnails();
        QVERIFY(QTest::qWaitFor([&] { return thumbnails.Find(red) != nullptr; }, 60000));
        decoder->Hold(red.toStdString());
        ClickRow(loaded, 0);

        PressRow(loaded, 1);
        const auto& view = loaded.Control<CropPreviewView>("imageViewCropPreview");
        QTRY_COMPARE(PreviewPicture(loaded).pixelColor(10, 10), QColor(Qt::red));
        const QSize standIn = PreviewPicture(loaded).size();
        QVERIFY(loaded.preview().isPending());
        QVERIFY(!view.cropFrame().has_value());
        QCOMPARE(standIn.width(), 2 * standIn.height());

        decoder->Release(red.toStdString());
        QTRY_VERIFY(!loaded.preview().isPending());
        QCOMPARE(PreviewPicture(loaded).size(), standIn);
        QCOMPARE(PreviewPicture(loaded).pixelColor(standIn.width() / 2, standIn.height() / 2),
                 QColor(Qt::red));
        QVERIFY(view.cropFrame().has_value());

        QSignalSpy standIns(&loaded.preview(), &vellumo::PreviewSession::provisionalPicture);
        loaded.preview().prefetch().Clear();
        loaded.preview().Open(red, 300, {});
        QTRY_VERIFY(!loaded.preview().isPending());
        QCOMPARE(standIns.count(), 0);
    }

    void aDecodeIsDroppedWhenTheSelectionIsGone() {
        QTemporaryDir dir;
        const QString slow =
            vellumo::test::Write(vellumo::test::Plain(800, 600, Qt::red), dir.filePath("slow.png"));
        LoadedWindow loaded;
        auto decoder = std::make_shared<GatedPreviewDecoder>();
        loaded.preview().SetDecoder(decoder);
        loaded.Show();
        loaded.AddImages({slow});
        decoder->Hold(slow.toStdString());
        PressRow(loaded, 0);
        QTRY_COMPARE(decoder->started(), 1);
        vellumo::test::DeselectRow(loaded, 0);
        QVERIFY(!loaded.Control<CropPreviewView>("imageViewCropPreview").isBusy());
        const quint64 arrived = loaded.preview().deliveries().decodes;
        decoder->Release(slow.toStdString());
        QTRY_COMPARE(loaded.preview().deliveries().decodes, arrived + 1);
        QVERIFY(PreviewPicture(loaded).isNull());
        QCOMPARE(AllLabels(loaded), kNoImageLabels);
    }

    void theViewIsBusyWhileDecodingAndTheWindowStaysResponsive() {
        QTemporaryDir dir;
        const QString path =
            vellumo::test::Write(vellumo::test::Plain(800, 600, Qt::red), dir.filePath("slow.png"));
        LoadedWindow loaded;
        auto decoder = std::make_shared<GatedPreviewDecoder>();
        loaded.preview().SetDecoder(decoder);
        loaded.Show();
        loaded.AddImages({path});
        auto& view = loaded.Control<CropPreviewView>("imageViewCropPreview");
        const QImage idle = view.grab().toImage();

        decoder->Hold(path.toStdString());
        PressRow(loaded, 0);
        QVERIFY(view.isBusy());
        // The busy mark comes on a timer while the decode is held: the GUI
        // thread goes on with its events and is not waiting for it.
        QTRY_VERIFY(view.isShowingBusyMark());
        const QImage busy = view.grab().toImage();
        QVERIFY(busy.pixelColor(view.rect().center() + QPoint(0, -14)) !=
                idle.pixelColor(view.rect().center() + QPoint(0, -14)));

        decoder->Release(path.toStdString());
        QVERIFY(vellumo::test::WaitForPreview(loaded));
        QVERIFY(!view.isBusy());
        QVERIFY(!view.isShowingBusyMark());
        QCOMPARE(LabelText(loaded, "labelOriginalDimensionsWidth"), QStringLiteral("Width: 800"));
    }

    void anUndecodableFileClearsThePreviewAndMarksItsRow() {
        VELLUMO_QSKIP_WITHOUT_TESTDATA();
        QTemporaryDir dir;
        const QString good = vellumo::test::Write(vellumo::test::Plain(300, 200, Qt::blue),
                                                  dir.filePath("good.png"));
        const QString bad = dir.filePath("truncated.jpg");
        QVERIFY(QFile::copy(vellumo::test::RealImage("bad/truncated_jpeg.jpg"), bad));
        const QString text = dir.filePath("v-notes.png");
        {
            QFile file(text);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write("not a picture");
        }
        LoadedWindow loaded;
        loaded.Show();
        loaded.AddImages({good, bad, text});
        auto& table = loaded.Control<ImageTableView>("tableViewImage");
        const QImage jpgIcon =
            IconImage(table.model()->index(1, 0).data(Qt::DecorationRole).value<QIcon>());
        const QImage warning =
            IconImage(QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning));

        ClickRow(loaded, 0);
        QVERIFY(!PreviewPicture(loaded).isNull());
        for (int row : {1, 2}) {
            ClickRow(loaded, row);
            QVERIFY(PreviewPicture(loaded).isNull());
            QCOMPARE(AllLabels(loaded), kNoImageLabels);
            const QModelIndex index = table.model()->index(row, 0);
            QCOMPARE(IconImage(index.data(Qt::DecorationRole).value<QIcon>()), warning);
            const QString tip = index.data(Qt::ToolTipRole).toString();
            QVERIFY2(tip.startsWith(loaded.imageList().paths()[row] + "\nCannot be shown: ") &&
                         tip.size() > loaded.imageList().paths()[row].size() + 20,
                     qPrintable(tip));
        }
        QVERIFY2(table.model()->index(2, 0).data(Qt::ToolTipRole).toString().contains("text"),
                 qPrintable(table.model()->index(2, 0).data(Qt::ToolTipRole).toString()));

        // The program goes on; the good row is untouched and shows again.
        ClickRow(loaded, 0);
        QCOMPARE(LabelText(loaded, "labelOriginalDimensionsWidth"), QStringLiteral("Width: 300"));
        QCOMPARE(table.model()->index(0, 0).data(Qt::ToolTipRole).toString(), good);
        QVERIFY(IconImage(table.model()->index(0, 0).data(Qt::DecorationRole).value<QIcon>()) !=
                warning);

        // The mark goes with the file: listed anew, it starts afresh.
        loaded.boxAnswers.push_back(vellumo::kRemoveAllYes);
        loaded.controller().OnRemoveAll();
        loaded.AddImages({bad});
        QCOMPARE(IconImage(table.model()->index(0, 0).data(Qt::DecorationRole).value<QIcon>()),
                 jpgIcon);
        QCOMPARE(table.model()->index(0, 0).data(Qt::ToolTipRole).toString(), bad);
    }

    void aGrownPreviewGetsASharperPictureAndAShrunkOneKeepsIts() {
        QTemporaryDir dir;
        LoadedWindow loaded;
        auto decoder = std::make_shared<GatedPreviewDecoder>();
        loaded.preview().SetDecoder(decoder);
        loaded.Show();
        loaded.window().resize(1000, 700);
        loaded.AddImages(
            {vellumo::test::Write(vellumo::test::Quarters(4000, 2000), dir.filePath("wide.png"))});
        ClickRow(loaded, 0);
        auto& view = loaded.Control<CropPreviewView>("imageViewCropPreview");
        const int before = PreviewPicture(loaded).width();
        QCOMPARE(before, view.LongestPictureSide());
        QCOMPARE(decoder->started(), 1);

        loaded.window().resize(1600, 1100);
        QTRY_COMPARE(decoder->started(), 2);
        QVERIFY(vellumo::test::WaitForPreview(loaded));
        const int after = PreviewPicture(loaded).width();
        QVERIFY2(after > before, qPrintable(QStringLiteral("%1 -> %2").arg(before).arg(after)));
        QCOMPARE(after, view.LongestPictureSide());
        QCOMPARE(AllLabels(loaded),
                 QStringLiteral("Width: 4000 / Height: 2000 -> Width: 4000 / Height: 2000"));

        // Smaller again: the picture is only drawn smaller.
        const quint64 checks = loaded.preview().deliveries().sizeChecks;
        loaded.window().resize(1000, 700);
        QTRY_COMPARE(loaded.preview().deliveries().sizeChecks, checks + 1);
        QCOMPARE(decoder->started(), 2);
        QCOMPARE(PreviewPicture(loaded).width(), after);
    }

    void theLatestRefreshWins() {
        QTemporaryDir dir;
        LoadedWindow loaded;
        loaded.Show();
        loaded.AddImages({vellumo::test::Write(vellumo::test::Plain(1000, 500, Qt::black),
                                               dir.filePath("a.png"))});
        ClickRow(loaded, 0);
        auto& width = loaded.Control<QLineEdit>("textFieldCustomCropPixelsWidth");
        loaded.Control<QLineEdit>("textFieldCustomCropPixelsHeight").setText("500");
        // Many refreshes in a row, each drawn on a worker; the last counts.
        for (int i = 1; i <= 40; ++i) {
            Type(width, QString::number(i * 10));
        }
        QVERIFY(vellumo::test::WaitForPreview(loaded));
        const QImage shown = PreviewPicture(loaded);
        const double scale = shown.width() / 1000.0;
        QCOMPARE(shown.pixelColor(static_cast<int>(390 * scale), 10), QColor(Qt::black));
        QCOMPARE(shown.pixelColor(static_cast<int>(410 * scale), 10),
                 vellumo::test::Veiled(Qt::black));
        QCOMPARE(LabelText(loaded, "labelOutputDimensionsWidth"), QStringLiteral("Width: 400"));
    }
};

QTEST_MAIN(PreviewTest)
#include "PreviewTest.moc"
