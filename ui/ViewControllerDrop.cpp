// Image files dropped onto the table from outside the program.

#include <QFileInfo>
#include <QMimeData>
#include <QUrl>
#include <algorithm>

#include "imaging/Fatal.h"
#include "ui/ImagePaths.h"
#include "ui/ViewController.h"

namespace vellumo {

TableDragOperation ViewController::tableViewValidateDrop(ImageTableView&, const TableDragInfo& info,
                                                         int, TableDropOperation operation) {
    const QList<QUrl> urls = info.mimeData->urls();
    const bool carriesImageFile = std::any_of(urls.begin(), urls.end(), IsImageFileUrl);

    // Files go between rows, never onto one.
    if (operation == TableDropOperation::On) {
        return TableDragOperation::None;
    }
    // Rows are not dragged within or between tables, ours included.
    if (qobject_cast<const QAbstractItemView*>(info.source) != nullptr) {
        return TableDragOperation::None;
    }
    return carriesImageFile ? TableDragOperation::Move : TableDragOperation::None;
}

bool ViewController::tableViewAcceptDrop(ImageTableView& table, const TableDragInfo& info, int row,
                                         TableDropOperation) {
    // Every URL is looked at here, not only those that made the drag
    // acceptable; each must pass on its own.
    int insertionIndex = row;
    for (const QUrl& url : info.mimeData->urls()) {
        const QString path = url.toLocalFile();
        if (path.isEmpty() || !QFileInfo::exists(path)) {
            continue;
        }
        if (ListContainsPath(listImagePaths_, path)) {
            continue;
        }
        if (!acceptedExtensions_.contains(LowerCaseExtension(path))) {
            continue;
        }
        if (insertionIndex < 0 || insertionIndex > listImagePaths_.size()) {
            Fatal("a drop was placed outside the image list");
        }
        listImagePaths_.insert(insertionIndex, path);
        table.InsertRow(insertionIndex);
        ++insertionIndex;
    }
    // The drop counts as taken even when every file was skipped.
    return true;
}

}  // namespace vellumo
