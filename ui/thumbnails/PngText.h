#pragma once

// A PNG whose text keys are all plain, uncompressed tEXt chunks ahead of the
// pixels, as the shared thumbnail convention has them. (Qt's own writer
// compresses longer values into zTXt chunks.)

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QPair>

namespace vellumo {

using PngTexts = QList<QPair<QByteArray, QByteArray>>;  // Latin-1 key, value

// The PNG file of `picture` (8-bit RGBA) with `texts`; empty on failure.
QByteArray PngWithTexts(const QImage& picture, const PngTexts& texts);

}  // namespace vellumo
