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
    imageList_->Append(paths);
    ClearImageListSelection();
}

void ViewController::OnRemoveSelected() {
    if (imageList_->isEmpty()) {
        return;
    }
    const QList<int> rows = ui_->tableViewImage->SelectedRows();
    if (!rows.isEmpty()) {
        ui_->tableViewImage->clearSelection();
        cropAdjustments_->Forget(imageList_->RemoveRows(rows));
        ClearImageListSelection();
    }
    EmptyPreview();
}

bool ViewController::AgreeToEmptyTheList() {
    if (imageList_->isEmpty()) {
        return true;
    }
    const MessageBoxRequest question{QString::fromLatin1(kRemoveAllQuestion),
                                     MessageBoxStyle::Warning,
                                     {QStringLiteral("Yes"), QStringLiteral("No")}};
    return services_.showMessageBox(question) != kFirstButtonAnswer + 1;
}

void ViewController::OnRemoveAll() {
    if (imageList_->isEmpty() || !AgreeToEmptyTheList()) {
        return;
    }
    imageList_->Clear();
    cropAdjustments_->ReplaceAll({});
    ClearImageListSelection();
    EmptyPreview();
}

void ViewController::ShowImageCount() {
    const int count = imageList_->count();
    QString text = count == 0   ? QStringLiteral("No images")
                   : count == 1 ? QStringLiteral("1 image")
                                : QStringLiteral("%1 images").arg(count);
    const qsizetype selected = ui_->tableViewImage->SelectedRows().size();
    if (selected > 1) {
        text += QStringLiteral(", %1 selected").arg(selected);
    }
    ui_->labelImageCount->setText(text);
}

}  // namespace vellumo
