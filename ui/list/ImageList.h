#pragma once

#include <QAbstractListModel>
#include <QHash>
#include <QIcon>
#include <QImage>
#include <QSet>
#include <QStringList>
#include <QUrl>
#include <functional>

namespace vellumo {

// The window's list of images: it owns the ordered paths and their marks, and
// is the one model the image table and the contact sheet show. One row per
// path, showing the full path with the file-kind icon. A file found
// unreadable shows a warning icon instead, and the reason in its tooltip,
// until it is read successfully or leaves the list. Otherwise a file whose
// thumbnail is at hand shows it in place of the file-kind icon.
//
// The list never holds a path twice (by SamePathText). Every change goes
// through the model and is announced with Qt's own signals (rows inserted,
// removed, or the model reset), so the views follow by themselves. Files
// dragged from a file manager arrive through dropMimeData.
class ImageList : public QAbstractListModel {
    Q_OBJECT

  public:
    explicit ImageList(QObject* parent = nullptr);

    // The paths, in the list's order.
    const QStringList& paths() const { return paths_; }
    int count() const { return static_cast<int>(paths_.size()); }
    bool isEmpty() const { return paths_.isEmpty(); }
    // The count as the window shows it under the list, with `selected`
    // rows: "No images", "1 image", "120 images", "120 images, 3 selected"
    // (a selection of one is not counted).
    QString CountText(int selected) const;
    // The path of `row`; empty for a row outside the list.
    QString pathAt(int row) const;
    // The lower-case extensions a drop accepts (AcceptedImageExtensions).
    const QStringList& acceptedExtensions() const { return acceptedExtensions_; }

    // Appends these paths in their order, leaving out those the list holds
    // (also within `paths`). Files are not opened here: an unreadable image
    // is found when it is previewed or cropped.
    void Append(const QStringList& paths);
    // Removes these rows (any order; rows outside the list are ignored) and
    // returns their paths, last row first.
    QStringList RemoveRows(QList<int> rows);
    // The list becomes `paths`, duplicates left out; marks of paths that
    // left the list are forgotten.
    void ReplaceAll(const QStringList& paths);
    void Clear() { ReplaceAll({}); }

    // The folders images were found through (given to the program or dropped),
    // which an output that keeps the tree is measured from: those that hold
    // a listed image, in the order they came. Emptying or replacing the
    // list forgets them.
    QStringList folders() const;
    void AddFolders(const QStringList& folders);

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
    bool removeRows(int row, int count, const QModelIndex& parent = QModelIndex()) override;

    // Drops: a list of file URLs ("text/uri-list"), taken as a copy or a
    // link (never a move, which would let a file manager delete its
    // originals), into a gap between rows (`row`, `parent` invalid; `row`
    // equal to rowCount is after the last row), never onto a row.
    QStringList mimeTypes() const override;
    Qt::DropActions supportedDropActions() const override;
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    // Inserts, at `row`, each dropped file that exists, is not listed yet and
    // has an accepted extension; a dropped folder gives its images and those
    // of its subfolders (sorted by name), and joins folders(). The drop
    // counts as taken even when every file was skipped.
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

  private:
    // The paths a drop of `urls` inserts, in their order; dropped folders
    // are added to the folders.
    QStringList TakenFromDrop(const QList<QUrl>& urls);
    void PathDataChanged(const QString& path);

    const QStringList acceptedExtensions_;
    QStringList paths_;
    QStringList folders_;
    QHash<QString, QIcon> icons_;
    QHash<QString, QString> unreadable_;  // path -> reason
    QSet<QString> adjusted_;
    std::function<QImage(const QString&)> thumbnailIcons_;
};

}  // namespace vellumo
