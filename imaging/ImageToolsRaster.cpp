// Raster operations. The lower-left, y-up coordinates of ImageTools meet
// libvips' top-left rows here and nowhere else (TopRow below).

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "imaging/Fatal.h"
#include "imaging/ImageAccess.h"
#include "imaging/ImageTools.h"
#include "imaging/PixelConvert.h"
#include "imaging/VipsRuntime.h"

namespace vellumo {

namespace {

// The whole pixels in `units`: truncated toward zero, or nothing when the
// value is not finite, negative, or beyond what libvips can address.
std::optional<int> WholePixels(double units) {
    if (!std::isfinite(units) || units < 0.0 || units >= VIPS_MAX_COORD) {
        return std::nullopt;
    }
    return static_cast<int>(units);
}

// The top-left row index of a band of `rows` rows whose lower edge lies
// `bottom` rows above the lower edge of an image `imageRows` rows high.
int TopRow(int imageRows, int bottom, int rows) {
    return imageRows - bottom - rows;
}

}  // namespace

Image ImageTools::CropImage(const Image& image, Rect rect) {
    const double originX = rect.x;
    const double originY = rect.y;
    const double width = rect.width;
    const double height = rect.height;
    if (width < 1.0 || height < 1.0) {
        return image;
    }
    const double W = image.Width();
    const double H = image.Height();
    if (originX >= 0 && originY >= 0) {
        if (originX > W || originY > H)
            return image;
    } else if (originX >= 0 && originY < 0) {
        if (originY > height || originX > W)
            return image;
    } else if (originX < 0 && originY >= 0) {
        if (originX > width || originY > H)
            return image;
    } else {
        if (originX > width || originY > height)
            return image;
    }
    const Size cropped = VisibleSize(image, rect);
    if (cropped.width <= 0 || cropped.height <= 0) {
        return image;
    }

    const vips::VImage* pixels = ImageAccess::Pixels(image);
    const auto columns = WholePixels(cropped.width);
    const auto rows = WholePixels(cropped.height);
    if (pixels == nullptr || !columns || !rows || *columns == 0 || *rows == 0) {
        return ImageAccess::MakeWithoutPixels(cropped.width, cropped.height);
    }
    // No resampling: start at the origin rounded to the nearest pixel, take
    // the clipped size truncated, and keep the cut on the pixel grid.
    const Rect area = CropPixelArea(
        {static_cast<double>(pixels->width()), static_cast<double>(pixels->height())},
        {originX, originY, static_cast<double>(*columns), static_cast<double>(*rows)});
    const int left = static_cast<int>(area.x);
    const int bottom = static_cast<int>(area.y);
    const int cutColumns = static_cast<int>(area.width);
    const int cutRows = static_cast<int>(area.height);
    vips::VImage cut =
        pixels->extract_area(left, TopRow(pixels->height(), bottom, cutRows), cutColumns, cutRows);
    return ImageAccess::Make(std::move(cut), cropped.width, cropped.height);
}

Image ImageTools::ResizeImage(const Image& image, Size size) {
    const double width = size.width;
    const double height = size.height;
    vipsruntime::EnsureStarted();
    const auto columns = WholePixels(width);
    const auto rows = WholePixels(height);
    if (!columns || !rows || *columns == 0 || *rows == 0) {
        return ImageAccess::MakeWithoutPixels(width, height);
    }
    const vips::VImage* pixels = ImageAccess::Pixels(image);
    if (pixels == nullptr) {
        // Nothing to draw: a fully transparent canvas.
        vips::VImage canvas =
            vips::VImage::black(*columns, *rows, vips::VImage::option()->set("bands", 4));
        canvas =
            canvas.copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
        return ImageAccess::Make(std::move(canvas), width, height);
    }
    if (*columns == pixels->width() && *rows == pixels->height()) {
        return ImageAccess::Make(*pixels, width, height);
    }
    const VipsBandFormat format = pixels->format();
    const bool alpha = pixels->has_alpha();
    vips::VImage source = alpha ? pixels->premultiply() : *pixels;
    const double hscale = static_cast<double>(*columns) / pixels->width();
    const double vscale = static_cast<double>(*rows) / pixels->height();
    vips::VImage scaled = source.resize(hscale, vips::VImage::option()->set("vscale", vscale));
    if (scaled.width() != *columns || scaled.height() != *rows) {
        // The scaler rounds the output size; settle it on exactly the canvas.
        scaled = scaled.embed(0, 0, *columns, *rows,
                              vips::VImage::option()->set("extend", VIPS_EXTEND_COPY));
    }
    if (alpha) {
        scaled = scaled.unpremultiply();
    }
    scaled = scaled.cast(format);
    return ImageAccess::Make(std::move(scaled), width, height);
}

std::optional<Rect> ImageTools::SmartPlacement(const Image& picture, Size full, Size rect,
                                               CropAnchor anchor) {
    const vips::VImage* pixels = ImageAccess::Pixels(picture);
    const bool libvipsMeasure = anchor == CropAnchor::Attention || anchor == CropAnchor::Entropy;
    if (pixels == nullptr || !libvipsMeasure || !(full.width > 0) || !(full.height > 0)) {
        return std::nullopt;
    }
    vipsruntime::EnsureStarted();
    vipsruntime::FailureScope scope;
    try {
        // The window holds its picture as 8-bit sRGB (with alpha when the
        // file has it); bring the job's picture through the same steps so
        // both judge the same samples.
        const vips::VImage rgb =
            pixelconvert::ToSrgb8(pixelconvert::ToSrgb8(*pixels, pixels->has_alpha()), false);
        const double scaleX = rgb.width() / full.width;
        const double scaleY = rgb.height() / full.height;
        const int width =
            std::clamp(static_cast<int>(std::lround(rect.width * scaleX)), 1, rgb.width());
        const int height =
            std::clamp(static_cast<int>(std::lround(rect.height * scaleY)), 1, rgb.height());
        const VipsInteresting measure =
            anchor == CropAnchor::Attention ? VIPS_INTERESTING_ATTENTION : VIPS_INTERESTING_ENTROPY;
        const vips::VImage chosen =
            rgb.smartcrop(width, height, vips::VImage::option()->set("interesting", measure));
        // The extract libvips makes records where it cut, as minus its
        // offset.
        const double left = -chosen.xoffset() / scaleX;
        const double topRow = -chosen.yoffset() / scaleY;
        const double x = std::clamp(left, 0.0, std::max(0.0, full.width - rect.width));
        const double fromTop = std::clamp(topRow, 0.0, std::max(0.0, full.height - rect.height));
        return Rect{x, full.height - rect.height - fromTop, rect.width, rect.height};
    } catch (const vips::VError&) {
        return std::nullopt;
    }
}

Image ImageTools::BringImageToActualSize(const Image& image, const std::string& path) {
    const std::optional<Size> pixelSize = PixelSizeOfFile(path);
    if (!pixelSize) {
        Fatal("cannot read the pixel size of " + path);
    }
    return BringImageToActualSize(image, *pixelSize);
}

Image ImageTools::BringImageToActualSize(const Image& image, Size pixelSize) {
    if (pixelSize.width == image.Width() && pixelSize.height == image.Height()) {
        return image;
    }
    return ResizeImage(image, pixelSize);
}

namespace {

// The part of each unit cell [i, i + 1) covered by the span [start, end),
// for `cells` cells.
std::vector<float> Coverage(double start, double end, int cells) {
    std::vector<float> covered(static_cast<std::size_t>(cells), 0.0f);
    if (!(end > start)) {
        return covered;
    }
    for (int i = 0; i < cells; ++i) {
        const double from = std::max(start, static_cast<double>(i));
        const double to = std::min(end, static_cast<double>(i) + 1.0);
        if (to > from) {
            covered[static_cast<std::size_t>(i)] = static_cast<float>(to - from);
        }
    }
    return covered;
}

// An image that owns a copy of `values` (the pipeline that uses it is
// evaluated after this function returns).
vips::VImage FloatImage(const std::vector<float>& values, int width, int height) {
    const std::size_t bytes = values.size() * sizeof(float);
    return vips::VImage::new_from_memory_steal(g_memdup2(values.data(), bytes), bytes, width,
                                               height, 1, VIPS_FORMAT_FLOAT);
}

}  // namespace

Image ImageTools::VeilOutsideRectangle(const Image& image, Rect rect) {
    const double originX = rect.x;
    const double originY = rect.y;
    const double width = rect.width;
    const double height = rect.height;
    vipsruntime::EnsureStarted();
    const vips::VImage* pixels = ImageAccess::Pixels(image);
    if (pixels == nullptr) {
        return ImageAccess::MakeWithoutPixels(image.Width(), image.Height());
    }
    const int columns = pixels->width();
    const int rows = pixels->height();

    // How much of each pixel the rectangle covers, as the product of its
    // horizontal and vertical coverage. Rows are counted from the top here,
    // so the vertical span is turned over once.
    const std::vector<float> across = Coverage(originX, originX + width, columns);
    std::vector<float> upward = Coverage(originY, originY + height, rows);
    std::reverse(upward.begin(), upward.end());
    const vips::VImage inside = FloatImage(across, columns, 1).replicate(1, rows) *
                                FloatImage(upward, 1, rows).replicate(columns, 1);

    const vips::VImage rgba = pixelconvert::ToSrgb8(*pixels, true);
    vips::VImage result;
    if (!pixels->has_alpha()) {
        // Opaque, the usual case, in 8-bit arithmetic: outside, 0.6 x white
        // + 0.4 x the pixel; inside, the pixel itself; on the edges, the two
        // blended by the coverage.
        const vips::VImage colour = rgba.extract_band(0, vips::VImage::option()->set("n", 3));
        const vips::VImage veiled = (colour * 0.4 + (0.6 * 255.0 + 0.5)).cast(VIPS_FORMAT_UCHAR);
        const vips::VImage mask = (inside * 255.0 + 0.5).cast(VIPS_FORMAT_UCHAR);
        result = mask.ifthenelse(colour, veiled, vips::VImage::option()->set("blend", true))
                     .bandjoin_const({255.0});
    } else {
        // Veil alpha: 0.6 outside, 0 inside, in between on the edges. The
        // white veil goes over the image (premultiplied source-over).
        const vips::VImage veil = (1.0 - inside) * 0.6;
        const vips::VImage straightIn = rgba.cast(VIPS_FORMAT_FLOAT);
        const vips::VImage alpha = straightIn[3] / 255.0;
        const vips::VImage colour = straightIn.extract_band(0, vips::VImage::option()->set("n", 3));
        const vips::VImage keep = 1.0 - veil;
        const vips::VImage outAlpha = veil + alpha * keep;
        const vips::VImage premultiplied = colour * alpha * keep + veil * 255.0;
        // libvips gives 0 for a division by 0, which is right for a pixel
        // with no coverage at all.
        const vips::VImage straight = premultiplied / outAlpha;
        result = (straight.bandjoin(outAlpha * 255.0) + 0.5).cast(VIPS_FORMAT_UCHAR);
    }
    result = result.copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
    return ImageAccess::Make(std::move(result), image.Width(), image.Height());
}

}  // namespace vellumo
