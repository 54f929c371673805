#pragma once

#include <QAbstractListModel>
#include <QHash>
#include <QIcon>
#include <QImage>
#include <QSet>
#include <QStringList>
#include <functional>

namespace vellumo {

// The image table's rows over the controller's list of image paths: one row
// per path, showing the full path with the file-kind icon. A file found
// unreadable when it was selected shows a warning icon instead, and the
// reason in its tooltip, until it is read successfully or leaves the list.
// Otherwise a file whose thumbnail is at hand shows it in place of the
// file-kind icon.
//
// The list belongs to the controller and changes there first; the model then
// learns of it, either as a whole (Reload) or as one inserted row
// (RowInserted). Between the two, the model keeps the row count it last
// learned, so views never see rows it has not announced.
class ImageListModel : public QAbstractListModel {
    Q_OBJECT

  public:
    ImageListModel(const QStringList& paths, QObject* parent = nullptr);

    // The list changed as a whole: the rows are read again.
    void Reload();
    // The list gained one entry at `row`.
    void RowInserted(int row);

    // Marks the rows of `path` as unreadable, for `reason`.
    void MarkUnreadable(const QString& path, const QString& reason);
    // Takes the mark off the rows of `path`.
    void ClearUnreadable(const QString& path);
    // Why `path` is marked; empty when it is not.
    QString UnreadableReason(const QString& path) const;

    // The rows of an image whose crop was adjusted by hand carry a mark:
    // true in kAdjustedRole, and a line in the tooltip.
    static constexpr int kAdjustedRole = Qt::UserRole + 1;
    void SetAdjusted(const QString& path, bool adjusted);

    // Where the rows find their files' thumbnail icons: a null image for a
    // file without one at hand.
    void SetThumbnailIcons(std::function<QImage(const QString& path)> icons);
    // The thumbnail of `path` arrived or went: its rows are drawn again.
    void ThumbnailChanged(const QString& path) { PathDataChanged(path); }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    void PathDataChanged(const QString& path);

    const QStringList& paths_;
    int rows_ = 0;
    QHash<QString, QIcon> icons_;
    QHash<QString, QString> unreadable_;  // path -> reason
    QSet<QString> adjusted_;
    std::function<QImage(const QString&)> thumbnailIcons_;
};

}  // namespace vellumo
