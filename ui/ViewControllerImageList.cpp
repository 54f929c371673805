// The image list: adding through the open panel, removing, and the table.

#include "ui/CropPreviewView.h"
#include "ui/ImagePaths.h"
#include "ui/ViewController.h"

namespace vellumo {

namespace {

constexpr char kNoImagesChosen[] = "The images could not be loaded.";
constexpr char kRemoveAllQuestion[] =
    "Are you sure you want to remove all the images from the list?";

}  // namespace

void ViewController::OnAddImages() {
    OpenPanelRequest request;
    request.allowsMultipleSelection = true;
    request.canChooseDirectories = false;
    request.canCreateDirectories = false;
    request.canChooseFiles = true;
    request.allowedFileTypes = OpenPanelImageExtensions();
    request.memoryKey = QStringLiteral("addImages");

    const OpenPanelResult chosen = services_.runOpenPanel(request);
    if (!chosen) {
        return;
    }
    if (chosen->isEmpty()) {
        services_.showMessageBox(NoticeRequest(QString::fromLatin1(kNoImagesChosen)));
        return;
    }
    // Each path is compared with the list as it has grown so far, so a path
    // is never added twice, not even within one choice. Files are not opened
    // here: an unreadable image is found when it is previewed or cropped.
    for (const QString& path : *chosen) {
        if (path.isEmpty() || ListContainsPath(listImagePaths_, path)) {
            continue;
        }
        listImagePaths_.append(path);
    }
    tableViewImage->ReloadData();
    ClearImageListSelection();
}

void ViewController::OnRemoveSelected() {
    if (listImagePaths_.isEmpty()) {
        return;
    }
    const int row = tableViewImage->SelectedRow();
    if (row >= 0 && row < listImagePaths_.size()) {
        listImagePaths_.removeAt(row);
        tableViewImage->ReloadData();
        ClearImageListSelection();
    }
    EmptyPreview();
}

void ViewController::OnRemoveAll() {
    if (listImagePaths_.isEmpty()) {
        return;
    }
    const MessageBoxRequest question{QString::fromLatin1(kRemoveAllQuestion),
                                     MessageBoxStyle::Warning,
                                     {QStringLiteral("Yes"), QStringLiteral("No")}};
    if (services_.showMessageBox(question) == kFirstButtonAnswer + 1) {
        return;
    }
    listImagePaths_.clear();
    tableViewImage->ReloadData();
    ClearImageListSelection();
    EmptyPreview();
}

void ViewController::RefreshImageList() {
    tableViewImage->ReloadData();
    ClearImageListSelection();
}

void ViewController::ClearImageListSelection() {
    // A preview still being decoded belongs to a selection that is over.
    ++selectionCount_;
    imageViewCropPreview->SetBusy(false);
    currentImage_ = Image();
    previewPicture_ = Image();
    EmptyPreview();
    UpdateImageSize();
}

}  // namespace vellumo
