#include "ui/sheet/ContactSheetController.h"

#include <QAction>
#include <QActionGroup>
#include <QScrollBar>
#include <QStackedWidget>
#include <QToolButton>
#include <algorithm>
#include <cmath>

#include "ui/job/WorkerSettings.h"
#include "ui/list/ImageList.h"
#include "ui/sheet/ContactSheetCellDelegate.h"
#include "ui/sheet/ContactSheetView.h"
#include "ui/sheet/ViewModeIcons.h"
#include "ui_MainWindow.h"
#include "worker/WorkerImageProcessor.h"

namespace vellumo {

namespace {

// The row icon's box, in logical pixels, a little larger than the table
// draws it so that it stays sharp.
constexpr int kRowIconSide = 24;

}  // namespace

ContactSheetController::ContactSheetController(Ui::MainWindow& ui, ImageList& list,
                                               CropOfImage crops, QObject* parent)
    : QObject(parent),
      ui_(ui),
      list_(&list),
      sheet_(ui.contactSheetImages),
      crops_(std::move(crops)),
      // Replacing the previews' decoder (tests do) leaves the thumbnails'
      // as it is.
      loader_(std::make_shared<WorkerPreviewDecoder>(workersettings::Background())) {
    tableWishes_.setSingleShot(true);
    tableWishes_.setInterval(0);
    ContactSheetView& sheet = *ui_.contactSheetImages;
    const qreal ratio = sheet.devicePixelRatioF();
    loader_.SetBoxes(
        ThumbnailBoxes{static_cast<int>(std::ceil(ContactSheetCellDelegate::kPictureSide * ratio)),
                       static_cast<int>(std::ceil(kRowIconSide * ratio)), ratio});

    sheet.PairWith(*ui_.tableViewImage);
    sheet.SetThumbnailLoader(&loader_);
    sheet.SetCellCropProvider(
        [this](const QString& path, Size fullSize) { return CellCropOf(path, fullSize); });
    list.SetThumbnailIcons([this](const QString& path) {
        const Thumbnail* thumbnail = loader_.Find(path);
        return thumbnail != nullptr ? thumbnail->rowIcon : QImage();
    });
    connect(&loader_, &ThumbnailLoader::thumbnailChanged, &list, &ImageList::ThumbnailChanged);
    connect(&sheet, &ContactSheetView::deletePressed, this, &ContactSheetController::deletePressed);
    ConnectViewChoice();
    ConnectTableThumbnails();
}

ContactSheetController::~ContactSheetController() {
    if (!sheet_.isNull()) {
        sheet_->SetCellCropProvider({});
        sheet_->SetThumbnailLoader(nullptr);
    }
    if (!list_.isNull()) {
        list_->SetThumbnailIcons({});
    }
}

void ContactSheetController::ConnectViewChoice() {
    ContactSheetView& sheet = *ui_.contactSheetImages;
    // Which view shows.
    auto* views = new QActionGroup(this);
    views->setExclusive(true);
    views->addAction(ui_.actionShowList);
    views->addAction(ui_.actionShowContactSheet);
    ui_.actionShowList->setChecked(true);
    ui_.actionShowList->setIcon(ListModeIcon(sheet.palette()));
    ui_.actionShowContactSheet->setIcon(ContactSheetModeIcon(sheet.palette()));
    ui_.buttonShowList->setDefaultAction(ui_.actionShowList);
    ui_.buttonShowContactSheet->setDefaultAction(ui_.actionShowContactSheet);
    ui_.stackImageViews->setCurrentWidget(ui_.tableViewImage);
    connect(ui_.actionShowContactSheet, &QAction::toggled, this, &ContactSheetController::ShowView);
}

void ContactSheetController::ShowView(bool sheetShown) {
    QWidget* shown =
        sheetShown ? static_cast<QWidget*>(ui_.contactSheetImages) : ui_.tableViewImage;
    QWidget* hidden =
        sheetShown ? static_cast<QWidget*>(ui_.tableViewImage) : ui_.contactSheetImages;
    const bool hadFocus = hidden->hasFocus();
    ui_.stackImageViews->setCurrentWidget(shown);
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
    tableWishes_.start();
}

void ContactSheetController::ConnectTableThumbnails() {
    connect(&tableWishes_, &QTimer::timeout, this, &ContactSheetController::WantTableThumbnails);
    const auto wish = [this] { tableWishes_.start(); };
    QScrollBar* scrollBar = ui_.tableViewImage->verticalScrollBar();
    connect(scrollBar, &QScrollBar::valueChanged, &tableWishes_, wish);
    connect(scrollBar, &QScrollBar::rangeChanged, &tableWishes_, wish);
    connect(list_, &QAbstractItemModel::modelReset, &tableWishes_, wish);
    connect(list_, &QAbstractItemModel::rowsInserted, &tableWishes_, wish);
}

void ContactSheetController::WantTableThumbnails() {
    ImageTableView& table = *ui_.tableViewImage;
    if (ui_.stackImageViews->currentWidget() != &table || list_.isNull()) {
        return;
    }
    const int rows = list_->rowCount();
    const int first = std::max(0, table.rowAt(0));
    int last = table.rowAt(table.viewport()->height() - 1);
    last = last < 0 ? rows - 1 : last;
    const int end = std::min(rows, last + 1 + (last - first + 1));
    QStringList paths;
    for (int row = first; row < end; ++row) {
        paths << list_->pathAt(row);
    }
    loader_.Want(paths);
}

std::optional<CellCrop> ContactSheetController::CellCropOf(const QString& path,
                                                           Size fullSize) const {
    if (!(fullSize.width > 0.0) || !(fullSize.height > 0.0)) {
        return std::nullopt;
    }
    const ResolvedCrop crop = crops_(path, fullSize);
    return CellCrop{crop.cut, crop.outputSize, crop.adjusted};
}

void ContactSheetController::RefreshCells() {
    ui_.contactSheetImages->RefreshCells();
}

}  // namespace vellumo
