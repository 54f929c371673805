#include "imaging/VipsLoad.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <optional>
#include <string_view>
#include <system_error>

#include "imaging/FileHandles.h"
#include "imaging/TiffRgba.h"
#include "imaging/VipsFileSource.h"

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

bool OnlySecondDecoder() {
    return onlySecondDecoder.load();
}

namespace {

// ImageMagick's name for the format of each kind it is given.
const char* MagickFormat(FileKind kind) {
    switch (kind) {
        case FileKind::Jpeg:
            return "jpeg";
        case FileKind::Jpeg2000:
            return "jp2";  // its JPEG 2000 coder reads bare codestreams too
        case FileKind::Png:
            return "png";
        case FileKind::Gif:
            return "gif";
        case FileKind::Tiff:
            return "tiff";
        case FileKind::Bmp:
            return "bmp";
        case FileKind::Heif:
        case FileKind::WebP:
        case FileKind::JpegXl:
            break;
    }
    return "";
}

// Descriptors ImageMagick is given are numbered from here, above those the
// process opens in the meantime, so that one it left open (a failure before
// it opened its stream) is not mistaken for another's.
constexpr int kMagickDescriptors = 40;

// A descriptor's file (FileHandles.h) is given to ImageMagick as "fd:N", a
// duplicate it reads from the start and closes, with the format named
// ("jp2:fd:N"): ImageMagick then neither opens a path nor guesses the format
// (from bytes in memory libvips' bridge takes a JPEG 2000 file for TGA).
vips::VImage OpenWithImageMagick(FileKind kind, const std::string& path, vips::VOption* options) {
    const std::optional<int> given = filehandles::NamedDescriptor(path);
    if (!given) {
        return vips::VImage::magickload(path.c_str(), options);
    }
    const int fd = fcntl(*given, F_DUPFD_CLOEXEC, kMagickDescriptors);
    if (fd < 0 || lseek(fd, 0, SEEK_SET) != 0) {
        const int error = errno;
        if (fd >= 0) {
            close(fd);
        }
        delete options;  // never handed to libvips, which would free it
        throw vips::VError("cannot read the file: " + std::generic_category().message(error));
    }
    const std::string name = std::string(MagickFormat(kind)) + ":fd:" + std::to_string(fd);
    const auto closeIfLeftOpen = [fd] {
        if (fcntl(fd, F_GETFD) != -1) {
            close(fd);
        }
    };
    try {
        vips::VImage image = vips::VImage::magickload(name.c_str(), options);
        closeIfLeftOpen();
        return image;
    } catch (...) {
        closeIfLeftOpen();
        throw;
    }
}

vips::VImage OpenWithSecondDecoder(FileKind kind, const std::string& path,
                                   const OpenOptions& options) {
    return OpenWithImageMagick(kind, path,
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
    if (kind == FileKind::Bmp) {
        // ImageMagick reads BMP here; the caller has checked the BMP
        // signature, so no other ImageMagick coder is reached.
        return OpenWithImageMagick(kind, path, vopts);
    }
    const vips::VSource file = vipsfilesource::Of(path);
    switch (kind) {
        case FileKind::Jpeg:
            if (options.shrink > 1) {
                vopts->set("shrink", options.shrink);
            }
            return vips::VImage::jpegload_source(file, vopts);
        case FileKind::Png:
            return vips::VImage::pngload_source(file, vopts);
        case FileKind::Gif:
            return vips::VImage::gifload_source(file, vopts->set("page", options.page));
        case FileKind::Tiff:
            return vips::VImage::tiffload_source(file, vopts->set("page", options.page));
        case FileKind::Jpeg2000:
            return vips::VImage::jp2kload_source(file, vopts->set("page", options.reduction));
        case FileKind::Bmp:
            break;
        case FileKind::Heif:
            // The primary image, turned by libheif as the container says
            // (irot, imir).
            return vips::VImage::heifload_source(file, vopts->set("thumbnail", options.thumbnail));
        case FileKind::WebP:
            if (options.scale < 1.0) {
                vopts->set("scale", options.scale);
            }
            return vips::VImage::webpload_source(file, vopts->set("page", options.page));
        case FileKind::JpegXl:
            return vips::VImage::jxlload_source(file, vopts);
    }
    return {};
}

vips::VImage OpenWithOtherDecoders(FileKind kind, const std::string& path,
                                   const OpenOptions& options) {
    try {
        return OpenWithSecondDecoder(kind, path, options);
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

bool ReadBy(const vips::VImage& image, std::string_view loader) {
    if (image.get_typeof(VIPS_META_LOADER) == 0) {
        return false;
    }
    const std::string_view name = image.get_string(VIPS_META_LOADER);
    return name == loader || (name.starts_with(loader) && name.substr(loader.size()) == "_source");
}

std::vector<unsigned char> ColourProfile(const vips::VImage& image) {
    if (image.get_typeof(VIPS_META_ICC_NAME) == 0) {
        return {};
    }
    std::size_t length = 0;
    const auto* data =
        static_cast<const unsigned char*>(image.get_blob(VIPS_META_ICC_NAME, &length));
    return {data, data + length};
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
    if (ReadBy(image, "heifload")) {
        return 1;
    }
    if (image.get_typeof(VIPS_META_ORIENTATION) == 0) {
        return 1;
    }
    const int orientation = image.get_int(VIPS_META_ORIENTATION);
    return orientation >= 1 && orientation <= 8 ? orientation : 1;
}

}  // namespace vellumo::vipsload
