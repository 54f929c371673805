#include "ui/sheet/ViewModeIcons.h"

#include <QPainter>
#include <QPixmap>
#include <functional>

namespace vellumo {

namespace {

constexpr int kSide = 16;

// The icon at 1x and 2x, drawn by `draw` on a kSide square.
QIcon Drawn(const QPalette& palette, const std::function<void(QPainter&)>& draw) {
    QIcon icon;
    for (const int scale : {1, 2}) {
        QPixmap pixmap(kSide * scale, kSide * scale);
        pixmap.setDevicePixelRatio(scale);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette.color(QPalette::ButtonText));
        draw(painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

}  // namespace

QIcon ListModeIcon(const QPalette& palette) {
    return Drawn(palette, [](QPainter& painter) {
        for (const int y : {3, 7, 11}) {
            painter.drawRoundedRect(QRectF(1.5, y, 2.5, 2.5), 0.6, 0.6);
            painter.drawRoundedRect(QRectF(5.5, y + 0.5, 9, 1.6), 0.6, 0.6);
        }
    });
}

QIcon ContactSheetModeIcon(const QPalette& palette) {
    return Drawn(palette, [](QPainter& painter) {
        for (const int y : {2, 9}) {
            for (const int x : {2, 9}) {
                painter.drawRoundedRect(QRectF(x, y, 5.5, 5.5), 1, 1);
            }
        }
    });
}

}  // namespace vellumo
