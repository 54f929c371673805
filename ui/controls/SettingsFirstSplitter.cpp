#include "ui/controls/SettingsFirstSplitter.h"

#include <algorithm>

namespace vellumo {

SettingsFirstSplitter::SettingsFirstSplitter(QWidget* parent) : QSplitter(parent) {}

void SettingsFirstSplitter::resizeEvent(QResizeEvent* event) {
    QSplitter::resizeEvent(event);
    QList<int> panes = sizes();
    if (panes.size() != 2 || panes[0] == 0 || panes[1] == 0) {
        return;
    }
    const int missing = widget(1)->sizeHint().width() - panes[1];
    const int spare = panes[0] - widget(0)->minimumSizeHint().width();
    const int moved = std::min(missing, spare);
    if (moved > 0) {
        setSizes({panes[0] - moved, panes[1] + moved});
    }
}

}  // namespace vellumo
