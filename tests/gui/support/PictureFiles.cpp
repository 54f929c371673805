#include "tests/gui/support/PictureFiles.h"

#include <QPainter>
#include <cstdlib>

#include "imaging/Fatal.h"

namespace vellumo::test {

QImage Plain(int width, int height, QColor colour) {
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(colour);
    return picture;
}

QImage Quarters(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    QPainter painter(&picture);
    const int halfWidth = width / 2;
    const int halfHeight = height / 2;
    painter.fillRect(0, 0, halfWidth, halfHeight, Qt::red);
    painter.fillRect(halfWidth, 0, width - halfWidth, halfHeight, Qt::green);
    painter.fillRect(0, halfHeight, halfWidth, height - halfHeight, Qt::blue);
    painter.fillRect(halfWidth, halfHeight, width - halfWidth, height - halfHeight, Qt::yellow);
    return picture;
}

QString Write(const QImage& picture, const QString& path) {
    if (!picture.save(path)) {
        Fatal("test: could not write " + path.toStdString());
    }
    return path;
}

bool Near(QColor a, QColor b, int tolerance) {
    return std::abs(a.red() - b.red()) <= tolerance &&
           std::abs(a.green() - b.green()) <= tolerance &&
           std::abs(a.blue() - b.blue()) <= tolerance;
}

QColor Veiled(QColor colour) {
    const auto veil = [](int channel) { return static_cast<int>(0.6 * 255 + 0.4 * channel + 0.5); };
    return QColor(veil(colour.red()), veil(colour.green()), veil(colour.blue()));
}

}  // namespace vellumo::test
