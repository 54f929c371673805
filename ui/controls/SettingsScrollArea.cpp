#include "ui/controls/SettingsScrollArea.h"

#include <QEvent>

namespace vellumo {

SettingsScrollArea::SettingsScrollArea(QWidget* parent) : QScrollArea(parent) {}

QSize SettingsScrollArea::sizeHint() const {
    const int frame = 2 * frameWidth();
    if (widget() == nullptr) {
        return QScrollArea::sizeHint();
    }
    return widget()->sizeHint() + QSize(frame, frame);
}

bool SettingsScrollArea::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry();
    }
    return QScrollArea::eventFilter(watched, event);
}

}  // namespace vellumo
