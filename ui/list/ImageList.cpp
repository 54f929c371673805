#include "ui/list/ImageList.h"

#include <QApplication>
#include <QFileInfo>
#include <QMimeData>
#include <QPixmap>
#include <QStyle>
#include <QUrl>
#include <algorithm>
#include <string>

#include "imaging/Fatal.h"
#include "ui/WindowLocale.h"
#include "ui/list/FileKindIcons.h"
#include "ui/list/FolderImages.h"
#include "ui/list/ImagePaths.h"

namespace vellumo {

namespace {

constexpr char kUriListType[] = "text/uri-list";

}  // namespace

ImageList::ImageList(QObject* parent)
    : QAbstractListModel(parent), acceptedExtensions_(AcceptedImageExtensions()) {
    for (const QString& name : FileKindIconNames()) {
        icons_.insert(name, FileKindIcon(name));
    }
}

QString ImageList::pathAt(int row) const {
    return row >= 0 && row < paths_.size() ? paths_[row] : QString();
}

QString ImageList::CountText(int selected) const {
    // One image has a text of its own; the plural forms of other counts are
    // the translation's.
    QString text = count() == 0   ? tr("No images")
                   : count() == 1 ? tr("1 image")
                                  : tr("%L1 images", nullptr, count()).arg(WindowNumber(count()));
    if (selected > 1) {
        text += tr(", %L1 selected", nullptr, selected).arg(WindowNumber(selected));
    }
    return text;
}

void ImageList::Append(const QStringList& paths) {
    // Each path is compared with the list as it has grown so far, so a path
    // is never added twice, not even within one choice.
    QStringList grown = paths_;
    AppendNewPaths(grown, paths);
    if (grown.size() == paths_.size()) {
        return;
    }
    beginInsertRows(QModelIndex(), count(), static_cast<int>(grown.size()) - 1);
    paths_ = std::move(grown);
    endInsertRows();
}

QStringList ImageList::RemoveRows(QList<int> rows) {
    // From the last row up, so the row numbers still to remove hold.
    std::sort(rows.begin(), rows.end(), std::greater<>());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    QStringList removed;
    for (const int row : rows) {
        if (row >= 0 && row < count()) {
            removed.push_back(paths_[row]);
            removeRows(row, 1);
        }
    }
    return removed;
}

bool ImageList::removeRows(int row, int rowCount, const QModelIndex& parent) {
    if (parent.isValid() || row < 0 || rowCount < 1 || row + rowCount > count()) {
        return false;
    }
    beginRemoveRows(QModelIndex(), row, row + rowCount - 1);
    for (int k = 0; k < rowCount; ++k) {
        // A file that has left the list starts afresh if it comes back.
        const QString path = paths_.takeAt(row);
        unreadable_.remove(path);
    }
    endRemoveRows();
    return true;
}

QStringList ImageList::folders() const {
    QStringList holding;
    for (const QString& folder : folders_) {
        const QString inside =
            folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
        if (std::any_of(paths_.begin(), paths_.end(),
                        [&inside](const QString& path) { return path.startsWith(inside); })) {
            holding << folder;
        }
    }
    return holding;
}

void ImageList::AddFolders(const QStringList& folders) {
    for (const QString& folder : folders) {
        if (!folders_.contains(folder)) {
            folders_ << folder;
        }
    }
}

void ImageList::ReplaceAll(const QStringList& paths) {
    beginResetModel();
    paths_.clear();
    folders_.clear();
    AppendNewPaths(paths_, paths);
    for (auto it = unreadable_.begin(); it != unreadable_.end();) {
        it = paths_.contains(it.key()) ? std::next(it) : unreadable_.erase(it);
    }
    endResetModel();
}

void ImageList::MarkUnreadable(const QString& path, const QString& reason) {
    unreadable_.insert(path, reason);
    PathDataChanged(path);
}

void ImageList::ClearUnreadable(const QString& path) {
    if (unreadable_.remove(path) > 0) {
        PathDataChanged(path);
    }
}

QString ImageList::UnreadableReason(const QString& path) const {
    return unreadable_.value(path);
}

void ImageList::SetAdjusted(const QString& path, bool adjusted) {
    const bool changed = adjusted ? !adjusted_.contains(path) : adjusted_.contains(path);
    if (!changed) {
        return;
    }
    if (adjusted) {
        adjusted_.insert(path);
    } else {
        adjusted_.remove(path);
    }
    PathDataChanged(path);
}

void ImageList::SetThumbnailIcons(std::function<QImage(const QString&)> icons) {
    thumbnailIcons_ = std::move(icons);
}

QStringList ImageList::TakenFromDrop(const QList<QUrl>& urls) {
    // Every URL is looked at here, not only those that made the drag
    // acceptable; each must pass on its own. A folder stands for the images
    // below it, all the way down, and is kept as a folder the images were
    // found through, so that an output keeping the tree is measured from it.
    QStringList taken;
    const auto take = [this, &taken](const QString& path) {
        if (path.isEmpty() || !QFileInfo::exists(path) || ListContainsPath(paths_, path) ||
            ListContainsPath(taken, path) ||
            !acceptedExtensions_.contains(LowerCaseExtension(path))) {
            return;
        }
        taken.push_back(path);
    };
    for (const QUrl& url : urls) {
        if (!IsLocalFolderUrl(url)) {
            take(url.toLocalFile());
            continue;
        }
        const QString folder = CleanFolderPath(url);
        AddFolders({folder});
        for (const QString& image : ImagesInFolder(folder, true)) {
            take(image);
        }
    }
    return taken;
}

void ImageList::PathDataChanged(const QString& path) {
    for (int row = 0; row < count(); ++row) {
        if (paths_[row] == path) {
            const QModelIndex cell = index(row, 0);
            Q_EMIT dataChanged(cell, cell, {Qt::DecorationRole, Qt::ToolTipRole, kAdjustedRole});
        }
    }
}

int ImageList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant ImageList::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const int row = index.row();
    if (row < 0 || row >= count()) {
        Fatal("the image list was asked for row " + std::to_string(row) + " of " +
              std::to_string(count()));
    }
    const QString& path = paths_[row];
    const auto unreadable = unreadable_.constFind(path);
    switch (role) {
        case Qt::DisplayRole:
            return path;
        case Qt::ToolTipRole: {
            QString tip = path;
            if (unreadable != unreadable_.constEnd()) {
                tip += QLatin1Char('\n') + tr("Cannot be shown: %1").arg(*unreadable);
            }
            if (adjusted_.contains(path)) {
                tip += QLatin1Char('\n') + tr("Crop adjusted by hand");
            }
            return tip;
        }
        case Qt::AccessibleTextRole: {
            // What a screen reader says of a row or a sheet's cell: the
            // file's name and what is special about it.
            QString text = QFileInfo(path).fileName();
            if (adjusted_.contains(path)) {
                text += tr(", adjusted");
            }
            if (unreadable != unreadable_.constEnd()) {
                text += tr(", cannot be shown: %1").arg(*unreadable);
            }
            return text;
        }
        case Qt::AccessibleDescriptionRole:
            return path;
        case kAdjustedRole:
            return adjusted_.contains(path);
        case Qt::DecorationRole:
            if (unreadable != unreadable_.constEnd()) {
                return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
            }
            if (thumbnailIcons_) {
                const QImage thumbnail = thumbnailIcons_(path);
                if (!thumbnail.isNull()) {
                    return QIcon(QPixmap::fromImage(thumbnail));
                }
            }
            if (const auto name = FileKindIconName(path)) {
                return icons_.value(*name);
            }
            return {};
        default:
            return {};
    }
}

