#pragma once

// The one thing Vellumo keeps between runs: the folder each file dialog was
// last used in, in the platform's standard settings location.

#include <QString>

namespace vellumo {

// The folder the dialog `dialog` ("addImages", "outputFolder", "profiles")
// was last used in, or empty.
QString LastFolder(const QString& dialog);

// Remembers `folder` for `dialog`.
void RememberLastFolder(const QString& dialog, const QString& folder);

}  // namespace vellumo
