#include "ui/MessageBox.h"

#include <QMessageBox>
#include <QPushButton>

#include "imaging/Fatal.h"

namespace vellumo {

MessageBoxRequest NoticeRequest(const QString& text) {
    return {text, MessageBoxStyle::Warning, {QStringLiteral("OK")}};
}

std::unique_ptr<QMessageBox> BuildMessageBox(const MessageBoxRequest& request, QWidget* parent) {
    if (request.buttons.isEmpty()) {
        Fatal("a message box needs at least one button");
    }
    auto box = std::make_unique<QMessageBox>(parent);
    box->setWindowTitle(QStringLiteral("Vellumo"));
    box->setText(request.text);
    if (!request.details.isEmpty()) {
        box->setDetailedText(request.details);
    }
    box->setIcon(request.style == MessageBoxStyle::Informational ? QMessageBox::Information
                                                                 : QMessageBox::Warning);
    // One role for all buttons: the button box orders buttons of one role as
    // they were added on every platform layout, so reading order is kept.
    QPushButton* first = nullptr;
    QPushButton* last = nullptr;
    for (qsizetype i = 0; i < request.buttons.size(); ++i) {
        last = box->addButton(request.buttons[i], QMessageBox::ActionRole);
        last->setProperty(kAnswerProperty, kFirstButtonAnswer + static_cast<int>(i));
        if (first == nullptr) {
            first = last;
        }
    }
    box->setDefaultButton(first);
    box->setEscapeButton(last);
    return box;
}

int RunMessageBox(const MessageBoxRequest& request, QWidget* parent) {
    const auto box = BuildMessageBox(request, parent);
    box->exec();
    // The escape button makes sure some button was pressed, however the box
    // was closed.
    const QAbstractButton* pressed = box->clickedButton();
    if (pressed == nullptr) {
        pressed = box->escapeButton();
    }
    return pressed->property(kAnswerProperty).toInt();
}

}  // namespace vellumo