Qt::ItemFlags ImageList::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return Qt::ItemIsDropEnabled;
    }
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

QStringList ImageList::mimeTypes() const {
    return {QString::fromLatin1(kUriListType)};
}

Qt::DropActions ImageList::supportedDropActions() const {
    return Qt::CopyAction | Qt::LinkAction;
}

bool ImageList::canDropMimeData(const QMimeData* data, Qt::DropAction action, int, int,
                                const QModelIndex& parent) const {
    // Files go between rows, never onto one.
    if (data == nullptr || parent.isValid() || !(supportedDropActions() & action)) {
        return false;
    }
    const QList<QUrl> urls = data->urls();
    return std::any_of(urls.begin(), urls.end(), [](const QUrl& url) {
        return IsImageFileUrl(url) || IsLocalFolderUrl(url);
    });
}

bool ImageList::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                             const QModelIndex& parent) {
    if (!canDropMimeData(data, action, row, column, parent)) {
        return false;
    }
    if (row < 0 || row > count()) {
        Fatal("a drop was placed outside the image list");
    }
    const QStringList taken = TakenFromDrop(data->urls());
    if (!taken.isEmpty()) {
        beginInsertRows(QModelIndex(), row, row + static_cast<int>(taken.size()) - 1);
        for (qsizetype k = 0; k < taken.size(); ++k) {
            paths_.insert(row + k, taken[k]);
        }
        endInsertRows();
    }
    return true;
}

}  // namespace vellumo
