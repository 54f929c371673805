#include "ui/list/FileKindIcons.h"

#include <QFile>

#include "imaging/Formats.h"

namespace vellumo {

std::optional<QString> FileKindIconName(const QString& path) {
    const InputExtensionInfo* row = InputExtensionOfPath(QFile::encodeName(path).toStdString());
    if (row == nullptr) {
        return std::nullopt;
    }
    return QString::fromLatin1(row->icon.data(), static_cast<qsizetype>(row->icon.size()));
}

QStringList FileKindIconNames() {
    QStringList names;
    for (const InputExtensionInfo& row : kInputExtensions) {
        const QString name =
            QString::fromLatin1(row.icon.data(), static_cast<qsizetype>(row.icon.size()));
        if (!names.contains(name)) {
            names << name;
        }
    }
    return names;
}

QIcon FileKindIcon(const QString& name) {
    return QIcon(QStringLiteral(":/icons/%1.svg").arg(name));
}

}  // namespace vellumo
