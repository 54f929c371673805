// The small picture a camera stores in a JPEG's Exif block, shown while the
// file's own thumbnail is decoded.

#include <algorithm>
#include <cmath>
#include <vector>

#include "imaging/ExivRuntime.h"
#include "imaging/FileKind.h"
#include "imaging/ImageAccess.h"
#include "imaging/ImageTools.h"
#include "imaging/OpenedFile.h"
#include "imaging/VipsLoad.h"
#include "imaging/VipsRuntime.h"

namespace vellumo {

namespace {

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

}  // namespace

PreviewResult ImageTools::LoadEmbeddedThumbnail(const std::string& path, int minSide) {
    vipsruntime::EnsureStarted();
    vipsruntime::FailureScope scope;
    try {
        std::string refused;
        const std::optional<OpenedFile> opened = OpenFile(path, refused);
        if (!opened || opened->kind != FileKind::Jpeg) {
            return PreviewResult::Failure("the file has no embedded thumbnail");
        }
        const std::vector<unsigned char> bytes = EmbeddedBytes(path);
        if (bytes.empty()) {
            return PreviewResult::Failure("the file has no embedded thumbnail");
        }
        vips::VImage picture = DecodedJpeg(bytes);
        if (std::max(picture.width(), picture.height()) < minSide ||
            !SameShape(picture, opened->stored)) {
            return PreviewResult::Failure("the embedded thumbnail does not fit");
        }
        if (opened->orientation != 1) {
            picture.set(VIPS_META_ORIENTATION, opened->orientation);
            picture = picture.autorot();
        }
        return PreviewResult::Success(PreviewOf(opened->header, std::move(picture)));
    } catch (const vips::VError& error) {
        return PreviewResult::Failure(scope.Reason(error));
    } catch (const Exiv2::AnyError&) {
        return PreviewResult::Failure("the file's Exif block cannot be read");
    }
}

}  // namespace vellumo
