#include "ui/files/RecentFiles.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QSettings>

namespace vellumo {

RecentFiles::RecentFiles(QString key, QMenu& menu, QObject* parent)
    : QObject(parent), key_(std::move(key)), menu_(menu) {
    // Built when opened, so files that have gone since are left out.
    connect(&menu_, &QMenu::aboutToShow, this, &RecentFiles::Rebuild);
    Rebuild();
}

QStringList RecentFiles::Files() const {
    return QSettings().value(key_).toStringList();
}

void RecentFiles::Use(const QString& path) {
    QStringList files = Files();
    const QString absolute = QFileInfo(path).absoluteFilePath();
    files.removeAll(absolute);
    files.prepend(absolute);
    while (files.size() > kMostFiles) {
        files.removeLast();
    }
    // The menu shows it when next opened (Rebuild): rebuilding now could
    // delete the very entry whose choice led here.
    QSettings().setValue(key_, files);
}

void RecentFiles::Clear() {
    QSettings().remove(key_);
}

void RecentFiles::Rebuild() {
    menu_.clear();
    int number = 0;
    for (const QString& path : Files()) {
        if (!QFileInfo::exists(path)) {
            continue;
        }
        ++number;
        // "&1 name" for the keyboard; the folder in the tip.
        QAction* open =
            menu_.addAction(QStringLiteral("&%1 %2").arg(number).arg(QFileInfo(path).fileName()));
        open->setToolTip(QDir::toNativeSeparators(path));
        open->setStatusTip(QDir::toNativeSeparators(path));
        connect(open, &QAction::triggered, this, [this, path] { Q_EMIT chosen(path); });
    }
    if (number == 0) {
        menu_.addAction(tr("No Recent Files"))->setEnabled(false);
        return;
    }
    menu_.addSeparator();
    connect(menu_.addAction(tr("Clear Menu")), &QAction::triggered, this, &RecentFiles::Clear);
}

}  // namespace vellumo
