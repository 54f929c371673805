#pragma once

// "Open Recent": the files of one kind (profiles, crop plans) last loaded or
// saved, newest first, kept between runs (QSettings), as a submenu. A file
// that is gone is left out of the menu; choosing one hands its path on.

#include <QObject>
#include <QString>
#include <QStringList>

class QMenu;

namespace vellumo {

class RecentFiles : public QObject {
    Q_OBJECT

  public:
    // At most this many are kept.
    static constexpr int kMostFiles = 8;

    // `key` names the list in the settings; the entries go into `menu`.
    RecentFiles(QString key, QMenu& menu, QObject* parent = nullptr);

    // The list, newest first.
    QStringList Files() const;

    // `path` was loaded or saved: it goes to the top.
    void Use(const QString& path);
    // Forgets them all.
    void Clear();

  Q_SIGNALS:
    // A person chose `path` from the menu.
    void chosen(const QString& path);

  private:
    void Rebuild();

    QString key_;
    QMenu& menu_;
};

}  // namespace vellumo
