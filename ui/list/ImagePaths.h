#pragma once

// The rules by which the image list accepts paths, shared by the add command
// and by drops.

#include <QString>
#include <QStringList>
#include <string>
#include <vector>

#include "ui/dialogs/OpenFilesDialog.h"

class QUrl;

namespace vellumo {

// The lower-case extensions the list accepts, in the list's own order:
// "jpg", "jpeg", "jpe", "jp2", "jpx", "png", "gif", "tif", "tiff", "bmp",
// then "heic", "heif", "avif", "webp", "jxl".
QStringList AcceptedImageExtensions();

// The same in the order the add-images dialog offers them: the output
// formats' extensions ("jpg", "jpeg", "jpe", "jp2", "jpx", "png", "tiff",
// "tif", "gif", "bmp", "webp", "avif", "heic", "jxl"), then "heif".
QStringList OpenFilesImageExtensions();

// The add-images dialog: several files (no folders) of those extensions,
// the dialog's folder remembered as "addImages".
OpenFilesRequest AddImagesRequest();

// The extension of `path` read as a file path (after the last dot of the last
// component), in lower case; empty when there is none.
QString LowerCaseExtension(const QString& path);

// Text equality as the list compares paths: case-sensitive, no path
// normalisation ("/a/../b" and "/b" differ), but canonically equivalent
// Unicode spellings (a precomposed "é" and "e" + combining accent) count as
// equal.
bool SamePathText(const QString& a, const QString& b);

// True when any entry of `list` is the same text as `path`.
bool ListContainsPath(const QStringList& list, const QString& path);

// Sorts `paths` in the order a person reads their names: p2 before p10
// (a stable sort, in the user's locale; English in the C locale, whose
// collator compares numbers as text).
void SortInReadingOrder(QStringList& paths);

// Appends to `list` each of `paths` it does not hold yet (by SamePathText),
// in their order; a path is never added twice, not even within `paths`.
// Takes time in proportion to both lengths, not their product, so that ten
// thousand paths join a list at once.
void AppendNewPaths(QStringList& list, const QStringList& paths);

// The paths as the engine reads them: in the file system's encoding.
std::vector<std::string> NativePaths(const QStringList& paths);

// True for a local-file URL whose extension names an image kind a drop
// accepts (JPEG, JPEG 2000, PNG, GIF, TIFF, BMP, HEIC, AVIF, WebP, JPEG XL).
// The file itself is not opened.
bool IsImageFileUrl(const QUrl& url);

}  // namespace vellumo
