#pragma once

// A folder taken into the image list (dropped onto it, or given to the
// program): the images below it, as the command line walks them.

#include <QString>
#include <QStringList>
#include <QUrl>

namespace vellumo {

// The images in `folder` with an accepted extension (hidden files, other
// files and linked loops left out), and those of its subfolders too when
// `recursive`; sorted as a person reads their names (p2 before p10).
QStringList ImagesInFolder(const QString& folder, bool recursive);

// True for a local-file URL naming an existing folder.
bool IsLocalFolderUrl(const QUrl& url);

// The folder of `url` as the list keeps it: absolute, without "." or ".."
// and without a trailing separator.
QString CleanFolderPath(const QUrl& url);

}  // namespace vellumo
