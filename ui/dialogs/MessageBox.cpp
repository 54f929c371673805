#include "ui/dialogs/MessageBox.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QTextEdit>

#include "imaging/Fatal.h"

namespace vellumo {

namespace {

// A message box whose details can be read whole: they wrap anywhere (a path
// has no spaces to wrap at) and the box can be resized, the details growing
// with it. QMessageBox fixes its own size when it is shown, when its details
// open and whenever its layout asks again; once shown, a box with details
// keeps the size a person gave it, and the limits are lifted after each of
// its own events.
class DetailsMessageBox : public QMessageBox {
  public:
    using QMessageBox::QMessageBox;

  protected:
    bool event(QEvent* event) override {
        if (detailedText().isEmpty()) {
            return QMessageBox::event(event);
        }
        // Skipping QMessageBox's own handling of a layout request is the
        // point: it would fix the box's size again.
        const bool handled = event->type() == QEvent::LayoutRequest && isVisible()
                                 ? QDialog::event(event)  // NOLINT(bugprone-parent-virtual-call)
                                 : QMessageBox::event(event);
        setMinimumSize(0, 0);
        setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        if (auto* details = findChild<QTextEdit*>()) {
            details->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
            details->setLineWrapMode(QTextEdit::WidgetWidth);
            details->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
            details->setMaximumHeight(QWIDGETSIZE_MAX);
            details->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        }
        return handled;
    }
};

}  // namespace

MessageBoxRequest NoticeRequest(const QString& text) {
    return {text, MessageBoxStyle::Warning, {QCoreApplication::translate("MessageBox", "OK")}};
}

std::unique_ptr<QMessageBox> BuildMessageBox(const MessageBoxRequest& request, QWidget* parent) {
    if (request.buttons.isEmpty()) {
        Fatal("a message box needs at least one button");
    }
    if (request.defaultButton < 0 || request.defaultButton >= request.buttons.size()) {
        Fatal("a message box's default button is not one of its buttons");
    }
    std::unique_ptr<QMessageBox> box = std::make_unique<DetailsMessageBox>(parent);
    box->setWindowTitle(QStringLiteral("Vellumo"));
    box->setText(request.text);
    if (!request.informativeText.isEmpty()) {
        box->setInformativeText(request.informativeText);
    }
    if (!request.details.isEmpty()) {
        box->setDetailedText(request.details);
        box->setSizeGripEnabled(true);
    }
    box->setIcon(request.style == MessageBoxStyle::Informational ? QMessageBox::Information
                                                                 : QMessageBox::Warning);
    // One role for all buttons: the button box orders buttons of one role as
    // they were added on every platform layout, so reading order is kept.
    QPushButton* chosen = nullptr;
    QPushButton* last = nullptr;
    for (qsizetype i = 0; i < request.buttons.size(); ++i) {
        last = box->addButton(request.buttons[i], QMessageBox::ActionRole);
        last->setProperty(kAnswerProperty, static_cast<int>(i));
        if (i == request.defaultButton) {
            chosen = last;
        }
    }
    box->setDefaultButton(chosen);
    box->setEscapeButton(last);
    return box;
}

BoxAnswer RunMessageBox(const MessageBoxRequest& request, QWidget* parent) {
    const auto box = BuildMessageBox(request, parent);
    box->exec();
    // The escape button makes sure some button was pressed, however the box
    // was closed.
    const QAbstractButton* pressed = box->clickedButton();
    if (pressed == nullptr) {
        pressed = box->escapeButton();
    }
    return BoxAnswer{pressed->property(kAnswerProperty).toInt()};
}

}  // namespace vellumo
