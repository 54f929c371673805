// Loading files and reading their pixel size from headers.

#include <algorithm>

#include "imaging/FileKind.h"
#include "imaging/ImageAccess.h"
#include "imaging/ImageTools.h"
#include "imaging/VipsLoad.h"
#include "imaging/VipsRuntime.h"

namespace vellumo {

namespace {

// Images whose decoded pixels fit in this many bytes are decoded once into
// memory at load (a 24-megapixel photo takes 72 MB). Larger ones are checked
// by a streaming pass that keeps nothing and are then read again, region by
// region, as the crop needs them.
constexpr double kDecodeInMemoryBytes = 768.0 * 1024 * 1024;

// Page headers read at most when sizing a multi-page TIFF.
constexpr int kMaxPages = 1000;

double DecodedBytes(const vips::VImage& image) {
    return static_cast<double>(image.width()) * image.height() * image.bands() *
           static_cast<double>(vips_format_sizeof(image.format()));
}

}  // namespace

LoadResult ImageTools::LoadImage(const std::string& path) {
    vipsruntime::EnsureStarted();
    const SniffedFile sniffed = SniffFile(path);
    if (!sniffed.kind) {
        return LoadResult::Failure(sniffed.reason);
    }
    vipsruntime::FailureScope scope;
    try {
        vips::VImage pixels = vipsload::Open(*sniffed.kind, path);
        const bool upright = vipsload::Orientation(pixels) == 1;
        if (DecodedBytes(pixels) <= kDecodeInMemoryBytes) {
            pixels = pixels.copy_memory();
        } else {
            // Every pixel is decoded once, in strips, to find damage now
            // rather than halfway through writing an output.
            (void)pixels.avg();
            vipsload::OpenOptions again;
            // Turning the image upright needs it all at hand.
            again.access = upright ? VIPS_ACCESS_SEQUENTIAL : VIPS_ACCESS_RANDOM;
            pixels = vipsload::Open(*sniffed.kind, path, again);
        }
        if (!upright) {
            pixels = pixels.autorot();
        }
        const double width = pixels.width();
        const double height = pixels.height();
        return LoadResult::Success(ImageAccess::Make(std::move(pixels), width, height));
    } catch (const vips::VError& error) {
        return LoadResult::Failure(scope.Reason(error));
    }
}

std::optional<Size> ImageTools::ImagePixelSizeWithPath(const std::string& path) {
    vipsruntime::EnsureStarted();
    const SniffedFile sniffed = SniffFile(path);
    if (!sniffed.kind) {
        return std::nullopt;
    }
    vipsruntime::FailureScope scope;
    try {
        vips::VImage first = vipsload::Open(*sniffed.kind, path);
        // GIF frames all share the screen size; only TIFF pages can differ.
        const int pages =
            *sniffed.kind == FileKind::Tiff ? std::min(vipsload::PageCount(first), kMaxPages) : 1;
        Size size;
        for (int page = 0; page < pages; ++page) {
            vips::VImage header = first;
            if (page > 0) {
                vipsload::OpenOptions options;
                options.page = page;
                header = vipsload::Open(*sniffed.kind, path, options);
            }
            double w = header.width();
            double h = header.height();
            if (vipsload::Orientation(header) >= 5) {
                std::swap(w, h);
            }
            size.width = std::max(size.width, w);
            size.height = std::max(size.height, h);
        }
        return size;
    } catch (const vips::VError&) {
        return std::nullopt;
    }
}

}  // namespace vellumo
