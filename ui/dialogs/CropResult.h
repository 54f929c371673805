#pragma once

// The message box that reports a finished crop job.

#include <QCoreApplication>
#include <QString>

#include "batch/CropJob.h"
#include "ui/dialogs/MessageBox.h"

namespace vellumo {

inline constexpr char kImagesCroppedSuccessfully[] =
    QT_TRANSLATE_NOOP("CropResult", "Images cropped successfully.");
inline constexpr char kSomeImagesNotCropped[] =
    QT_TRANSLATE_NOOP("CropResult", "Some images could not be cropped.");
inline constexpr char kShowInFolder[] = QT_TRANSLATE_NOOP("CropResult", "Show in Folder");

// One of the texts above in the window's language.
QString CropResultText(const char* text);

// The answer of the report's "Show in Folder" button (its first).
inline constexpr BoxAnswer kShowInFolderAnswer{0};

// "Images cropped successfully." in the informational style when every image
// succeeded (a kept file counts as a success), else "Some images could not
// be cropped." as a warning; under it the counts ("120 images: 117 written,
// 2 kept as they were, 1 failed"). Buttons "Show in Folder" and "OK", the
// default. The details name each image that failed, with the reason, each
// that was skipped and each written with a warning, one per line in list
// order.
MessageBoxRequest CropResultRequest(const JobReport& report);

}  // namespace vellumo
