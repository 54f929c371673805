#include "ui/controls/ButtonAction.h"

#include <QAbstractButton>
#include <QAction>
#include <QEvent>

namespace vellumo {

ButtonAction::ButtonAction(QAction& action, QAbstractButton& button)
    : QObject(&action), action_(action), button_(button) {
    action_.setEnabled(button_.isEnabled());
    button_.installEventFilter(this);
    connect(&action_, &QAction::triggered, &button_, [this] {
        if (button_.isEnabled()) {
            button_.click();
        }
    });
}

bool ButtonAction::eventFilter(QObject* watched, QEvent* event) {
    // Buttons tell of a change of their enabled state only by this event.
    if (watched == &button_ && event->type() == QEvent::EnabledChange) {
        action_.setEnabled(button_.isEnabled());
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace vellumo
