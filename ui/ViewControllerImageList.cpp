// The image list: adding through the file dialog, removing, and the table.

#include <QLabel>

#include "ui/ViewController.h"
#include "ui/list/ImagePaths.h"
#include "ui/preview/CropAdjustmentStore.h"
#include "ui/preview/CropPreviewView.h"
#include "ui_MainWindow.h"

namespace vellumo {

namespace {

constexpr char kNoImagesChosen[] = "The images could not be loaded.";
constexpr char kRemoveAllQuestion[] =
    "Are you sure you want to remove all the images from the list?";

}  // namespace

void ViewController::OnAddImages() {
    OpenFilesRequest request;
    request.allowsMultipleSelection = true;
    request.canChooseDirectories = false;
    request.canCreateDirectories = false;
    request.canChooseFiles = true;
    request.allowedFileTypes = OpenFilesImageExtensions();
    request.memoryKey = QStringLiteral("addImages");

    const OpenFilesResult chosen = services_.chooseFilesToOpen(request);
    if (!chosen) {
        return;
    }
    if (chosen->isEmpty()) {
        services_.showMessageBox(NoticeRequest(QString::fromLatin1(kNoImagesChosen)));
        return;
    }
    // Files chosen together come in the order a person reads their names,
    // whatever order the dialog returns them in.
    QStringList paths = *chosen;
    SortInReadingOrder(paths);
    AppendImages(paths);
}

void ViewController::AppendImages(const QStringList& paths) {
    // Each path is compared with the list as it has grown so far, so a path
    // is never added twice, not even within one choice. Files are not opened
    // here: an unreadable image is found when it is previewed or cropped.
    AppendNewPaths(listImagePaths_, paths);
    ui_->tableViewImage->RefreshRows();
    ClearImageListSelection();
}

void ViewController::OnRemoveSelected() {
    if (listImagePaths_.isEmpty()) {
        return;
    }
    // Every selected row goes, from the last up so the row numbers hold.
    const QList<int> rows = ui_->tableViewImage->SelectedRows();
    if (!rows.isEmpty()) {
        QStringList removed;
        for (qsizetype k = rows.size(); k-- > 0;) {
            const int row = rows[k];
            if (row >= 0 && row < listImagePaths_.size()) {
                removed.push_back(listImagePaths_.takeAt(row));
            }
        }
        cropAdjustments_->Forget(removed);
        ui_->tableViewImage->clearSelection();
        ui_->tableViewImage->RefreshRows();
        ClearImageListSelection();
    }
    EmptyPreview();
}

bool ViewController::AgreeToEmptyTheList() {
    if (listImagePaths_.isEmpty()) {
        return true;
    }
    const MessageBoxRequest question{QString::fromLatin1(kRemoveAllQuestion),
                                     MessageBoxStyle::Warning,
                                     {QStringLiteral("Yes"), QStringLiteral("No")}};
    return services_.showMessageBox(question) != kFirstButtonAnswer + 1;
}

void ViewController::OnRemoveAll() {
    if (listImagePaths_.isEmpty() || !AgreeToEmptyTheList()) {
        return;
    }
    listImagePaths_.clear();
    cropAdjustments_->ReplaceAll({});
    ui_->tableViewImage->RefreshRows();
    ClearImageListSelection();
    EmptyPreview();
}

void ViewController::ShowImageCount() {
    const qsizetype count = listImagePaths_.size();
    QString text = count == 0   ? QStringLiteral("No images")
                   : count == 1 ? QStringLiteral("1 image")
                                : QStringLiteral("%1 images").arg(count);
    const qsizetype selected = ui_->tableViewImage->SelectedRows().size();
    if (selected > 1) {
        text += QStringLiteral(", %1 selected").arg(selected);
    }
    ui_->labelImageCount->setText(text);
}

void ViewController::RefreshImageList() {
    ui_->tableViewImage->RefreshRows();
    ClearImageListSelection();
}

void ViewController::ClearImageListSelection() {
    // A preview still being decoded belongs to a selection that is over.
    ++selectionCount_;
    ui_->imageViewCropPreview->SetBusy(false);
    currentImage_ = Image();
    previewPicture_ = Image();
    placementPicture_.reset();
    currentPages_ = 1;
    currentJpegGrid_.reset();
    EmptyPreview();
    UpdateImageSize();
}

}  // namespace vellumo
