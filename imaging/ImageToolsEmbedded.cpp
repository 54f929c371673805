// The small picture a camera stores in a JPEG's Exif block, shown while the
// file's own thumbnail is decoded.

#include <algorithm>
#include <cmath>
#include <vector>

#include "imaging/ExivRuntime.h"
#include "imaging/FileKind.h"
#include "imaging/ImageAccess.h"
#include "imaging/ImageTools.h"
#include "imaging/VipsLoad.h"
#include "imaging/VipsRuntime.h"

namespace vellumo {

namespace {

// How far the embedded picture's shape may be from the file's: cameras that
// store a 4:3 thumbnail of a 3:2 photo add black bars, which would stand in
// for the photo wrongly.
constexpr double kLargestShapeDifference = 0.02;

// The JPEG bytes of the file's Exif thumbnail; empty when it has none.
std::vector<unsigned char> EmbeddedBytes(const std::string& path) {
    exivruntime::EnsureStarted();
    exivruntime::SourceBytes bytes;
    const std::unique_ptr<Exiv2::Image> image = exivruntime::OpenFile(path, bytes);
    image->readMetadata();
    const Exiv2::ExifThumbC thumbnail(image->exifData());
    if (std::string(thumbnail.mimeType()) != "image/jpeg") {
        return {};
    }
    const Exiv2::DataBuf data = thumbnail.copy();
    if (data.pData_ == nullptr || data.size_ <= 0) {
        return {};
    }
    return {data.pData_, data.pData_ + data.size_};
}

// The JPEG in `bytes`, decoded whole; throws vips::VError.
vips::VImage DecodedJpeg(const std::vector<unsigned char>& bytes) {
    VipsBlob* blob = vips_blob_new(nullptr, bytes.data(), bytes.size());
    try {
        vips::VImage picture = vips::VImage::jpegload_buffer(blob).copy_memory();
        vips_area_unref(VIPS_AREA(blob));
        return picture;
    } catch (const vips::VError&) {
        vips_area_unref(VIPS_AREA(blob));
        throw;
    }
}

bool SameShape(const vips::VImage& picture, const ImageHeader& header, int orientation) {
    const bool sideways = orientation >= 5 && orientation <= 8;
    const double width = sideways ? header.pixelSize.height : header.pixelSize.width;
    const double height = sideways ? header.pixelSize.width : header.pixelSize.height;
    const double file = width / height;
    const double embedded = static_cast<double>(picture.width()) / picture.height();
    return std::abs(embedded / file - 1.0) <= kLargestShapeDifference;
}

}  // namespace

PreviewResult ImageTools::LoadEmbeddedThumbnail(const std::string& path, int minSide) {
    vipsruntime::EnsureStarted();
    const SniffedFile sniffed = SniffFile(path);
    if (sniffed.kind != FileKind::Jpeg) {
        return PreviewResult::Failure("the file has no embedded thumbnail");
    }
    const std::optional<ImageHeader> header = HeaderOfFile(path);
    if (!header) {
        return PreviewResult::Failure("the image's size cannot be read");
    }
    vipsruntime::FailureScope scope;
    try {
        const int orientation = vipsload::Orientation(vipsload::Open(FileKind::Jpeg, path));
        const std::vector<unsigned char> bytes = EmbeddedBytes(path);
        if (bytes.empty()) {
            return PreviewResult::Failure("the file has no embedded thumbnail");
        }
        vips::VImage picture = DecodedJpeg(bytes);
        if (std::max(picture.width(), picture.height()) < minSide ||
            !SameShape(picture, *header, orientation)) {
            return PreviewResult::Failure("the embedded thumbnail does not fit");
        }
        if (orientation != 1) {
            picture.set(VIPS_META_ORIENTATION, orientation);
            picture = picture.autorot();
        }
        const double width = picture.width();
        const double height = picture.height();
        return PreviewResult::Success(Preview{header->pixelSize,
                                              ImageAccess::Make(std::move(picture), width, height),
                                              header->pages, header->jpegGrid});
    } catch (const vips::VError& error) {
        return PreviewResult::Failure(scope.Reason(error));
    } catch (const Exiv2::AnyError&) {
        return PreviewResult::Failure("the file's Exif block cannot be read");
    }
}

}  // namespace vellumo
