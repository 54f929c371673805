#pragma once

// What the window's controller asks of the desktop: modal message boxes, the
// file dialog and the web browser. The real application uses the real ones;
// tests put answerers in their place so that no person is needed.

#include <QUrl>
#include <functional>

#include "ui/dialogs/MessageBox.h"
#include "ui/dialogs/OpenFilesDialog.h"
#include "ui/dialogs/SaveFileDialog.h"

class QWidget;

namespace vellumo {

struct WindowServices {
    // Shows a modal box; returns which of its buttons was pressed.
    std::function<BoxAnswer(const MessageBoxRequest&)> showMessageBox;
    // Runs a modal file dialog.
    std::function<OpenFilesResult(const OpenFilesRequest&)> chooseFilesToOpen;
    // Runs a modal save dialog.
    std::function<SaveFileResult(const SaveFileRequest&)> chooseFileToSave;
    // Opens a web address in the default browser; false when that failed.
    std::function<bool(const QUrl&)> openUrl;

    // The real services; dialogs are put over the window `parent()` gives at
    // the moment they are shown (it may be null).
    static WindowServices Desktop(const std::function<QWidget*()>& parent);
};

}  // namespace vellumo
