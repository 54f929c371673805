// The image list: adding through the file dialog, duplicates, removing, and
// the table's rows with their file-kind icons.

#include <QAbstractItemDelegate>
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include "tests/gui/support/LoadedWindow.h"
#include "tests/gui/support/SizedImage.h"
#include "ui/dialogs/ListQuestions.h"
#include "ui/dialogs/MessageBox.h"
#include "ui/list/FileKindIcons.h"
#include "ui/list/ImageTableView.h"
#include "ui/preview/CropPreviewView.h"

using vellumo::CropPreviewView;
using vellumo::ImageTableView;
using vellumo::kRemoveAllNo;
using vellumo::kRemoveAllYes;
using vellumo::MessageBoxRequest;
using vellumo::MessageBoxStyle;
using vellumo::ViewController;
using vellumo::test::LoadedWindow;

namespace {

QImage IconPixels(const QIcon& icon) {
    return icon.pixmap(QSize(32, 32)).toImage().convertToFormat(QImage::Format_ARGB32);
}

// The icon the table shows for a path, drawn; a null image for no icon.
QImage RowIcon(LoadedWindow& loaded, const QString& path) {
    loaded.AddImages({path});
    auto& table = loaded.Control<ImageTableView>("tableViewImage");
    const int row = static_cast<int>(loaded.imageList().paths().indexOf(path));
    const QVariant decoration = table.model()->index(row, 0).data(Qt::DecorationRole);
    if (!decoration.isValid()) {
        return {};
    }
    return IconPixels(decoration.value<QIcon>());
}

bool HasVisiblePixels(const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 0) {
                return true;
            }
        }
    }
    return false;
}

void ShowSomethingInThePreview(LoadedWindow& loaded) {
    loaded.preview().SetImage(vellumo::test::SizedImage(4000, 3000));
    loaded.controller().UpdateImageSize();
    loaded.Control<CropPreviewView>("imageViewCropPreview")
        .SetImage(QImage(40, 30, QImage::Format_RGB32));
    QCOMPARE(loaded.Control<QLabel>("labelOriginalDimensionsWidth").text(), "Width: 4000");
}

void VerifyPreviewEmptied(LoadedWindow& loaded) {
    QVERIFY(loaded.preview().image().IsEmpty());
    QVERIFY(loaded.Control<CropPreviewView>("imageViewCropPreview").image().isNull());
    QCOMPARE(loaded.Control<QLabel>("labelOriginalDimensionsWidth").text(), "Width: 0");
    QCOMPARE(loaded.Control<QLabel>("labelOriginalDimensionsHeight").text(), "Height: 0");
    QCOMPARE(loaded.Control<QLabel>("labelOutputDimensionsWidth").text(), "Width: 0");
    QCOMPARE(loaded.Control<QLabel>("labelOutputDimensionsHeight").text(), "Height: 0");
}

QStringList TableRows(LoadedWindow& loaded) {
    auto& table = loaded.Control<ImageTableView>("tableViewImage");
    QStringList rows;
    for (int row = 0; row < table.model()->rowCount(); ++row) {
        rows << table.model()->index(row, 0).data().toString();
    }
    return rows;
}

void SelectRow(LoadedWindow& loaded, int row) {
    auto& table = loaded.Control<ImageTableView>("tableViewImage");
    table.selectRow(row);
    QCOMPARE(table.SelectedRow(), row);
}

}  // namespace

class ImageListTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    // The model on its own, without a window.
    void theListRefusesDuplicatesAndAnnouncesItsRows() {
        vellumo::ImageList list;
        QSignalSpy inserted(&list, &QAbstractItemModel::rowsInserted);
        QSignalSpy removed(&list, &QAbstractItemModel::rowsRemoved);
        list.Append({"/p/a.jpg", "/p/b.png", "/p/a.jpg"});
        list.Append({"/p/b.png", "/p/c.gif"});
        QCOMPARE(list.paths(), QStringList({"/p/a.jpg", "/p/b.png", "/p/c.gif"}));
        QCOMPARE(list.rowCount(), 3);
        QCOMPARE(inserted.size(), 2);
        QCOMPARE(list.index(2, 0).data().toString(), QStringLiteral("/p/c.gif"));

        list.MarkUnreadable("/p/b.png", "broken");
        QCOMPARE(list.RemoveRows({0, 1}), QStringList({"/p/b.png", "/p/a.jpg"}));
        QCOMPARE(list.paths(), QStringList({"/p/c.gif"}));
        QCOMPARE(removed.size(), 2);
        // A file that left the list starts afresh when it comes back.
        list.Append({"/p/b.png"});
        QCOMPARE(list.UnreadableReason("/p/b.png"), QString());
        QCOMPARE(list.CountText(2), QStringLiteral("2 images, 2 selected"));
    }

    void theListTakesDroppedFilesBetweenRowsOnly() {
        QTemporaryDir dir;
        const QString png = dir.filePath("new.png");
        const QString text = dir.filePath("notes.txt");
        for (const QString& path : {png, text}) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        vellumo::ImageList list;
        list.Append({"/p/a.jpg", "/p/b.jpg"});
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(png), QUrl::fromLocalFile(text),
                      QUrl::fromLocalFile(dir.filePath("gone.png"))});
        QCOMPARE(list.mimeTypes(), QStringList({"text/uri-list"}));
        QVERIFY(!list.canDropMimeData(&data, Qt::CopyAction, -1, -1, list.index(0, 0)));
        QVERIFY(!list.canDropMimeData(&data, Qt::MoveAction, 1, 0, QModelIndex()));
        QVERIFY(list.canDropMimeData(&data, Qt::CopyAction, 1, 0, QModelIndex()));
        // Only the existing file of an accepted kind is inserted, where dropped.
        QVERIFY(list.dropMimeData(&data, Qt::CopyAction, 1, 0, QModelIndex()));
        QCOMPARE(list.paths(), QStringList({"/p/a.jpg", png, "/p/b.jpg"}));
        // Dropped again, it is already listed.
        QVERIFY(list.dropMimeData(&data, Qt::CopyAction, 3, 0, QModelIndex()));
        QCOMPARE(list.rowCount(), 3);
    }

    void addingAsksForSeveralImageFilesOfTheTenExtensions() {
        LoadedWindow loaded;
        loaded.AddImages({"/pics/a.jpg"});
        QCOMPARE(loaded.openDialogs.size(), 1u);
        const vellumo::OpenFilesRequest& request = loaded.openDialogs.front();
        QVERIFY(request.allowsMultipleSelection);
        QVERIFY(request.canChooseFiles);
        QVERIFY(!request.canChooseDirectories);
        QVERIFY(!request.canCreateDirectories);
        // The outputs' extensions in their order, then those only read.
        QCOMPARE(request.allowedFileTypes,
                 QStringList({"jpg", "jpeg", "jpe", "jp2", "jpx", "png", "tiff", "tif", "gif",
                              "bmp", "webp", "avif", "heic", "jxl", "heif"}));
    }

    void addingAppendsEachChoiceInNaturalOrderAndTheTableShowsFullPaths() {
        LoadedWindow loaded;
        loaded.AddImages({"/pics/b.png", "/pics/a.jpg"});
        loaded.AddImages({"/more/z.tif", "/more/c.gif", "/more/y.bmp"});
        const QStringList expected = {"/pics/a.jpg", "/pics/b.png", "/more/c.gif", "/more/y.bmp",
                                      "/more/z.tif"};
        QCOMPARE(loaded.imageList().paths(), expected);
        QCOMPARE(loaded.controller().imageCount(), 5);
        QCOMPARE(TableRows(loaded), expected);
        QVERIFY(loaded.boxes.empty());
    }

    void addingAPathAlreadyListedChangesNothingAndSaysNothing() {
        LoadedWindow loaded;
        loaded.AddImages({"/pics/a.jpg", "/pics/b.png"});
        loaded.AddImages({"/pics/b.png"});
        QCOMPARE(loaded.imageList().paths(), QStringList({"/pics/a.jpg", "/pics/b.png"}));
        // Within one choice too.
        loaded.AddImages({"/pics/c.png", "/pics/c.png", "/pics/a.jpg"});
        QCOMPARE(loaded.imageList().paths(),
                 QStringList({"/pics/a.jpg", "/pics/b.png", "/pics/c.png"}));
        QVERIFY(loaded.boxes.empty());
    }

    void numbersInNamesChosenTogetherCountAsNumbers() {
        LoadedWindow loaded;
        loaded.AddImages({"/s/p1.jpg", "/s/p10.jpg", "/s/p100.jpg", "/s/p2.jpg", "/s/p20.jpg"});
        QCOMPARE(loaded.imageList().paths(), QStringList({"/s/p1.jpg", "/s/p2.jpg", "/s/p10.jpg",
                                                          "/s/p20.jpg", "/s/p100.jpg"}));
        // A later choice still goes after the earlier ones.
        loaded.AddImages({"/s/p3.jpg"});
        QCOMPARE(loaded.imageList().paths().last(), QStringLiteral("/s/p3.jpg"));
    }

    void pathsThatDifferOnlyInCaseAreTwoEntries() {
        LoadedWindow loaded;
        loaded.AddImages({"/pics/Photo.jpg"});
        loaded.AddImages({"/pics/photo.jpg"});
        loaded.AddImages({"/Pics/Photo.jpg"});
        QCOMPARE(loaded.imageList().paths(),
                 QStringList({"/pics/Photo.jpg", "/pics/photo.jpg", "/Pics/Photo.jpg"}));
    }

    void canonicallyEquivalentSpellingsAreOneEntry() {
        LoadedWindow loaded;
        const QString precomposed = QString::fromUtf8("/pics/caf\u00e9.png");
        const QString decomposed = QString::fromUtf8("/pics/cafe\u0301.png");
        QVERIFY(precomposed != decomposed);
        loaded.AddImages({precomposed});
        loaded.AddImages({decomposed});
        QCOMPARE(loaded.imageList().paths(), QStringList({precomposed}));
        // Spellings of one file that are different texts stay two entries.
        loaded.AddImages({"/pics/../pics/caf\u00e9.png"});
        QCOMPARE(loaded.imageList().paths().size(), 2);
    }

    void anEmptyPathIsSkipped() {
        LoadedWindow loaded;
        loaded.AddImages({"", "/pics/a.jpg"});
        QCOMPARE(loaded.imageList().paths(), QStringList({"/pics/a.jpg"}));
    }

    void addingEmptiesThePreviewWhicheverRowIsSelected() {
        LoadedWindow loaded;
        loaded.AddImages({"/pics/a.jpg", "/pics/b.png", "/pics/c.gif"});
        SelectRow(loaded, 1);
        ShowSomethingInThePreview(loaded);

        loaded.AddImages({"/pics/d.bmp"});

        VerifyPreviewEmptied(loaded);
        // The selected row stays selected.
        QCOMPARE(loaded.Control<ImageTableView>("tableViewImage").SelectedRow(), 1);
    }

    void cancellingThePanelChangesNothing() {
        LoadedWindow loaded;
        loaded.AddImages({"/pics/a.jpg"});
        ShowSomethingInThePreview(loaded);
        loaded.openDialogAnswers.push_back(std::nullopt);
        loaded.controller().OnAddImages();
        QCOMPARE(loaded.imageList().paths(), QStringList({"/pics/a.jpg"}));
        QVERIFY(loaded.boxes.empty());
        QCOMPARE(loaded.Control<QLabel>("labelOriginalDimensionsWidth").text(), "Width: 4000");
    }

    void aPanelWithoutFilesSaysTheImagesCouldNotBeLoaded() {
        LoadedWindow loaded;
        loaded.AddImages({"/pics/a.jpg"});
        loaded.AddImages({});
        QCOMPARE(loaded.boxes.size(), 1u);
        QCOMPARE(loaded.boxes.front(),
                 (MessageBoxRequest{
                     "The images could not be loaded.", MessageBoxStyle::Warning, {"OK"}}));
        QCOMPARE(loaded.imageList().paths(), QStringList({"/pics/a.jpg"}));
    }

    void removeSelectedRemovesTheSelectedRow() {
        LoadedWindow loaded;
        loaded.AddImages({"/pics/a.jpg", "/pics/b.png", "/pics/c.gif"});
        SelectRow(loaded, 1);
        ShowSomethingInThePreview(loaded);

        loaded.Control<QPushButton>("buttonRemoveSelected").click();

        QCOMPARE(loaded.imageList().paths(), QStringList({"/pics/a.jpg", "/pics/c.gif"}));
        QCOMPARE(TableRows(loaded), QStringList({"/pics/a.jpg", "/pics/c.gif"}));
        VerifyPreviewEmptied(loaded);
    }

    void rowsAreSelectedWithCtrlShiftAndCtrlAAndDeleteRemovesThemAll() {
        LoadedWindow loaded;
        loaded.Show();
        loaded.AddImages({"/p/1.jpg", "/p/2.jpg", "/p/3.jpg", "/p/4.jpg", "/p/5.jpg", "/p/6.jpg"});
        auto& table = loaded.Control<ImageTableView>("tableViewImage");
        auto click = [&](int row, Qt::KeyboardModifiers modifiers) {
            QTest::mouseClick(table.viewport(), Qt::LeftButton, modifiers,
                              table.visualRect(table.model()->index(row, 0)).center());
        };
        click(0, Qt::NoModifier);
        click(2, Qt::ControlModifier);
        click(4, Qt::ShiftModifier);  // from row 2 to row 4
        QCOMPARE(table.SelectedRows(), QList<int>({0, 2, 3, 4}));
        QCOMPARE(loaded.Control<QLabel>("labelImageCount").text(), "6 images, 4 selected");

        table.setFocus();
        QTest::keyClick(&table, Qt::Key_Delete);
        QCOMPARE(loaded.imageList().paths(), QStringList({"/p/2.jpg", "/p/6.jpg"}));
        QCOMPARE(TableRows(loaded), QStringList({"/p/2.jpg", "/p/6.jpg"}));
        QCOMPARE(loaded.Control<QLabel>("labelImageCount").text(), "2 images");
        VerifyPreviewEmptied(loaded);

        QTest::keyClick(&table, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(table.SelectedRows(), QList<int>({0, 1}));
        loaded.Control<QPushButton>("buttonRemoveSelected").click();
        QVERIFY(loaded.imageList().paths().isEmpty());
        QCOMPARE(loaded.Control<QLabel>("labelImageCount").text(), "No images");
        QVERIFY(loaded.boxes.empty());
    }

    void theCountUnderTheListFollowsEveryChange() {
        LoadedWindow loaded;
        auto& count = loaded.Control<QLabel>("labelImageCount");
        QCOMPARE(count.text(), "No images");
        loaded.AddImages({"/p/a.jpg"});
        QCOMPARE(count.text(), "1 image");
        QStringList many;
        for (int i = 0; i < 120; ++i) {
            many << QStringLiteral("/p/%1.png").arg(i);
        }
        loaded.AddImages(many);
        QCOMPARE(count.text(), "121 images");
        loaded.controller().OnRemoveAll();
        QCOMPARE(count.text(), "No images");
    }

    void newWithImagesListedAsksAsRemoveAllDoes() {
        LoadedWindow loaded;
        loaded.AddImages({"/pics/a.jpg", "/pics/b.png"});
        loaded.Control<QLineEdit>("textFieldName").setText("kept");
        loaded.boxAnswers.push_back(kRemoveAllNo);
        loaded.Control<QAction>("actionNew").trigger();
        QCOMPARE(loaded.boxes.size(), 1u);
        QCOMPARE(loaded.boxes.front(),
                 (MessageBoxRequest{"Are you sure you want to remove all the images from the list?",
                                    MessageBoxStyle::Warning,
                                    {"Yes", "No"}}));
        QCOMPARE(loaded.imageList().paths().size(), 2);
        QCOMPARE(loaded.Control<QLineEdit>("textFieldName").text(), "kept");

        loaded.boxAnswers.push_back(kRemoveAllYes);
        loaded.Control<QAction>("actionNew").trigger();
        QVERIFY(loaded.imageList().paths().isEmpty());
        QCOMPARE(loaded.Control<QLineEdit>("textFieldName").text(),
                 "[FileName]_cropped ([FileIndex])");

        // With nothing listed, New asks nothing.
        loaded.Control<QAction>("actionNew").trigger();
        QCOMPARE(loaded.boxes.size(), 2u);
    }

    void removeSelectedWithNoRowKeepsTheListButEmptiesThePreview() {
        LoadedWindow loaded;
        loaded.AddImages({"/pics/a.jpg", "/pics/b.png"});
        QCOMPARE(loaded.Control<ImageTableView>("tableViewImage").SelectedRow(), -1);
        loaded.Control<CropPreviewView>("imageViewCropPreview")
            .SetImage(QImage(40, 30, QImage::Format_RGB32));

        loaded.controller().OnRemoveSelected();

        QCOMPARE(loaded.imageList().paths(), QStringList({"/pics/a.jpg", "/pics/b.png"}));
        QVERIFY(loaded.Control<CropPreviewView>("imageViewCropPreview").image().isNull());
    }

    void removeSelectedOnAnEmptyListDoesNothingAtAll() {
        LoadedWindow loaded;
        loaded.Control<CropPreviewView>("imageViewCropPreview")
            .SetImage(QImage(40, 30, QImage::Format_RGB32));
        loaded.controller().OnRemoveSelected();
        QVERIFY(!loaded.Control<CropPreviewView>("imageViewCropPreview").image().isNull());
    }

    void removeAllOnAnEmptyListAsksNothing() {
        LoadedWindow loaded;
        loaded.Control<QPushButton>("buttonRemoveAll").click();
        QVERIFY(loaded.boxes.empty());
    }

    void removeAllAnsweredNoKeepsEveryEntry() {
        LoadedWindow loaded;
        loaded.AddImages({"/pics/a.jpg", "/pics/b.png"});
        ShowSomethingInThePreview(loaded);
        loaded.boxAnswers.push_back(kRemoveAllNo);

        loaded.Control<QPushButton>("buttonRemoveAll").click();

        QCOMPARE(loaded.boxes.size(), 1u);
        QCOMPARE(loaded.boxes.front(),
                 (MessageBoxRequest{"Are you sure you want to remove all the images from the list?",
                                    MessageBoxStyle::Warning,
                                    {"Yes", "No"}}));
        QCOMPARE(loaded.imageList().paths(), QStringList({"/pics/a.jpg", "/pics/b.png"}));
        QCOMPARE(TableRows(loaded).size(), 2);
        QCOMPARE(loaded.Control<QLabel>("labelOriginalDimensionsWidth").text(), "Width: 4000");
    }

    void removeAllAnsweredYesEmptiesListAndPreview() {
        LoadedWindow loaded;
        loaded.AddImages({"/pics/a.jpg", "/pics/b.png"});
        ShowSomethingInThePreview(loaded);
        loaded.boxAnswers.push_back(kRemoveAllYes);

        loaded.controller().OnRemoveAll();

        QVERIFY(loaded.imageList().paths().isEmpty());
        QVERIFY(TableRows(loaded).isEmpty());
        VerifyPreviewEmptied(loaded);
    }

    void theIconFollowsTheLowerCasedExtension_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("icon");
        QTest::newRow("jpg") << "/p/a.jpg"
                             << "JPG";
        QTest::newRow("JPEG in capitals") << "/p/b.JPEG"
                                          << "JPG";
        QTest::newRow("jpe") << "/p/c.jpe"
                             << "JPG";
        QTest::newRow("jp2") << "/p/d.jp2"
                             << "JP2";
        QTest::newRow("jpx") << "/p/e.Jpx"
                             << "JP2";
        QTest::newRow("png") << "/p/f.png"
                             << "PNG";
        QTest::newRow("tiff") << "/p/g.tiff"
                              << "TIF";
        QTest::newRow("TIF in capitals") << "/p/h.TIF"
                                         << "TIF";
        QTest::newRow("gif") << "/p/i.gif"
                             << "GIF";
        QTest::newRow("bmp") << "/p/j.BMP"
                             << "BMP";
        QTest::newRow("heic") << "/p/k.HEIC"
                              << "HEIC";
        QTest::newRow("heif") << "/p/l.heif"
                              << "HEIC";
        QTest::newRow("avif") << "/p/m.avif"
                              << "AVIF";
        QTest::newRow("webp") << "/p/n.webp"
                              << "WEBP";
        QTest::newRow("jxl") << "/p/o.jxl"
                             << "JXL";
    }

    void theIconFollowsTheLowerCasedExtension() {
        QFETCH(QString, path);
        QFETCH(QString, icon);
        LoadedWindow loaded;
        const QImage shown = RowIcon(loaded, path);
        QVERIFY(!shown.isNull());
        QCOMPARE(shown, IconPixels(vellumo::FileKindIcon(icon)));
    }

    void aPathWithoutAKnownExtensionGetsNoIcon_data() {
        QTest::addColumn<QString>("path");
        QTest::newRow("no extension") << "/p/photo";
        QTest::newRow("another extension") << "/p/notes.txt";
        QTest::newRow("a dot in a folder only") << "/p.jpg/photo";
    }

    void aPathWithoutAKnownExtensionGetsNoIcon() {
        QFETCH(QString, path);
        LoadedWindow loaded;
        QVERIFY(RowIcon(loaded, path).isNull());
        QCOMPARE(TableRows(loaded), QStringList({path}));
    }

    void theTenIconsAreDrawnAndDiffer() {
        LoadedWindow loaded;  // loads the resources
        QList<QImage> drawn;
        for (const char* name :
             {"JPG", "JP2", "PNG", "TIF", "GIF", "BMP", "HEIC", "AVIF", "WEBP", "JXL"}) {
            const QImage pixels = IconPixels(vellumo::FileKindIcon(name));
            QVERIFY2(HasVisiblePixels(pixels), name);
            for (const QImage& other : drawn) {
                QVERIFY2(pixels != other, name);
            }
            drawn << pixels;
        }
    }

    void theRowsAreDrawnByTheImagePathCell() {
        LoadedWindow loaded;
        auto& table = loaded.Control<ImageTableView>("tableViewImage");
        QCOMPARE(table.itemDelegate()->objectName(), QStringLiteral("ImagePathCellID"));
    }

    void addingThroughARealFileDialog() {
        QTemporaryDir folder;
        for (const char* name : {"a.png", "b.JPG", "notes.txt"}) {
            QFile file(folder.filePath(name));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        LoadedWindow loaded;
        loaded.controller().services() =
            vellumo::WindowServices::Desktop([&loaded]() -> QWidget* { return &loaded.window(); });
        loaded.Show();

        // The dialog is looked at and answered from inside its own modal loop;
        // it is always answered, so a failed check cannot leave it open.
        bool answered = false;
        QFileDialog::FileMode mode = QFileDialog::AnyFile;
        bool readOnly = false;
        QString filter;
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) {
                return;
            }
            mode = dialog->fileMode();
            readOnly = dialog->testOption(QFileDialog::ReadOnly);
            filter = dialog->nameFilters().join(' ');
            dialog->setDirectory(folder.path());
            dialog->selectFile(folder.filePath("b.JPG"));
            QMetaObject::invokeMethod(dialog, "accept");
            answered = true;
        });
        loaded.controller().OnAddImages();

        QVERIFY(answered);
        QCOMPARE(mode, QFileDialog::ExistingFiles);
        QVERIFY(readOnly);
        QVERIFY2(filter.contains("*.[jJ][pP][gG]") && filter.contains("*.[bB][mM][pP]"),
                 qPrintable(filter));
        QCOMPARE(loaded.imageList().paths(), QStringList({folder.filePath("b.JPG")}));
    }
};

QTEST_MAIN(ImageListTest)
#include "ImageListTest.moc"
