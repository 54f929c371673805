#include "ui/dialogs/LastFolders.h"

#include <QSettings>

namespace vellumo {

namespace {

QString Key(const QString& dialog) {
    return QStringLiteral("lastFolders/") + dialog;
}

}  // namespace

QString LastFolder(const QString& dialog) {
    return QSettings().value(Key(dialog)).toString();
}

void RememberLastFolder(const QString& dialog, const QString& folder) {
    QSettings().setValue(Key(dialog), folder);
}

}  // namespace vellumo
