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
#include "ui/list/ImageListModel.h"
#include "ui/sheet/ContactSheetCellDelegate.h"
#include "ui/sheet/ContactSheetView.h"
#include "ui/sheet/ViewModeIcons.h"
#include "ui/thumbnails/ThumbnailLoader.h"
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
        if (contactSheetImages.isConnected()) {
            contactSheetImages->SetDropDelegate(nullptr);
            contactSheetImages->SetCellCropProvider({});
            contactSheetImages->SetThumbnailLoader(nullptr);
        }
        if (!model.isNull()) {
            model->SetThumbnailIcons({});
        }
    }

    Outlet<QStackedWidget> stackImageViews{"stackImageViews"};
    Outlet<ContactSheetView> contactSheetImages{"contactSheetImages"};
    Outlet<QAction> actionShowList{"actionShowList"};
    Outlet<QAction> actionShowContactSheet{"actionShowContactSheet"};
    Outlet<QToolButton> buttonShowList{"buttonShowList"};
    Outlet<QToolButton> buttonShowContactSheet{"buttonShowContactSheet"};

    ThumbnailLoader loader;
    QPointer<ImageListModel> model;
    // Gathers the table's reasons to ask for thumbnails (scrolled, resized,
    // rows changed) into one wish per turn of the event loop.
    QTimer tableWishes;
};

void ViewController::ConnectContactSheet(QWidget& window) {
    // Thumbnails have workers of their own, at the lowest priority: making
    // them ahead never slows the preview a person is waiting for. Replacing
    // the previews' decoder (tests do) leaves the thumbnails' as it is.
    contactSheet_ = new ContactSheetParts(
        *this, std::make_shared<WorkerPreviewDecoder>(WorkerLimits::Background()));
    ContactSheetParts& parts = *contactSheet_;
    parts.stackImageViews.Connect(window);
    parts.contactSheetImages.Connect(window);
    parts.actionShowList.Connect(window);
    parts.actionShowContactSheet.Connect(window);
    parts.buttonShowList.Connect(window);
    parts.buttonShowContactSheet.Connect(window);
    parts.model = imageListModel_;

    ContactSheetView& sheet = *parts.contactSheetImages;
    ThumbnailLoader& loader = parts.loader;
    const qreal ratio = sheet.devicePixelRatioF();
    loader.SetBoxes(
        ThumbnailBoxes{static_cast<int>(std::ceil(ContactSheetCellDelegate::kPictureSide * ratio)),
                       static_cast<int>(std::ceil(kRowIconSide * ratio)), ratio});

    sheet.PairWith(*tableViewImage);
    sheet.RegisterForDraggedTypes({QStringLiteral("text/uri-list")});
    sheet.SetDropDelegate(this);
    sheet.SetThumbnailLoader(&loader);
    sheet.SetCellCropProvider([this](const QString& path, Size fullSize) {
        return ContactSheetCellCrop(path, fullSize);
    });
    imageListModel_->SetThumbnailIcons([&loader](const QString& path) {
        const Thumbnail* thumbnail = loader.Find(path);
        return thumbnail != nullptr ? thumbnail->rowIcon : QImage();
    });
    connect(&loader, &ThumbnailLoader::thumbnailChanged, imageListModel_,
            &ImageListModel::ThumbnailChanged);
    connect(&sheet, &ContactSheetView::deletePressed, this, &ViewController::OnRemoveSelected);

    // Which view shows.
    auto* views = new QActionGroup(&parts);
    views->setExclusive(true);
    views->addAction(parts.actionShowList.get());
    views->addAction(parts.actionShowContactSheet.get());
    parts.actionShowList->setChecked(true);
    parts.actionShowList->setIcon(ListModeIcon(sheet.palette()));
    parts.actionShowContactSheet->setIcon(ContactSheetModeIcon(sheet.palette()));
    parts.buttonShowList->setDefaultAction(parts.actionShowList.get());
    parts.buttonShowContactSheet->setDefaultAction(parts.actionShowContactSheet.get());
    parts.stackImageViews->setCurrentWidget(tableViewImage.get());
    connect(parts.actionShowContactSheet.get(), &QAction::toggled, this, [this](bool sheetShown) {
        QWidget* shown = sheetShown ? static_cast<QWidget*>(contactSheet_->contactSheetImages.get())
                                    : tableViewImage.get();
        QWidget* hidden = sheetShown ? static_cast<QWidget*>(tableViewImage.get())
                                     : contactSheet_->contactSheetImages.get();
        const bool hadFocus = hidden->hasFocus();
        contactSheet_->stackImageViews->setCurrentWidget(shown);
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

    // The table asks for the thumbnails of its visible rows, then of the
    // next screen, whenever what it shows may have changed.
    QTimer& wishes = parts.tableWishes;
    connect(&wishes, &QTimer::timeout, this, [this] {
        ImageTableView& table = *tableViewImage;
        if (contactSheet_->stackImageViews->currentWidget() != &table) {
            return;
        }
        const int rows = imageListModel_->rowCount();
        const int first = std::max(0, table.rowAt(0));
        int last = table.rowAt(table.viewport()->height() - 1);
        last = last < 0 ? rows - 1 : last;
        const int end = std::min(rows, last + 1 + (last - first + 1));
        QStringList paths;
        for (int row = first; row < end; ++row) {
            paths << listImagePaths_[row];
        }
        contactSheet_->loader.Want(paths);
    });
    const auto wish = [&wishes] { wishes.start(); };
    connect(tableViewImage->verticalScrollBar(), &QScrollBar::valueChanged, &wishes, wish);
    connect(tableViewImage->verticalScrollBar(), &QScrollBar::rangeChanged, &wishes, wish);
    connect(imageListModel_, &QAbstractItemModel::modelReset, &wishes, wish);
    connect(imageListModel_, &QAbstractItemModel::rowsInserted, &wishes, wish);
}

std::optional<CellCrop> ViewController::ContactSheetCellCrop(const QString& path,
                                                             Size fullSize) const {
    if (!(fullSize.width > 0.0) || !(fullSize.height > 0.0)) {
        return std::nullopt;
    }
    // The image's adjusted rectangle, or the crop rule as the settings
    // stand; a smart anchor, which needs each image's pixels, is shown
    // centred here.
    const ResolvedCrop crop = CropOfImage(CropSettingsFromControls(), path, fullSize);
    return CellCrop{crop.cut, crop.outputSize, crop.adjusted};
}

void ViewController::RefreshContactSheet() {
    if (contactSheet_ != nullptr) {
        contactSheet_->contactSheetImages->RefreshCells();
    }
}

}  // namespace vellumo
