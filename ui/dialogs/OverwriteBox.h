#pragma once

// The overwrite question as a message box: its buttons' answers (the box
// answers 1000 for its first button) and what each means.

#include <QString>

#include "batch/OverwritePrompts.h"
#include "ui/dialogs/MessageBox.h"

namespace vellumo {

inline constexpr int kAnswerYes = kFirstButtonAnswer;
inline constexpr int kAnswerYesToAll = kFirstButtonAnswer + 1;
inline constexpr int kAnswerNo = kFirstButtonAnswer + 2;
inline constexpr int kAnswerNoToAll = kFirstButtonAnswer + 3;

// The box for `question`: "Yes", "Yes to All", "No", "No to All".
MessageBoxRequest OverwriteBoxRequest(const QString& question);

// The answer a box's code means; any code but the first three's (a box
// closed some other way) counts as "No to All".
OverwriteAnswer OverwriteAnswerOfBox(int code);

}  // namespace vellumo
