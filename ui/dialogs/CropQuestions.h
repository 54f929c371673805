#pragma once

// The questions the crop command asks before a job starts, besides the
// overwrite questions. In each, the first button goes on and the last,
// "Cancel", ends the command with nothing written.

#include <QCoreApplication>
#include <QString>
#include <string>
#include <vector>

#include "batch/OutputPlan.h"
#include "ui/dialogs/MessageBox.h"

namespace vellumo {

inline constexpr char kCreateFolder[] = QT_TRANSLATE_NOOP("CropQuestions", "Create");
inline constexpr char kReplaceOriginals[] =
    QT_TRANSLATE_NOOP("CropQuestions", "Replace the Originals");
inline constexpr char kWriteUncroppedCopies[] = QT_TRANSLATE_NOOP("CropQuestions", "Write Copies");
inline constexpr char kNumberTheClashingFiles[] =
    QT_TRANSLATE_NOOP("CropQuestions", "Number the Clashing Files");
inline constexpr char kCancel[] = QT_TRANSLATE_NOOP("CropQuestions", "Cancel");
// The answers of these boxes: the first button goes on, "Cancel" does not.
inline constexpr BoxAnswer kGoOnAnswer{0};
inline constexpr BoxAnswer kCancelAnswer{1};
inline constexpr char kUncroppedQuestion[] = QT_TRANSLATE_NOOP(
    "CropQuestions", "The crop rectangle leaves every image uncropped. Write uncropped copies?");

// "The folder /x does not exist. Create it?": "Create", "Cancel".
MessageBoxRequest CreateFolderRequest(const std::string& folder);

// Before the originals are replaced: "Replace the Originals", "Cancel".
MessageBoxRequest ReplaceOriginalsRequest(std::size_t imageCount);

// When the rule crops none of the images: "Write Copies", "Cancel".
MessageBoxRequest UncroppedCopiesRequest();

// One warning for all images that would share an output path, naming them
// (the first clashes in the text, every one in the details):
// "Number the Clashing Files", "Cancel".
MessageBoxRequest ClashWarningRequest(const std::vector<OutputClash>& clashes,
                                      const std::vector<std::string>& list);

}  // namespace vellumo
