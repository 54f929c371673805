#include "ui/dialogs/OverwriteBox.h"

namespace vellumo {

MessageBoxRequest OverwriteBoxRequest(const QString& question) {
    MessageBoxRequest request{question, MessageBoxStyle::Warning, {}};
    for (const std::string& title : kOverwriteButtons) {
        request.buttons << QString::fromStdString(title);
    }
    return request;
}

OverwriteAnswer OverwriteAnswerOfBox(int code) {
    switch (code) {
        case kAnswerYes:
            return OverwriteAnswer::Yes;
        case kAnswerYesToAll:
            return OverwriteAnswer::YesToAll;
        case kAnswerNo:
            return OverwriteAnswer::No;
        default:
            return OverwriteAnswer::NoToAll;
    }
}

}  // namespace vellumo
