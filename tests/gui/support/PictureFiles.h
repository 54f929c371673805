#pragma once

// Image files the window tests write for themselves, with Qt's own writers,
// so that every pixel is known.

#include <QColor>
#include <QImage>
#include <QString>

namespace vellumo::test {

// A picture of one colour.
QImage Plain(int width, int height, QColor colour);

// Four quarters of different colours: red at the top left, green at the top
// right, blue at the bottom left, yellow at the bottom right.
QImage Quarters(int width, int height);

// Writes `picture` to `path` (the format by the extension); stops the test
// program when that fails. Returns the path.
QString Write(const QImage& picture, const QString& path);

// Whether two colours differ by at most `tolerance` in each channel.
bool Near(QColor a, QColor b, int tolerance);

// The colour of a pixel of `colour` veiled: 60 % white over 40 % of it.
QColor Veiled(QColor colour);

}  // namespace vellumo::test
