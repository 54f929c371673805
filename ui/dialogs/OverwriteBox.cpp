#include "ui/dialogs/OverwriteBox.h"

#include <QCoreApplication>

namespace vellumo {

namespace {

// The answers' titles as the batch library names them, for the
// translations: the box shows each in the window's language.
[[maybe_unused]] constexpr const char* kTranslatedTitles[] = {
    QT_TRANSLATE_NOOP("OverwriteBox", "Yes"),
    QT_TRANSLATE_NOOP("OverwriteBox", "Yes to All"),
    QT_TRANSLATE_NOOP("OverwriteBox", "No"),
    QT_TRANSLATE_NOOP("OverwriteBox", "No to All"),
};

}  // namespace

MessageBoxRequest OverwriteBoxRequest(const QString& path) {
    const QString question =
        QCoreApplication::translate("OverwriteBox",
                                    "The file %1 already exists. Do you want to overwrite it?")
            .arg(path);
    MessageBoxRequest request{question, MessageBoxStyle::Warning, {}};
    for (const std::string& title : kOverwriteButtons) {
        request.buttons << QCoreApplication::translate("OverwriteBox", title.c_str());
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
