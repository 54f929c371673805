// The preview: a picture small enough to draw at once, decoded no larger
// than needed.

#include <algorithm>
#include <cstring>

#include "imaging/FileKind.h"
#include "imaging/ImageAccess.h"
#include "imaging/ImageTools.h"
#include "imaging/PixelConvert.h"
#include "imaging/VipsLoad.h"
#include "imaging/VipsRuntime.h"

namespace vellumo {

namespace {

// The largest JPEG shrink-on-load factor (8, 4, 2) that still leaves the
// longer side at least `maxSide`: the decoder then skips most of its work.
int JpegShrink(const vips::VImage& header, int maxSide) {
    const int longer = std::max(header.width(), header.height());
    for (int shrink : {8, 4, 2}) {
        if (longer / shrink >= maxSide) {
            return shrink;
        }
    }
    return 1;
}

}  // namespace

PreviewResult ImageTools::LoadPreview(const std::string& path, int maxSide) {
    vipsruntime::EnsureStarted();
    const std::optional<ImageHeader> header = HeaderOfFile(path);
    const SniffedFile sniffed = SniffFile(path);
    if (!sniffed.kind) {
        return PreviewResult::Failure(sniffed.reason);
    }
    vipsruntime::FailureScope scope;
    try {
        vips::VImage pixels = vipsload::Open(*sniffed.kind, path);
        if (!header) {
            return PreviewResult::Failure("the image's size cannot be read");
        }
        const int orientation = vipsload::Orientation(pixels);
        if (*sniffed.kind == FileKind::Jpeg) {
            const int shrink = JpegShrink(pixels, std::max(1, maxSide));
            if (shrink > 1) {
                vipsload::OpenOptions options;
                options.shrink = shrink;
                pixels = vipsload::Open(*sniffed.kind, path, options);
            }
        }
        const int longer = std::max(pixels.width(), pixels.height());
        if (longer > maxSide) {
            pixels = pixels.thumbnail_image(
                maxSide, vips::VImage::option()->set("height", maxSide)->set("no_rotate", true));
        }
        // Small now: decoded whole here, off the caller's screen thread, so
        // that drawing it later costs nothing and damage shows now.
        pixels = pixels.copy_memory();
        if (orientation != 1) {
            pixels = pixels.autorot();
        }
        const double width = pixels.width();
        const double height = pixels.height();
        return PreviewResult::Success(Preview{header->pixelSize,
                                              ImageAccess::Make(std::move(pixels), width, height),
                                              header->pages, header->jpegGrid});
    } catch (const vips::VError& error) {
        return PreviewResult::Failure(scope.Reason(error));
    }
}

std::optional<RgbaBitmap> ImageTools::RenderRgba8(const Image& image) {
    const vips::VImage* pixels = ImageAccess::Pixels(image);
    if (pixels == nullptr) {
        return std::nullopt;
    }
    vipsruntime::EnsureStarted();
    vipsruntime::FailureScope scope;
    try {
        const vips::VImage rgba = pixelconvert::ToSrgb8(*pixels, true);
        std::size_t size = 0;
        void* data = rgba.write_to_memory(&size);
        RgbaBitmap bitmap;
        bitmap.width = rgba.width();
        bitmap.height = rgba.height();
        bitmap.pixels.resize(size);
        std::memcpy(bitmap.pixels.data(), data, size);
        g_free(data);
        return bitmap;
    } catch (const vips::VError&) {
        return std::nullopt;
    }
}

}  // namespace vellumo
