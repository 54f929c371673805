#include "ui/dialogs/OverwriteBox.h"

namespace vellumo {

MessageBoxRequest OverwriteBoxRequest(const QString& question) {
    MessageBoxRequest request{question, MessageBoxStyle::Warning, {}};
    for (const std::string& title : kOverwriteButtons) {
        request.buttons << QString::fromStdString(title);
    }
    return request;
}

OverwriteAnswer OverwriteAnswerOfBox(BoxAnswer answer) {
    if (answer == kAnswerYes) {
        return OverwriteAnswer::Yes;
    }
    if (answer == kAnswerYesToAll) {
        return OverwriteAnswer::YesToAll;
    }
    if (answer == kAnswerNo) {
        return OverwriteAnswer::No;
    }
    return OverwriteAnswer::NoToAll;
}

}  // namespace vellumo
