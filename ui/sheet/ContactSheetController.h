#pragma once

// The image list as a contact sheet, and the thumbnails both views of the
// list show.
//
// The window's list area is a stack of two views over one model (ImageList)
// and one selection: the table and the contact sheet. A checkable pair of
// commands (View menu, Ctrl+1 and Ctrl+2, and two small buttons over the
// list) chooses which one shows. Thumbnails are made by one loader, away
// from the GUI thread, in worker processes of their own at the lowest
// priority, so making them ahead never slows the preview a person is waiting
// for; the view on show asks for those of its visible rows first.

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <optional>

#include "batch/CropRectangle.h"
#include "ui/sheet/CellCrop.h"
#include "ui/thumbnails/ThumbnailLoader.h"

namespace Ui {
class MainWindow;
}

namespace vellumo {

class ContactSheetView;
class ImageList;

class ContactSheetController : public QObject {
    Q_OBJECT

  public:
    // What the job does with the image at `path` of `fullSize` upright
    // pixels under the settings as they are now.
    using CropOfImage = std::function<ResolvedCrop(const QString& path, Size fullSize)>;

    // Pairs the sheet of `ui` with its table over `list`, gives both views
    // their thumbnails and connects the list/sheet switch.
    ContactSheetController(Ui::MainWindow& ui, ImageList& list, CropOfImage crops,
                           QObject* parent = nullptr);
    // The window may outlive the controller: the views forget it.
    ~ContactSheetController() override;

    // The crop a cell shows for the file at `path`, of `fullSize` upright
    // pixels: the image's adjusted rectangle, or the crop rule as the
    // settings stand (a smart anchor, which needs each image's pixels, is
    // shown centred). The one place the sheet learns crops from.
    std::optional<CellCrop> CellCropOf(const QString& path, Size fullSize) const;
    // Every cell's crop worked out afresh (the settings changed).
    void RefreshCells();

    ThumbnailLoader& thumbnails() { return loader_; }

  Q_SIGNALS:
    // Delete (or Backspace) was pressed in the sheet.
    void deletePressed();

  private:
    void ConnectViewChoice();
    void ShowView(bool sheetShown);
    // The table asks for the thumbnails of its visible rows, then of the
    // next screen, whenever what it shows may have changed.
    void ConnectTableThumbnails();
    void WantTableThumbnails();

    Ui::MainWindow& ui_;
    QPointer<ImageList> list_;
    QPointer<ContactSheetView> sheet_;
    CropOfImage crops_;
    ThumbnailLoader loader_;
    // Gathers the table's reasons to ask for thumbnails (scrolled, resized,
    // rows changed) into one wish per turn of the event loop.
    QTimer tableWishes_;
};

}  // namespace vellumo
