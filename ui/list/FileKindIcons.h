#pragma once

// The small file-kind icons shown beside each path in the image list.

#include <QIcon>
#include <QString>
#include <QStringList>
#include <optional>

namespace vellumo {

// The name of the icon for `path`, chosen by its extension in any case (the
// table of accepted extensions): "JPG" for jpg, jpeg and jpe; "JP2" for jp2
// and jpx; "PNG"; "TIF" for tiff and tif; "GIF"; "BMP". Nothing for any other
// extension or none.
std::optional<QString> FileKindIconName(const QString& path);

// Every icon name, once each.
QStringList FileKindIconNames();

// The application's icon resource of that name (":/icons/<name>.svg").
QIcon FileKindIcon(const QString& name);

}  // namespace vellumo
