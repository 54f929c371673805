#include "app/LaunchArguments.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include "ui/list/FolderImages.h"

namespace vellumo {

QStringList ParseLaunchArguments(const QStringList& arguments, bool& recursive) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Vellumo crops batches of images. Files and folders given here are "
                       "added to the list; a second start adds them to the window already "
                       "open."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption recursion(QStringLiteral("recursive"),
                                       QStringLiteral("Also add the images of subfolders."));
    parser.addOption(recursion);
    parser.addPositionalArgument(QStringLiteral("paths"),
                                 QStringLiteral("Image files and folders of images."),
                                 QStringLiteral("[FILE|FOLDER…]"));
    parser.process(arguments);
    recursive = parser.isSet(recursion);
    return parser.positionalArguments();
}

LaunchRequest ExpandLaunchPaths(const QStringList& paths, bool recursive) {
    LaunchRequest request;
    for (const QString& path : paths) {
        const QFileInfo info(path);
        const QString absolute = QDir::cleanPath(info.absoluteFilePath());
        if (!info.exists()) {
            request.missing << path;
        } else if (info.isDir()) {
            const QStringList images = ImagesInFolder(absolute, recursive);
            if (images.isEmpty()) {
                request.emptyFolders << path;
            } else {
                request.folders << absolute;
            }
            request.images << images;
        } else {
            request.images << absolute;
        }
    }
    return request;
}

QString LaunchWarningText(const LaunchRequest& request) {
    QStringList lines;
    for (const QString& path : request.missing) {
        lines << QCoreApplication::translate("LaunchArguments", "“%1” does not exist.")
                     .arg(QDir::toNativeSeparators(path));
    }
    for (const QString& path : request.emptyFolders) {
        lines << QCoreApplication::translate("LaunchArguments", "“%1” holds no images.")
                     .arg(QDir::toNativeSeparators(path));
    }
    return lines.join(QLatin1Char('\n'));
}

}  // namespace vellumo
