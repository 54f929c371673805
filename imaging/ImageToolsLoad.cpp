// Loading files and reading their pixel size from headers.

#include <algorithm>

#include "imaging/FileKind.h"
#include "imaging/ImageAccess.h"
#include "imaging/ImageTools.h"
#include "imaging/OpenedFile.h"
#include "imaging/SourceTap.h"
#include "imaging/TiffStrips.h"
#include "imaging/VipsLoad.h"
#include "imaging/VipsRuntime.h"

namespace vellumo {

namespace {

// Images whose decoded pixels fit in this many bytes are decoded once into
// memory at load (a 24-megapixel photo takes 72 MB); larger ones stay out of
// memory (OpenHuge).
constexpr double kDecodeInMemoryBytes = 768.0 * 1024 * 1024;

double DecodedBytes(const vips::VImage& image) {
    return static_cast<double>(image.width()) * image.height() * image.bands() *
           static_cast<double>(vips_format_sizeof(image.format()));
}

// A file too large to decode into memory. Random access keeps it out of
// memory: TIFF strips and JPEG 2000 tiles are read as they are needed (after
// one streaming pass over every pixel, to find damage before any output is
// written); the other kinds are decoded once, whole, into a temporary file
// that libvips maps in as regions are read, and deletes when done.
Image OpenHuge(FileKind kind, const std::string& path, bool upright) {
    vipsload::OpenOptions options;
    options.access = VIPS_ACCESS_RANDOM;
    vips::VImage pixels = vipsload::Open(kind, path, options);
    if (kind == FileKind::Tiff || kind == FileKind::Jpeg2000) {
        (void)pixels.avg();
    } else {
        (void)pixels.getpoint(0, 0);
    }
    if (!upright) {
        pixels = pixels.autorot();
    }
    const double width = pixels.width();
    const double height = pixels.height();
    return ImageAccess::Make(std::move(pixels), width, height);
}

}  // namespace

namespace {

enum class Pass { Validated, Single };

LoadResult Load(const std::string& path, Pass pass) {
    vipsruntime::EnsureStarted();
    const SniffedFile sniffed = SniffFile(path);
    if (!sniffed.kind) {
        return LoadResult::Failure(sniffed.reason, sniffed.stage);
    }
    vipsruntime::FailureScope scope;
    try {
        vips::VImage pixels = vipsload::Open(*sniffed.kind, path);
        const bool upright = vipsload::Orientation(pixels) == 1;
        // An upright image read once streams from the file whatever its
        // size, like a small one.
        const bool streams = pass == Pass::Single && upright;
        if (!streams && DecodedBytes(pixels) > kDecodeInMemoryBytes) {
            return LoadResult::Success(OpenHuge(*sniffed.kind, path, upright));
        }
        if (!streams) {
            pixels = pixels.copy_memory();
        } else if (*sniffed.kind == FileKind::Tiff) {
            // Strips read where the crop needs them, not every row above it.
            if (std::optional<vips::VImage> strips = tiffstrips::Open(path, pixels)) {
                pixels = std::move(*strips);
            }
        }
        if (streams) {
            // Damage is found while the save reads the pixels: noted here.
            pixels = sourcetap::Tap(pixels);
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

}  // namespace

LoadResult ImageTools::LoadImage(const std::string& path) {
    return Load(path, Pass::Validated);
}

LoadResult ImageTools::OpenImage(const std::string& path) {
    return Load(path, Pass::Single);
}

std::optional<Size> ImageTools::PixelSizeOfFile(const std::string& path) {
    const std::optional<ImageHeader> header = HeaderOfFile(path);
    if (!header) {
        return std::nullopt;
    }
    return header->pixelSize;
}

std::optional<ImageHeader> ImageTools::HeaderOfFile(const std::string& path) {
    vipsruntime::EnsureStarted();
    vipsruntime::FailureScope scope;
    try {
        std::string refused;
        const std::optional<OpenedFile> opened = OpenFile(path, refused);
        if (!opened) {
            return std::nullopt;
        }
        return opened->header;
    } catch (const vips::VError&) {
        return std::nullopt;
    }
}

}  // namespace vellumo
