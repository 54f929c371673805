#pragma once

// The About box: the program's name and version, and how it is protected
// from the files it decodes. The sandbox's layers are asked of a fresh image
// worker when the box opens, off the GUI thread, and shown as they come:
// each active or missing with the reason, never a silent downgrade.

#include <QDialog>
#include <QFutureWatcher>

#include "worker/SandboxStatus.h"

class QLabel;
class QPlainTextEdit;

namespace vellumo {

class AboutBox : public QDialog {
    Q_OBJECT

  public:
    explicit AboutBox(QWidget* parent = nullptr);

    // What the box says of the sandbox once the worker answered.
    static QString SandboxHeadline(const SandboxStatus& status, const QString& failure);
    // One line a layer: its name, "active" or "MISSING" in the window's
    // language, and the worker's own detail (a kernel's or library's terms,
    // left as the worker wrote them).
    static QString SandboxTable(const SandboxStatus& status);

  private:
    struct Answer {
        SandboxStatus status;
        QString failure;
    };
    void ShowSandbox(const Answer& answer);

    QLabel* headline_ = nullptr;
    QPlainTextEdit* layers_ = nullptr;
    QFutureWatcher<Answer> watcher_;
};

}  // namespace vellumo
