// The preview: a picture small enough to draw at once, decoded no larger
// than needed.

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string_view>

#include "imaging/FileKind.h"
#include "imaging/ImageAccess.h"
#include "imaging/ImageTools.h"
#include "imaging/OpenedFile.h"
#include "imaging/PixelConvert.h"
#include "imaging/VipsLoad.h"
#include "imaging/VipsRuntime.h"
#include "imaging/WebpDecodePlan.h"

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

// The most JPEG 2000 resolution levels may be dropped with the longer side
// still at least `maxSide`: each halves the picture (its sides rounded up),
// and the decoder then reads only the coarser levels' data.
int Jpeg2000Reduction(const vips::VImage& header, int maxSide) {
    const int levels = vipsload::PageCount(header);
    const int longer = std::max(header.width(), header.height());
    int reduction = 0;
    while (reduction + 1 < levels && ((longer - 1) >> (reduction + 1)) + 1 >= maxSide) {
        ++reduction;
    }
    return reduction;
}

// The file's picture as its decoder reads it cheapest with the longer side
// still at least `maxSide`: a JPEG at 1/2, 1/4 or 1/8 of its size, a JPEG
// 2000 at a coarser resolution level, a WebP scaled by libwebp to leave the
// resize after it kWebpMinResizeFactor, a HEIF's own thumbnail when it is
// large enough and of the image's shape; else the whole first picture.
vips::VImage ReducedOnLoad(const OpenedFile& file, const std::string& path, int maxSide) {
    const FileKind kind = file.kind;
    const vips::VImage& opened = file.first;
    vipsload::OpenOptions options;
    if (kind == FileKind::WebP) {
        const double longer = std::max(file.stored.width, file.stored.height);
        if (longer > maxSide * kWebpMinResizeFactor) {
            options.scale = maxSide * kWebpMinResizeFactor / longer;
        }
        return opened.is_null() || options.scale < 1.0 ? vipsload::Open(kind, path, options)
                                                       : opened;
    }
    if (kind == FileKind::Jpeg) {
        options.shrink = JpegShrink(opened, maxSide);
        return options.shrink > 1 ? vipsload::Open(kind, path, options) : opened;
    }
    // Only OpenJPEG's levels: ImageMagick, which reads some files it
    // refuses, takes `page` for another page.
    if (kind == FileKind::Jpeg2000 && vipsload::ReadBy(opened, "jp2kload")) {
        options.reduction = Jpeg2000Reduction(opened, maxSide);
        return options.reduction > 0 ? vipsload::Open(kind, path, options) : opened;
    }
    if (kind == FileKind::Heif) {
        options.thumbnail = true;
        vips::VImage thumbnail = vipsload::Open(kind, path, options);
        // A file without one gives its image again: that is `opened`.
        const bool own =
            thumbnail.width() != opened.width() || thumbnail.height() != opened.height();
        if (own && std::max(thumbnail.width(), thumbnail.height()) >= maxSide &&
            SameShape(thumbnail, file.stored)) {
            return thumbnail;
        }
    }
    return opened;
}

}  // namespace

PreviewResult ImageTools::LoadPreview(const std::string& path, int maxSide) {
    vipsruntime::EnsureStarted();
    vipsruntime::FailureScope scope;
    try {
        std::string refused;
        const std::optional<OpenedFile> opened = OpenFile(path, refused);
        if (!opened) {
            return PreviewResult::Failure(refused);
        }
        vips::VImage pixels = ReducedOnLoad(*opened, path, std::max(1, maxSide));
        const int longer = std::max(pixels.width(), pixels.height());
        if (longer > maxSide) {
            pixels = pixels.thumbnail_image(
                maxSide, vips::VImage::option()->set("height", maxSide)->set("no_rotate", true));
        }
        // Small now: decoded whole here, off the caller's screen thread, so
        // that drawing it later costs nothing and damage shows now.
        pixels = pixels.copy_memory();
        if (opened->orientation != 1) {
            pixels = pixels.autorot();
        }
        return PreviewResult::Success(PreviewOf(opened->header, std::move(pixels)));
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
