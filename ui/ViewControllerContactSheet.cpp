// The image list as a contact sheet, and the thumbnails both views of the
// list show.
//
// The window's list area is a stack of two views over one model and one
// selection: the table and the contact sheet. A checkable pair of commands
// (View menu, Ctrl+1 and Ctrl+2, and two small buttons over the list)
// chooses which one shows. Thumbnails are made by one loader, away from the
// GUI thread, with the decoder the previews use; the view on show asks for
// those of its visible rows first.

#include <QAction>
#include <QActionGroup>
#include <QFile>
#include <QPointer>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTimer>
#include <QToolButton>
#include <cmath>

#include "batch/CropRectangle.h"
#include "ui/ViewController.h"
#include "ui/list/ImageList.h"
#include "ui/sheet/ContactSheetCellDelegate.h"
#include "ui/sheet/ContactSheetView.h"
#include "ui/sheet/ViewModeIcons.h"
#include "ui/thumbnails/ThumbnailLoader.h"
#include "ui_MainWindow.h"
#include "worker/WorkerImageProcessor.h"

namespace vellumo {

namespace {

// The row icon's box, in logical pixels, a little larger than the table
// draws it so that it stays sharp.
constexpr int kRowIconSide = 24;

}  // namespace

// What the contact sheet adds to the window, and the thumbnails.
class ContactSheetParts : public QObject {
  public:
    ContactSheetParts(ViewController& controller, std::shared_ptr<PreviewDecoder> decoder)
        : QObject(&controller), loader(std::move(decoder)) {
        tableWishes.setSingleShot(true);
        tableWishes.setInterval(0);
    }
    ~ContactSheetParts() override {
        // The window may outlive the controller.
        if (!sheet.isNull()) {
            sheet->SetCellCropProvider({});
            sheet->SetThumbnailLoader(nullptr);
        }
        if (!model.isNull()) {
            model->SetThumbnailIcons({});
        }
    }

