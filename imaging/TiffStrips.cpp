#include "imaging/TiffStrips.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <mutex>
#include <vector>

#include "imaging/TiffHandle.h"
#include "imaging/VipsLoad.h"

namespace vellumo::tiffstrips {

namespace {

// A strip larger than this is left to libvips (a writer that put a whole
// page into one strip gains nothing from reading by strips).
constexpr std::size_t kMostStripBytes = std::size_t{64} << 20;

struct StripSource {
    std::string error;  // before the handle: libtiff writes into it
    tiffhandle::Tiff tiff{nullptr, &TIFFClose};
    std::uint32_t height = 0;
    std::uint32_t rowsPerStrip = 0;
    std::size_t rowBytes = 0;
    std::mutex lock;  // libtiff handles are not shared between threads
    std::vector<std::uint8_t> strip;
    std::int64_t stripHeld = -1;
};

bool Compressible(std::uint16_t compression) {
    switch (compression) {
        case COMPRESSION_NONE:
        case COMPRESSION_LZW:
        case COMPRESSION_ADOBE_DEFLATE:
        case COMPRESSION_DEFLATE:
        case COMPRESSION_PACKBITS:
            return true;
        default:
            return false;
    }
}

bool HasAssociatedAlpha(TIFF* tiff) {
    std::uint16_t count = 0;
    std::uint16_t* kinds = nullptr;
    TIFFGetFieldDefaulted(tiff, TIFFTAG_EXTRASAMPLES, &count, &kinds);
    return std::any_of(kinds, kinds + count,
                       [](std::uint16_t kind) { return kind == EXTRASAMPLE_ASSOCALPHA; });
}

// Whether the first page of `tiff` is laid out as `header`'s pixels are, so
// that the strips' bytes are the pixels libvips would give.
bool Plain(TIFF* tiff, const vips::VImage& header) {
    if (TIFFIsTiled(tiff) != 0 || HasAssociatedAlpha(tiff)) {
        return false;
    }
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint16_t planar = 0;
    std::uint16_t compression = 0;
    std::uint16_t photometric = 0;
    std::uint16_t bits = 0;
    std::uint16_t samples = 0;
    std::uint16_t sampleFormat = 0;
    if (TIFFGetField(tiff, TIFFTAG_IMAGEWIDTH, &width) == 0 ||
        TIFFGetField(tiff, TIFFTAG_IMAGELENGTH, &height) == 0 ||
        TIFFGetField(tiff, TIFFTAG_PHOTOMETRIC, &photometric) == 0) {
        return false;
    }
    TIFFGetFieldDefaulted(tiff, TIFFTAG_PLANARCONFIG, &planar);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_COMPRESSION, &compression);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_BITSPERSAMPLE, &bits);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_SAMPLESPERPIXEL, &samples);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_SAMPLEFORMAT, &sampleFormat);
    const VipsBandFormat format = bits == 8 ? VIPS_FORMAT_UCHAR : VIPS_FORMAT_USHORT;
    return planar == PLANARCONFIG_CONTIG && Compressible(compression) &&
           (photometric == PHOTOMETRIC_MINISBLACK || photometric == PHOTOMETRIC_RGB) &&
           (bits == 8 || bits == 16) && sampleFormat == SAMPLEFORMAT_UINT &&
           static_cast<int>(width) == header.width() &&
           static_cast<int>(height) == header.height() && samples == header.bands() &&
           format == header.format();
}

// Decodes strip `index` into source->strip unless it is the one held.
bool HoldStrip(StripSource* source, std::uint32_t index) {
    if (source->stripHeld == index) {
        return true;
    }
    source->stripHeld = -1;
    const std::uint32_t first = index * source->rowsPerStrip;
    const std::uint32_t rows = std::min(source->rowsPerStrip, source->height - first);
    const auto wanted = static_cast<tmsize_t>(rows * source->rowBytes);
    const tmsize_t read =
        TIFFReadEncodedStrip(source->tiff.get(), index, source->strip.data(), wanted);
    if (read < wanted) {
        vips_error("tiffload", "TIFF strip %u cannot be decoded: %s", index,
                   source->error.empty() ? "the file ends early" : source->error.c_str());
        return false;
    }
    source->stripHeld = index;
    return true;
}

int Generate(VipsRegion* out, void* /*sequence*/, void* a, void* /*b*/, gboolean* /*stop*/) {
    auto* source = static_cast<StripSource*>(a);
    const VipsRect& area = out->valid;
    const std::size_t pixelBytes = VIPS_IMAGE_SIZEOF_PEL(out->im);
    const std::lock_guard<std::mutex> held(source->lock);
    for (int y = area.top; y < VIPS_RECT_BOTTOM(&area); ++y) {
        const auto row = static_cast<std::uint32_t>(y);
        if (!HoldStrip(source, row / source->rowsPerStrip)) {
            return -1;
        }
        const std::uint8_t* from = source->strip.data() +
                                   (row % source->rowsPerStrip) * source->rowBytes +
                                   static_cast<std::size_t>(area.left) * pixelBytes;
        std::memcpy(VIPS_REGION_ADDR(out, area.left, y), from,
                    static_cast<std::size_t>(area.width) * pixelBytes);
    }
    return 0;
}

void Release(VipsImage* /*image*/, StripSource* source) {
    delete source;
}

}  // namespace

std::optional<vips::VImage> Open(const std::string& path, const vips::VImage& header) {
    // libvips' own TIFF decoder opened the header (from a file, or from a
    // source: the worker reads its descriptors so), not ImageMagick's.
    if (!vipsload::ReadBy(header, "tiffload")) {
        return std::nullopt;
    }
    auto source = std::make_unique<StripSource>();
    source->tiff = tiffhandle::Open(path, &source->error);
    if (!source->tiff || !Plain(source->tiff.get(), header)) {
        return std::nullopt;
    }
    TIFF* tiff = source->tiff.get();
    source->height = static_cast<std::uint32_t>(header.height());
    TIFFGetFieldDefaulted(tiff, TIFFTAG_ROWSPERSTRIP, &source->rowsPerStrip);
    source->rowsPerStrip = std::clamp(source->rowsPerStrip, 1u, source->height);
    source->rowBytes = static_cast<std::size_t>(TIFFScanlineSize(tiff));
    if (source->rowBytes != VIPS_IMAGE_SIZEOF_LINE(header.get_image()) ||
        source->rowBytes * source->rowsPerStrip > kMostStripBytes) {
        return std::nullopt;
    }
    source->strip.resize(source->rowBytes * source->rowsPerStrip);

    VipsImage* out = vips_image_new();
    VipsImage* in = header.get_image();
    if (vips_image_pipelinev(out, VIPS_DEMAND_STYLE_THINSTRIP, in, nullptr) != 0) {
        g_object_unref(out);
        throw vips::VError();
    }
    StripSource* owned = source.release();
    g_signal_connect(out, "close", G_CALLBACK(Release), owned);
    if (vips_image_generate(out, nullptr, Generate, nullptr, owned, nullptr) != 0) {
        g_object_unref(out);
        throw vips::VError();
    }
    return vips::VImage(out);
}

}  // namespace vellumo::tiffstrips
