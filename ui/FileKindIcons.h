#pragma once

// The small file-kind icons shown beside each path in the image list.

#include <QIcon>
#include <QString>
#include <optional>

namespace vellumo {

// The name of the icon for `path`, chosen by its lower-cased extension:
// "JPG" for jpg, jpeg and jpe; "JP2" for jp2 and jpx; "PNG" for png; "TIF" for
// tiff and tif;
// "GIF" for gif; "BMP" for bmp. Nothing for any other extension or none.
std::optional<QString> FileKindIconName(const QString& path);

// The application's icon resource of that name (":/icons/<name>.svg").
QIcon FileKindIcon(const QString& name);

}  // namespace vellumo