    ThumbnailLoader loader;
    QPointer<ImageList> model;
    QPointer<ContactSheetView> sheet;
    // Gathers the table's reasons to ask for thumbnails (scrolled, resized,
    // rows changed) into one wish per turn of the event loop.
    QTimer tableWishes;
};

void ViewController::ConnectContactSheet() {
    // Thumbnails have workers of their own, at the lowest priority: making
    // them ahead never slows the preview a person is waiting for. Replacing
    // the previews' decoder (tests do) leaves the thumbnails' as it is.
    contactSheet_ = new ContactSheetParts(
        *this, std::make_shared<WorkerPreviewDecoder>(WorkerLimits::Background()));
    ContactSheetParts& parts = *contactSheet_;
    parts.model = imageList_;
    parts.sheet = ui_->contactSheetImages;

    ContactSheetView& sheet = *ui_->contactSheetImages;
    ThumbnailLoader& loader = parts.loader;
    const qreal ratio = sheet.devicePixelRatioF();
    loader.SetBoxes(
        ThumbnailBoxes{static_cast<int>(std::ceil(ContactSheetCellDelegate::kPictureSide * ratio)),
                       static_cast<int>(std::ceil(kRowIconSide * ratio)), ratio});

    sheet.PairWith(*ui_->tableViewImage);
    sheet.SetThumbnailLoader(&loader);
    sheet.SetCellCropProvider([this](const QString& path, Size fullSize) {
        return ContactSheetCellCrop(path, fullSize);
    });
    imageList_->SetThumbnailIcons([&loader](const QString& path) {
        const Thumbnail* thumbnail = loader.Find(path);
        return thumbnail != nullptr ? thumbnail->rowIcon : QImage();
    });
    connect(&loader, &ThumbnailLoader::thumbnailChanged, imageList_, &ImageList::ThumbnailChanged);
    connect(&sheet, &ContactSheetView::deletePressed, this, &ViewController::OnRemoveSelected);
    ConnectViewChoice();
    ConnectTableThumbnails();
}

void ViewController::ConnectViewChoice() {
    ContactSheetParts& parts = *contactSheet_;
    ContactSheetView& sheet = *ui_->contactSheetImages;
    // Which view shows.
    auto* views = new QActionGroup(&parts);
    views->setExclusive(true);
    views->addAction(ui_->actionShowList);
    views->addAction(ui_->actionShowContactSheet);
    ui_->actionShowList->setChecked(true);
    ui_->actionShowList->setIcon(ListModeIcon(sheet.palette()));
    ui_->actionShowContactSheet->setIcon(ContactSheetModeIcon(sheet.palette()));
    ui_->buttonShowList->setDefaultAction(ui_->actionShowList);
    ui_->buttonShowContactSheet->setDefaultAction(ui_->actionShowContactSheet);
    ui_->stackImageViews->setCurrentWidget(ui_->tableViewImage);
    connect(ui_->actionShowContactSheet, &QAction::toggled, this, [this](bool sheetShown) {
        QWidget* shown =
            sheetShown ? static_cast<QWidget*>(ui_->contactSheetImages) : ui_->tableViewImage;
        QWidget* hidden =
            sheetShown ? static_cast<QWidget*>(ui_->tableViewImage) : ui_->contactSheetImages;
        const bool hadFocus = hidden->hasFocus();
        ui_->stackImageViews->setCurrentWidget(shown);
        if (hadFocus) {
            shown->setFocus();
        }
        // The current row stays in sight in the view that now shows.
        if (auto* view = qobject_cast<QAbstractItemView*>(shown)) {
            const QModelIndex current = view->selectionModel()->currentIndex();
            if (current.isValid()) {
                view->scrollTo(current);
            }
        }
        contactSheet_->tableWishes.start();
    });
}

void ViewController::ConnectTableThumbnails() {
    // The table asks for the thumbnails of its visible rows, then of the
    // next screen, whenever what it shows may have changed.
    QTimer& wishes = contactSheet_->tableWishes;
    connect(&wishes, &QTimer::timeout, this, [this] {
        ImageTableView& table = *ui_->tableViewImage;
        if (ui_->stackImageViews->currentWidget() != &table) {
            return;
        }
        const int rows = imageList_->rowCount();
        const int first = std::max(0, table.rowAt(0));
        int last = table.rowAt(table.viewport()->height() - 1);
        last = last < 0 ? rows - 1 : last;
        const int end = std::min(rows, last + 1 + (last - first + 1));
        QStringList paths;
        for (int row = first; row < end; ++row) {
            paths << imageList_->pathAt(row);
        }
        contactSheet_->loader.Want(paths);
    });
    const auto wish = [&wishes] { wishes.start(); };
    connect(ui_->tableViewImage->verticalScrollBar(), &QScrollBar::valueChanged, &wishes, wish);
    connect(ui_->tableViewImage->verticalScrollBar(), &QScrollBar::rangeChanged, &wishes, wish);
    connect(imageList_, &QAbstractItemModel::modelReset, &wishes, wish);
    connect(imageList_, &QAbstractItemModel::rowsInserted, &wishes, wish);
}

std::optional<CellCrop> ViewController::ContactSheetCellCrop(const QString& path,
                                                             Size fullSize) const {
    if (!(fullSize.width > 0.0) || !(fullSize.height > 0.0)) {
        return std::nullopt;
    }
    // The image's adjusted rectangle, or the crop rule as the settings
    // stand; a smart anchor, which needs each image's pixels, is shown
    // centred here.
    const ResolvedCrop crop = CropOfImage(settings_->Read(), path, fullSize);
    return CellCrop{crop.cut, crop.outputSize, crop.adjusted};
}

void ViewController::RefreshContactSheet() {
    if (contactSheet_ != nullptr) {
        ui_->contactSheetImages->RefreshCells();
    }
}

}  // namespace vellumo
