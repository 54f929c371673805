#include "imaging/VipsLoad.h"

#include <atomic>
#include <string_view>

#include "imaging/TiffRgba.h"

namespace vellumo::vipsload {

namespace {

std::atomic<bool> onlySecondDecoder{false};

}  // namespace

// ImageMagick reads many valid files the first decoders refuse (12- and
// 14-bit, YCbCr-subsampled and old-style-JPEG TIFFs, JPEG 2000 with
// subsampled components); it is tried for the kinds it shares with them,
// and only once the content is known to be one of them.
bool HasSecondDecoder(FileKind kind) {
    return kind == FileKind::Jpeg || kind == FileKind::Jpeg2000 || kind == FileKind::Png ||
           kind == FileKind::Gif || kind == FileKind::Tiff;
}

void UseOnlySecondDecoder(bool only) {
    onlySecondDecoder.store(only);
}

namespace {

vips::VImage OpenWithSecondDecoder(const std::string& path, const OpenOptions& options) {
    return vips::VImage::magickload(path.c_str(),
                                    vips::VImage::option()
                                        ->set("access", static_cast<int>(options.access))
                                        ->set("fail_on", static_cast<int>(options.failOn))
                                        ->set("page", options.page));
}

vips::VImage OpenWithFirstDecoder(FileKind kind, const std::string& path,
                                  const OpenOptions& options) {
    auto* vopts = vips::VImage::option()
                      ->set("access", static_cast<int>(options.access))
                      ->set("fail_on", static_cast<int>(options.failOn));
    const char* file = path.c_str();
    switch (kind) {
        case FileKind::Jpeg:
            if (options.shrink > 1) {
                vopts->set("shrink", options.shrink);
            }
            return vips::VImage::jpegload(file, vopts);
        case FileKind::Png:
            return vips::VImage::pngload(file, vopts);
        case FileKind::Gif:
            return vips::VImage::gifload(file, vopts->set("page", options.page));
        case FileKind::Tiff:
            return vips::VImage::tiffload(file, vopts->set("page", options.page));
        case FileKind::Jpeg2000:
            return vips::VImage::jp2kload(file, vopts);
        case FileKind::Bmp:
            // ImageMagick reads BMP here; the caller has checked the BMP
            // signature, so no other ImageMagick coder is reached.
            return vips::VImage::magickload(file, vopts);
        case FileKind::Heif:
            // The primary image, turned by libheif as the container says
            // (irot, imir).
            return vips::VImage::heifload(file, vopts);
        case FileKind::WebP:
            return vips::VImage::webpload(file, vopts->set("page", options.page));
        case FileKind::JpegXl:
            return vips::VImage::jxlload(file, vopts);
    }
    return {};
}

vips::VImage OpenWithOtherDecoders(FileKind kind, const std::string& path,
                                   const OpenOptions& options) {
    try {
        return OpenWithSecondDecoder(path, options);
    } catch (const vips::VError&) {
        // libvips' bridge refuses some colour spaces ImageMagick itself
        // reads (YCbCr): libtiff's own reader takes those TIFF files.
        if (kind != FileKind::Tiff) {
            throw;
        }
        return tiffrgba::Read(path, options.page);
    }
}

}  // namespace

vips::VImage Open(FileKind kind, const std::string& path, const OpenOptions& options) {
    if (onlySecondDecoder.load() && HasSecondDecoder(kind)) {
        return OpenWithOtherDecoders(kind, path, options);
    }
    try {
        return OpenWithFirstDecoder(kind, path, options);
    } catch (const vips::VError& first) {
        if (!HasSecondDecoder(kind)) {
            throw;
        }
        try {
            return OpenWithOtherDecoders(kind, path, options);
        } catch (const vips::VError&) {
            // None can: the first decoder's reason is the one that tells.
            throw first;
        }
    }
}

int PageCount(const vips::VImage& image) {
    if (image.get_typeof("n-pages") == 0) {
        return 1;
    }
    const int pages = image.get_int("n-pages");
    return pages < 1 ? 1 : pages;
}

int Orientation(const vips::VImage& image) {
    // A HEIF image comes turned by its container's transformations, which
    // rule over an Exif orientation in the same file (phones write both):
    // turning it by the Exif tag as well would turn it twice. (libvips 8.14
    // drops the tag for HEIF itself; this holds whatever the version.)
    if (image.get_typeof(VIPS_META_LOADER) != 0 &&
        std::string_view(image.get_string(VIPS_META_LOADER)) == "heifload") {
        return 1;
    }
    if (image.get_typeof(VIPS_META_ORIENTATION) == 0) {
        return 1;
    }
    const int orientation = image.get_int(VIPS_META_ORIENTATION);
    return orientation >= 1 && orientation <= 8 ? orientation : 1;
}

}  // namespace vellumo::vipsload
