#include "ui/controls/SettingsScrollArea.h"

#include <QEvent>

namespace vellumo {

SettingsScrollArea::SettingsScrollArea(QWidget* parent) : QScrollArea(parent) {
    // Tab goes to the settings within; the area scrolls to show each, and a
    // stop on the area itself would show nothing.
    setFocusPolicy(Qt::NoFocus);
}

QSize SettingsScrollArea::sizeHint() const {
    const int frame = 2 * frameWidth();
    if (widget() == nullptr) {
        return QScrollArea::sizeHint();
    }
    const QSize page = widget()->sizeHint();
    return QSize(page.width(), pageHeightAsked_ ? page.height() : 0) + QSize(frame, frame);
}

void SettingsScrollArea::setPageHeightAsked(bool asked) {
    pageHeightAsked_ = asked;
    updateGeometry();
}

bool SettingsScrollArea::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry();
    }
    return QScrollArea::eventFilter(watched, event);
}

}  // namespace vellumo
