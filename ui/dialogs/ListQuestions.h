#pragma once

// The question asked before a non-empty image list is emptied (Remove All,
// File → New), and its answers.

#include <QCoreApplication>

#include "ui/dialogs/MessageBox.h"

namespace vellumo {

inline constexpr BoxAnswer kRemoveAllYes{0};
inline constexpr BoxAnswer kRemoveAllNo{1};

// "Are you sure you want to remove all the images from the list?": "Yes",
// "No".
inline MessageBoxRequest RemoveAllRequest() {
    return {QCoreApplication::translate(
                "ListQuestions", "Are you sure you want to remove all the images from the list?"),
            MessageBoxStyle::Warning,
            {QCoreApplication::translate("ListQuestions", "Yes"),
             QCoreApplication::translate("ListQuestions", "No")}};
}

}  // namespace vellumo
