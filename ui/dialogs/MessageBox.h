#pragma once

// Every message box of the window is built here: the sentence as the box's
// text, "Vellumo" as its title, the warning style except for a success report,
// the buttons in reading order with the first as the default unless another
// is named. A box answers with the pressed button's place among its buttons
// (BoxAnswer); callers compare it with the named answers of their box. Details wrap at the box's
// width, long paths included, and a box with details can be made larger.

#include <QString>
#include <QStringList>
#include <memory>

class QMessageBox;
class QWidget;

namespace vellumo {

enum class MessageBoxStyle { Warning, Informational };

struct MessageBoxRequest {
    QString text;
    MessageBoxStyle style = MessageBoxStyle::Warning;
    QStringList buttons;  // in reading order; at least one
    // Shown on request under the text ("Show Details..."); none when empty.
    QString details = {};
    // A second paragraph under the sentence (the counts of a job).
    QString informativeText = {};
    // The button pressed by Return, by its place in `buttons`.
    int defaultButton = 0;

    friend bool operator==(const MessageBoxRequest&, const MessageBoxRequest&) = default;
};

// Which button of a box was pressed: its place in the request's buttons, 0
// for the first.
struct BoxAnswer {
    int button = 0;

    friend bool operator==(BoxAnswer, BoxAnswer) = default;
};

// The answer of a box that was never shown (no window to show it on).
inline constexpr BoxAnswer kNoButtonPressed{-1};

// Each button of a built box carries its place in this property.
inline constexpr char kAnswerProperty[] = "vellumoAnswer";

// A one-button "OK" box in the warning style.
MessageBoxRequest NoticeRequest(const QString& text);

// The real box for a request, not yet shown. Escape (or closing the box)
// presses the last button: in every box of the window the last button is the
// one that changes nothing.
std::unique_ptr<QMessageBox> BuildMessageBox(const MessageBoxRequest& request, QWidget* parent);

// Shows the box modally and waits for the answer.
BoxAnswer RunMessageBox(const MessageBoxRequest& request, QWidget* parent);

}  // namespace vellumo
