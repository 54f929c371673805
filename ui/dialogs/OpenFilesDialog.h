#pragma once

// The modal chooser of existing files or folders (a QFileDialog).

#include <QString>
#include <QStringList>
#include <optional>

class QWidget;

namespace vellumo {

struct OpenFilesRequest {
    bool allowsMultipleSelection = false;
    bool canChooseFiles = true;
    bool canChooseDirectories = false;
    bool canCreateDirectories = false;
    QStringList allowedFileTypes;  // extensions without the dot; empty allows any
    QString prompt;     // title of the dialog and its confirm button; empty keeps the usual ones
    QString memoryKey;  // the dialog's name for the last folder it was used in

    // One existing file of the type `fileType` (an extension without the dot).
    static OpenFilesRequest OneFile(const QString& fileType, const QString& prompt,
                                    const QString& memoryKey) {
        OpenFilesRequest request;
        request.allowedFileTypes = {fileType};
        request.prompt = prompt;
        request.memoryKey = memoryKey;
        return request;
    }

    friend bool operator==(const OpenFilesRequest&, const OpenFilesRequest&) = default;
};

// The chosen paths, absolute, in the dialog's order; nothing when the user
// cancelled.
using OpenFilesResult = std::optional<QStringList>;

// Runs a real file dialog configured by the request.
OpenFilesResult RunOpenFilesDialog(const OpenFilesRequest& request, QWidget* parent);

// The dialog's name filter for the allowed extensions, matching any mix of
// upper and lower case ("photo.JPG" as well as "photo.jpg").
QString NameFilterForExtensions(const QStringList& extensions);

}  // namespace vellumo
