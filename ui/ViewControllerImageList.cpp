// The image list: adding through the file dialog, removing, and the table.

#include <QLabel>

#include "ui/ViewController.h"
#include "ui/dialogs/ListQuestions.h"
#include "ui/list/ImagePaths.h"
#include "ui/preview/CropAdjustmentStore.h"
#include "ui/preview/CropPreviewView.h"
#include "ui_MainWindow.h"

namespace vellumo {

namespace {

constexpr char kNoImagesChosen[] =
    QT_TRANSLATE_NOOP("vellumo::ViewController", "The images could not be loaded.");

}  // namespace

void ViewController::OnAddImages() {
    const OpenFilesResult chosen = services_.chooseFilesToOpen(AddImagesRequest());
    if (!chosen) {
        return;
    }
    if (chosen->isEmpty()) {
        services_.showMessageBox(NoticeRequest(tr(kNoImagesChosen)));
        return;
    }
    // Files chosen together come in the order a person reads their names,
    // whatever order the dialog returns them in.
    QStringList paths = *chosen;
    SortInReadingOrder(paths);
    AppendImages(paths);
}

void ViewController::AppendImages(const QStringList& paths, const QStringList& folders) {
    imageList_->AddFolders(folders);
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
    return services_.showMessageBox(RemoveAllRequest()) != kRemoveAllNo;
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
    const auto selected = static_cast<int>(ui_->tableViewImage->SelectedRows().size());
    ui_->labelImageCount->setText(imageList_->CountText(selected));
}

void ViewController::OnListChanged() {
    ShowImageCount();
    settings_->SetListFromFolders(!imageList_->folders().isEmpty());
    ShowOutputName();
}

}  // namespace vellumo
