// Image files dropped onto the table from outside the program.

#include <QAbstractItemView>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>
#include <algorithm>

#include "imaging/Fatal.h"
#include "ui/ViewController.h"
#include "ui/list/ImagePaths.h"

namespace vellumo {

namespace {

// A table, or the viewport of one (item views draw, and may start drags,
// from their viewport).
bool IsTable(const QObject* source) {
    if (source == nullptr) {
        return false;
    }
    if (qobject_cast<const QAbstractItemView*>(source) != nullptr) {
        return true;
    }
    const auto* view = qobject_cast<const QAbstractItemView*>(source->parent());
    return view != nullptr && view->viewport() == source;
}

}  // namespace

bool ViewController::canDropMimeData(ImageTableView&, const DragInfo& info, int,
                                     DropPosition operation) {
    const QList<QUrl> urls = info.mimeData->urls();
    const bool carriesImageFile = std::any_of(urls.begin(), urls.end(), IsImageFileUrl);

    // Files go between rows, never onto one.
    if (operation == DropPosition::OnItem) {
        return false;
    }
    // Rows are not dragged within or between tables, ours included.
    if (IsTable(info.source)) {
        return false;
    }
    return carriesImageFile;
}

bool ViewController::dropMimeData(ImageTableView& table, const DragInfo& info, int row,
                                  DropPosition) {
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
