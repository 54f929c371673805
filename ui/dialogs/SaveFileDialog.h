#pragma once

// The modal chooser of a file to write (a QFileDialog).

#include <QString>
#include <optional>

class QWidget;

namespace vellumo {

struct SaveFileRequest {
    QString title;
    QString fileType;       // extension without the dot, offered as the filter
    QString suggestedName;  // file name proposed in the dialog
    QString memoryKey;      // the dialog's name for the last folder it was used in

    friend bool operator==(const SaveFileRequest&, const SaveFileRequest&) = default;
};

// The chosen path, absolute; nothing when the user cancelled.
using SaveFileResult = std::optional<QString>;

// Runs a real file dialog configured by the request, starting in the folder
// it was last used in.
SaveFileResult RunSaveFileDialog(const SaveFileRequest& request, QWidget* parent);

}  // namespace vellumo
