#pragma once

// The overwrite question as a message box: its buttons' answers and what
// each means.

#include <QString>

#include "batch/OverwritePrompts.h"
#include "ui/dialogs/MessageBox.h"

namespace vellumo {

inline constexpr BoxAnswer kAnswerYes{0};
inline constexpr BoxAnswer kAnswerYesToAll{1};
inline constexpr BoxAnswer kAnswerNo{2};
inline constexpr BoxAnswer kAnswerNoToAll{3};

// The box asking whether the file at `path` is to be replaced: "The file …
// already exists. Do you want to overwrite it?" with "Yes", "Yes to All",
// "No", "No to All".
MessageBoxRequest OverwriteBoxRequest(const QString& path);

// What a box's answer means; any answer but the first three buttons' (a box
// never shown) counts as "No to All".
OverwriteAnswer OverwriteAnswerOfBox(BoxAnswer answer);

}  // namespace vellumo
