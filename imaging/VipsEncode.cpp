#include "imaging/VipsEncode.h"

#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <cstring>
#include <memory>
#include <optional>

#include "imaging/Fatal.h"
#include "imaging/FileBytes.h"
#include "imaging/FileErrors.h"
#include "imaging/FileHandles.h"
#include "imaging/IccEmbed.h"
#include "imaging/SourceTap.h"
#include "imaging/VipsRuntime.h"

namespace vellumo::vipsencode {

namespace {

struct BlobRelease {
    void operator()(VipsBlob* blob) const { vips_area_unref(VIPS_AREA(blob)); }
};
using BlobPtr = std::unique_ptr<VipsBlob, BlobRelease>;

// Optimised Huffman tables make a photo 7-13 % smaller at no cost in
// quality, but libjpeg computes them only with every DCT coefficient of the
// image held in memory, two bytes a sample (61 MB for a 20-megapixel crop).
// Up to this many bytes of coefficients (a 10-megapixel colour crop below
// quality 90) they are optimised; a larger image gets the standard tables,
// so that its memory stays that of streaming it (a 225-megapixel crop would
// otherwise hold 680 MB) and several images in flight stay small.
constexpr double kOptimisedTablesBudget = 32.0 * 1024 * 1024;

// The coefficients libjpeg keeps for `image` at quality factor `q`: below
// 90 the encoder halves the chroma both ways (4:2:0).
double CoefficientBytes(const vips::VImage& image, int q) {
    const auto blocks = [](int side) { return std::ceil(side / 16.0) * 16.0; };
    const double pixels = blocks(image.width()) * blocks(image.height());
    const int chroma = image.bands() - 1;
    const double samples = chroma == 0 ? 1.0 : (q >= 90 ? image.bands() : 1.0 + chroma / 4.0);
    return pixels * samples * 2.0;
}

// A libvips saver ("jpegsave", ...) and its options.
struct Saver {
    const char* operation;
    vips::VOption* options;
};

// AVIF keeps 12 of a 16-bit source's bits; HEIC stays at the 8 bits phones
// write and read.
Saver HeifSaver(const vips::VImage& rendered, OutputCodec codec, double quality) {
    const bool avif = codec == OutputCodec::Avif;
    return {"heifsave",
            vips::VImage::option()
                ->set("Q", QualityFactor(quality))
                ->set("bitdepth", avif && rendered.format() == VIPS_FORMAT_USHORT ? 12 : 8)
                ->set("compression", avif ? VIPS_FOREIGN_HEIF_COMPRESSION_AV1
                                          : VIPS_FOREIGN_HEIF_COMPRESSION_HEVC)};
}

// The saver of each codec whose encoder writes the file itself.
Saver SaverFor(const vips::VImage& rendered, OutputCodec codec, double quality) {
    switch (codec) {
        case OutputCodec::Jpeg: {
            // Baseline, readable everywhere. `strip`: without it the encoder
            // writes an Exif block of its own; the profile is put back after.
            const int q = QualityFactor(quality);
            return {"jpegsave", vips::VImage::option()
                                    ->set("Q", q)
                                    ->set("optimize_coding",
                                          CoefficientBytes(rendered, q) <= kOptimisedTablesBudget)
                                    ->set("strip", true)};
        }
        case OutputCodec::Png:
            // Adaptive row filters at a moderate zlib level: on photos about
            // 30 % smaller than the library's default (level 6, no filter)
            // and no slower.
            return {"pngsave", vips::VImage::option()
                                   ->set("compression", 3)
                                   ->set("filter", VIPS_FOREIGN_PNG_FILTER_ALL)};
        case OutputCodec::Tiff:
            // LZW with differencing: lossless, and opened by every TIFF
            // reader in use.
            return {"tiffsave", vips::VImage::option()
                                    ->set("compression", VIPS_FOREIGN_TIFF_COMPRESSION_LZW)
                                    ->set("predictor", VIPS_FOREIGN_TIFF_PREDICTOR_HORIZONTAL)};
        case OutputCodec::Gif:
            return {
                "gifsave",
                vips::VImage::option()->set("dither", 1.0)->set("effort", 7)->set("bitdepth", 8)};
        case OutputCodec::WebP:
            // Quality 100 writes without loss.
            return {"webpsave",
                    vips::VImage::option()
                        ->set("Q", QualityFactor(quality))
                        ->set("lossless", LosslessAtFullQuality(codec) && quality >= 1.0)};
        case OutputCodec::Avif:
        case OutputCodec::Heic:
            return HeifSaver(rendered, codec, quality);
        case OutputCodec::JpegXl:
            return {"jxlsave", vips::VImage::option()
                                   ->set("Q", QualityFactor(quality))
                                   ->set("lossless", quality >= 1.0)};
        case OutputCodec::Jpeg2000:
        case OutputCodec::Bmp:
            break;  // see EncodeInMemory()
    }
    return {nullptr, nullptr};
}

// Throws vips::VError. Writes the file at `path` with the codec's own
// encoder; a descriptor's name (FileHandles.h), which the encoder would
// open anew, is written through the descriptor, from its start.
void Encode(const vips::VImage& rendered, OutputCodec codec, double quality,
            const std::string& path) {
    const Saver saver = SaverFor(rendered, codec, quality);
    saver.options->set("in", rendered);
    const std::optional<int> fd = filehandles::NamedDescriptor(path);
    if (!fd) {
        vips::VImage::call(saver.operation, saver.options->set("filename", path.c_str()));
        return;
    }
    if (ftruncate(*fd, 0) != 0 || lseek(*fd, 0, SEEK_SET) != 0) {
        delete saver.options;  // never handed to libvips, which would free it
        throw vips::VError(std::string("cannot write: ") + std::strerror(errno));
    }
    const vips::VTarget target = vips::VTarget::new_to_descriptor(*fd);
    vips::VImage::call((std::string(saver.operation) + "_target").c_str(),
                       saver.options->set("target", target));
}

bool EncodesInMemory(OutputCodec codec) {
    return codec == OutputCodec::Jpeg2000 || codec == OutputCodec::Bmp;
}

// Throws vips::VError. JPEG 2000 and BMP are encoded into memory and then
// written by us. The JPEG 2000 encoder never gives up on a file write that
// fails (a full disk): it would retry forever. ImageMagick, behind BMP,
// reads meaning into file names ("%d", "[0]", "bmp:"), so it never sees
// ours.
BlobPtr EncodeInMemory(const vips::VImage& rendered, OutputCodec codec, double quality) {
    if (codec == OutputCodec::Jpeg2000) {
        return BlobPtr(rendered.jp2ksave_buffer(vips::VImage::option()
                                                    ->set("Q", QualityFactor(quality))
                                                    ->set("lossless", Jpeg2000Lossless(quality))));
    }
    // Windows 3.x BMP (24-bit) is read by every BMP reader; with alpha, a
    // 32-bit BMP, which can also carry the profile.
    const bool alpha = rendered.bands() == 4;
    return BlobPtr(
        rendered.magicksave_buffer(vips::VImage::option()->set("format", alpha ? "bmp" : "bmp3")));
}

bool EncoderDropsProfile(OutputCodec codec) {
    return codec == OutputCodec::Jpeg || codec == OutputCodec::Jpeg2000;
}

// The profile the JPEG and JPEG 2000 encoders leave out, put in.
SaveResult PutBackProfile(const vips::VImage& rendered, OutputCodec codec,
                          const std::string& path) {
    if (EncoderDropsProfile(codec) && rendered.get_typeof(VIPS_META_ICC_NAME) != 0) {
        std::size_t size = 0;
        const void* profile = rendered.get_blob(VIPS_META_ICC_NAME, &size);
        return EmbedIccProfile(path, profile, size);
    }
    return SaveResult::Saved();
}

}  // namespace

bool EncodesIntoMemory(OutputCodec codec) {
    return codec == OutputCodec::Jpeg || codec == OutputCodec::WebP || codec == OutputCodec::Avif ||
           codec == OutputCodec::Heic || codec == OutputCodec::JpegXl;
}

std::vector<unsigned char> EncodeToMemory(const vips::VImage& rendered, OutputCodec codec,
                                          double quality) {
    if (!EncodesIntoMemory(codec)) {
        Fatal("no encoding into memory for this codec");
    }
    // The same saver and options as for a file, into a buffer.
    const Saver saver = SaverFor(rendered, codec, quality);
    VipsBlob* buffer = nullptr;
    vips::VImage::call((std::string(saver.operation) + "_buffer").c_str(),
                       saver.options->set("in", rendered)->set("buffer", &buffer));
    const BlobPtr blob(buffer);
    const auto* data = static_cast<const unsigned char*>(VIPS_AREA(blob.get())->data);
    return std::vector<unsigned char>(data, data + VIPS_AREA(blob.get())->length);
}

std::uint64_t ProfileBytes(const vips::VImage& rendered, OutputCodec codec) {
    if (!EncoderDropsProfile(codec) || rendered.get_typeof(VIPS_META_ICC_NAME) == 0) {
        return 0;
    }
    std::size_t size = 0;
    rendered.get_blob(VIPS_META_ICC_NAME, &size);
    // APP2 segments of at most 65519 bytes of profile, 18 bytes of header each.
    return size + 18 * ((size + 65518) / 65519);
}

namespace {

// libvips' tile cache can lose a decoder's failure raised on one of its
// threads: the save then ends as if every pixel had come, with damaged ones
// written. The tap saw the failure, and it is honoured all the same.
SaveResult LostDecoderFailure(const vips::VImage& rendered) {
    const std::string warning = sourcetap::DecoderWarning(rendered);
    return SaveResult::Failed(
        vipsruntime::ReasonFromError(warning.empty() ? "the decoder failed" : warning),
        FailureStage::Decode);
}

}  // namespace

SaveResult WriteEncoded(const vips::VImage& rendered, OutputCodec codec,
                        const std::vector<unsigned char>& bytes, const std::string& path) {
    if (sourcetap::DecoderFailed(rendered)) {
        return LostDecoderFailure(rendered);
    }
    SaveResult written = OverwriteFileBytes(path, bytes.data(), bytes.size());
    if (!written.saved) {
        return written;
    }
    return PutBackProfile(rendered, codec, path);
}

SaveResult WriteFile(const vips::VImage& rendered, OutputCodec codec, double quality,
                     const std::string& path) {
    vipsruntime::FailureScope scope;
    BlobPtr inMemory;
    try {
        if (EncodesInMemory(codec)) {
            inMemory = EncodeInMemory(rendered, codec, quality);
        } else {
            Encode(rendered, codec, quality, path);
        }
    } catch (const vips::VError& error) {
        // The pixels are decoded as they are written: damage in the source
        // fails the save, and the decoder's tap tells it.
        if (sourcetap::DecoderFailed(rendered)) {
            return SaveResult::Failed(scope.Reason(error, sourcetap::DecoderWarning(rendered)),
                                      FailureStage::Decode);
        }
        std::string reason = ReasonFromSystemErrorText(scope.OwnText(error));
        if (reason.empty()) {
            return SaveResult::Failed(scope.Reason(error), FailureStage::Encode);
        }
        return SaveResult::Failed(reason, FailureStage::Write);
    }
    if (sourcetap::DecoderFailed(rendered)) {
        return LostDecoderFailure(rendered);
    }
    if (inMemory) {
        SaveResult written = OverwriteFileBytes(path, VIPS_AREA(inMemory.get())->data,
                                                VIPS_AREA(inMemory.get())->length);
        if (!written.saved) {
            return written;
        }
    }
    return PutBackProfile(rendered, codec, path);
}

}  // namespace vellumo::vipsencode
