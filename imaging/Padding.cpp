#include "imaging/Padding.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "imaging/ImageAccess.h"
#include "imaging/PixelConvert.h"
#include "imaging/VipsRuntime.h"

namespace vellumo {

namespace {

// Where a side of `inner` pixels starts in a side of `outer`: at the start,
// at the end, or at half less half, each half in whole pixels.
long Offset(long outer, long inner, bool atStart, bool atEnd) {
    if (atStart)
        return 0;
    if (atEnd)
        return outer - inner;
    return outer / 2 - inner / 2;
}

// The blurred picture is made on a canvas no longer than this, then
// enlarged: the blur's look does not depend on the canvas's size, and a
// large photo costs a small one's work.
constexpr double kBlurCanvasSide = 96.0;
constexpr double kBlurSigma = 4.0;

// A blurred copy of `rgb`, enlarged to cover `columns` x `rows` and centred.
vips::VImage BlurredCover(const vips::VImage& rgb, int columns, int rows) {
    const double shrink = std::min(1.0, kBlurCanvasSide / std::max(columns, rows));
    const int smallColumns = std::max(1, static_cast<int>(std::lround(columns * shrink)));
    const int smallRows = std::max(1, static_cast<int>(std::lround(rows * shrink)));
    const double cover = std::max(static_cast<double>(smallColumns) / rgb.width(),
                                  static_cast<double>(smallRows) / rgb.height());
    vips::VImage small = rgb.resize(cover);
    small = small.embed(-(small.width() - smallColumns) / 2, -(small.height() - smallRows) / 2,
                        smallColumns, smallRows,
                        vips::VImage::option()->set("extend", VIPS_EXTEND_COPY));
    small = small.gaussblur(kBlurSigma);
    vips::VImage large =
        small.resize(static_cast<double>(columns) / smallColumns,
                     vips::VImage::option()->set("vscale", static_cast<double>(rows) / smallRows));
    large =
        large.embed(0, 0, columns, rows, vips::VImage::option()->set("extend", VIPS_EXTEND_COPY));
    return large.cast(VIPS_FORMAT_UCHAR);
}

}  // namespace

PadLayout PadLayoutFor(Size picture, AspectRatio ratio, CropAnchor anchor) {
    const double w = std::trunc(picture.width);
    const double h = std::trunc(picture.height);
    double canvasW = w;
    double canvasH = h;
    if (w * ratio.height >= h * ratio.width) {
        canvasH = std::max(h, std::round(w * ratio.height / ratio.width));
    } else {
        canvasW = std::max(w, std::round(h * ratio.width / ratio.height));
    }
    const bool left = anchor == CropAnchor::Left || anchor == CropAnchor::TopLeft ||
                      anchor == CropAnchor::BottomLeft;
    const bool right = anchor == CropAnchor::Right || anchor == CropAnchor::TopRight ||
                       anchor == CropAnchor::BottomRight;
    const bool top = anchor == CropAnchor::Top || anchor == CropAnchor::TopLeft ||
                     anchor == CropAnchor::TopRight;
    const bool bottom = anchor == CropAnchor::Bottom || anchor == CropAnchor::BottomLeft ||
                        anchor == CropAnchor::BottomRight;
    const auto x = Offset(static_cast<long>(canvasW), static_cast<long>(w), left, right);
    // Rows are placed from the top, as ImageMagick places them; the
    // rectangle's y is then counted from the bottom.
    const auto fromTop = Offset(static_cast<long>(canvasH), static_cast<long>(h), top, bottom);
    return {{canvasW, canvasH}, {static_cast<double>(x), canvasH - h - fromTop, w, h}};
}

Image ImageTools::PadImage(const Image& image, const PadLayout& layout, const PadRule& rule) {
    const vips::VImage* pixels = ImageAccess::Pixels(image);
    if (pixels == nullptr) {
        return image;
    }
    vipsruntime::EnsureStarted();
    const bool alpha = pixels->has_alpha() || rule.background == PadBackground::Transparent;
    const vips::VImage rgb = pixelconvert::ToSrgb8(*pixels, alpha);
    const int columns = static_cast<int>(layout.canvas.width);
    const int rows = static_cast<int>(layout.canvas.height);
    const int left = static_cast<int>(layout.placed.x);
    const int top = static_cast<int>(layout.canvas.height - layout.placed.y - layout.placed.height);
    vips::VImage padded;
    if (rule.background == PadBackground::Blur) {
        padded = BlurredCover(rgb, columns, rows).insert(rgb, left, top);
    } else {
        std::vector<double> fill = {0.0, 0.0, 0.0, 0.0};
        if (rule.background == PadBackground::Colour) {
            fill = {static_cast<double>(rule.colour.red), static_cast<double>(rule.colour.green),
                    static_cast<double>(rule.colour.blue), 255.0};
        }
        fill.resize(static_cast<std::size_t>(rgb.bands()));
        const VipsExtend extend =
            rule.background == PadBackground::Edge ? VIPS_EXTEND_COPY : VIPS_EXTEND_BACKGROUND;
        padded = rgb.embed(left, top, columns, rows,
                           vips::VImage::option()->set("extend", extend)->set("background", fill));
    }
    padded = padded.copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
    return ImageAccess::Make(std::move(padded), layout.canvas.width, layout.canvas.height);
}

}  // namespace vellumo
