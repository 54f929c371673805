#include "ui/list/ImageListModel.h"

#include <QApplication>
#include <QPixmap>
#include <QStyle>
#include <string>

#include "imaging/Fatal.h"
#include "ui/list/FileKindIcons.h"

namespace vellumo {

ImageListModel::ImageListModel(const QStringList& paths, QObject* parent)
    : QAbstractListModel(parent), paths_(paths), rows_(static_cast<int>(paths.size())) {
    for (const QString& name : FileKindIconNames()) {
        icons_.insert(name, FileKindIcon(name));
    }
}

void ImageListModel::Reload() {
    beginResetModel();
    rows_ = static_cast<int>(paths_.size());
    // A file that has left the list starts afresh if it comes back.
    for (auto it = unreadable_.begin(); it != unreadable_.end();) {
        it = paths_.contains(it.key()) ? std::next(it) : unreadable_.erase(it);
    }
    endResetModel();
}

void ImageListModel::MarkUnreadable(const QString& path, const QString& reason) {
    unreadable_.insert(path, reason);
    PathDataChanged(path);
}

void ImageListModel::ClearUnreadable(const QString& path) {
    if (unreadable_.remove(path) > 0) {
        PathDataChanged(path);
    }
}

QString ImageListModel::UnreadableReason(const QString& path) const {
    return unreadable_.value(path);
}

void ImageListModel::SetAdjusted(const QString& path, bool adjusted) {
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

void ImageListModel::SetThumbnailIcons(std::function<QImage(const QString&)> icons) {
    thumbnailIcons_ = std::move(icons);
}

void ImageListModel::PathDataChanged(const QString& path) {
    for (int row = 0; row < rows_; ++row) {
        if (paths_[row] == path) {
            const QModelIndex cell = index(row, 0);
            Q_EMIT dataChanged(cell, cell, {Qt::DecorationRole, Qt::ToolTipRole, kAdjustedRole});
        }
    }
}

void ImageListModel::RowInserted(int row) {
    if (row < 0 || row > rows_ || rows_ + 1 > paths_.size()) {
        Fatal("a row was inserted into the image table outside its rows");
    }
    beginInsertRows(QModelIndex(), row, row);
    ++rows_;
    endInsertRows();
}

int ImageListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

QVariant ImageListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const int row = index.row();
    if (row < 0 || row >= paths_.size()) {
        Fatal("the image table asked for row " + std::to_string(row) + " of a list of " +
              std::to_string(paths_.size()));
    }
    const QString& path = paths_[row];
    const auto unreadable = unreadable_.constFind(path);
    switch (role) {
        case Qt::DisplayRole:
            return path;
        case Qt::ToolTipRole: {
            QString tip = path;
            if (unreadable != unreadable_.constEnd()) {
                tip += QStringLiteral("\nCannot be shown: ") + *unreadable;
            }
            if (adjusted_.contains(path)) {
                tip += QStringLiteral("\nCrop adjusted by hand");
            }
            return tip;
        }
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

Qt::ItemFlags ImageListModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return Qt::ItemIsDropEnabled;
    }
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

}  // namespace vellumo
