#pragma once

// A menu command that stands for a button of the window: choosing it (or
// pressing its shortcut) clicks the button, and it is enabled exactly when
// the button is, so the menu never offers what the window refuses.

#include <QObject>

class QAbstractButton;
class QAction;

namespace vellumo {

class ButtonAction : public QObject {
    Q_OBJECT

  public:
    // Lives as long as `action`, whose parent it becomes.
    ButtonAction(QAction& action, QAbstractButton& button);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QAction& action_;
    QAbstractButton& button_;
};

}  // namespace vellumo
