#pragma once

// The modal chooser of a file to write ("save panel").

#include <QString>
#include <optional>

class QWidget;

namespace vellumo {

struct SavePanelRequest {
    QString title;
    QString fileType;       // extension without the dot, offered as the filter
    QString suggestedName;  // file name proposed in the panel
    QString memoryKey;      // the dialog's name for the last folder it was used in

    friend bool operator==(const SavePanelRequest&, const SavePanelRequest&) = default;
};

// The chosen path, absolute; nothing when the user cancelled.
using SavePanelResult = std::optional<QString>;

// Runs a real file dialog configured by the request, starting in the folder
// it was last used in.
SavePanelResult RunSavePanel(const SavePanelRequest& request, QWidget* parent);

}  // namespace vellumo
