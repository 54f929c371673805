// A crop that is then made smaller, decoded no larger than needed: JPEG
// and WebP files.

#include <cmath>

#include "imaging/FileKind.h"
#include "imaging/ImageAccess.h"
#include "imaging/ImageTools.h"
#include "imaging/JpegDecodePlan.h"
#include "imaging/JpegRegionDecode.h"
#include "imaging/SourceTap.h"
#include "imaging/VipsLoad.h"
#include "imaging/VipsRuntime.h"
#include "imaging/WebpRegionDecode.h"

namespace vellumo {

namespace {

// The whole pixels CropImage takes for `cut` on an upright picture of
// `upright` pixels, counted from the top-left corner.
PixelBox UprightBox(Size upright, Rect cut) {
    const Rect area = ImageTools::CropPixelArea(
        upright, {cut.x, cut.y, std::trunc(cut.width), std::trunc(cut.height)});
    const int rows = static_cast<int>(area.height);
    return {static_cast<int>(area.x), static_cast<int>(upright.height - area.y) - rows,
            static_cast<int>(area.width), rows};
}

// The decoded box with the file's colour profile.
vips::VImage WithProfile(vips::VImage pixels, const vips::VImage& header) {
    if (header.get_typeof(VIPS_META_ICC_NAME) != 0) {
        std::size_t length = 0;
        const void* profile = header.get_blob(VIPS_META_ICC_NAME, &length);
        pixels = pixels.copy();
        vips_image_set_blob_copy(pixels.get_image(), VIPS_META_ICC_NAME, profile, length);
    }
    return pixels;
}

// The stored box made `size` (upright) and turned upright. It is resized as
// stored, so that the box streams from the decoder to the resize: turning
// the large box first would need all of it in memory. Only the small result
// is held to be turned.
Image ResizedUpright(vips::VImage box, Size size, int orientation) {
    const bool sideways = orientation >= 5 && orientation <= 8;
    const double width = box.width();
    const double height = box.height();
    Image resized = ImageTools::ResizeImage(ImageAccess::Make(std::move(box), width, height),
                                            sideways ? Size{size.height, size.width} : size);
    const vips::VImage* pixels = ImageAccess::Pixels(resized);
    if (orientation == 1 || pixels == nullptr) {
        return resized;
    }
    vips::VImage turned = pixels->copy_memory();
    turned.set(VIPS_META_ORIENTATION, orientation);
    turned = turned.autorot();
    return ImageAccess::Make(std::move(turned), size.width, size.height);
}

bool Fits(Rect cut, Size upright) {
    return cut.x >= 0 && cut.y >= 0 && cut.width >= 1 && cut.height >= 1 &&
           cut.x + cut.width <= upright.width && cut.y + cut.height <= upright.height;
}

// A cut to decode: the file, its stored size and orientation, the cut in
// the upright picture and the size it is made.
struct PlannedCut {
    const std::string& path;
    Size stored;
    int orientation = 1;
    PixelBox upright;
    Size output;
    std::optional<double> minResizeFactor;
};

// The JPEG's cut, its rows decoded as the resize reads them. Damage found
// while the rows are written fails the save at the Decode stage, as the
// usual decoder's does.
std::optional<vips::VImage> JpegCut(const PlannedCut& cut) {
    const std::optional<JpegDecodePlan> plan =
        PlanJpegDecode(cut.stored, cut.orientation, cut.upright, cut.output,
                       cut.minResizeFactor.value_or(kMinResizeFactor));
    if (!plan) {
        return std::nullopt;
    }
    std::optional<vips::VImage> pixels = jpegregion::Decode(cut.path, cut.stored, *plan);
    if (!pixels) {
        return std::nullopt;
    }
    return sourcetap::Tap(*pixels);
}

// The WebP's cut, decoded at once: libwebp has no decode by rows that
// crops and scales.
std::optional<vips::VImage> WebpCut(const PlannedCut& cut) {
    const std::optional<WebpDecodePlan> plan =
        PlanWebpDecode(cut.stored, cut.orientation, cut.upright, cut.output,
                       cut.minResizeFactor.value_or(kWebpMinResizeFactor));
    if (!plan) {
        return std::nullopt;
    }
    return webpregion::Decode(cut.path, cut.stored, *plan);
}

}  // namespace

std::optional<Image> ImageTools::LoadCutResized(const std::string& path, Rect cut, Size size,
                                                std::optional<double> minResizeFactor) {
    vipsruntime::EnsureStarted();
    const std::optional<FileKind> kind = SniffFile(path).kind;
    if ((kind != FileKind::Jpeg && kind != FileKind::WebP) ||
        (kind == FileKind::Jpeg && vipsload::OnlySecondDecoder()) ||
        !(size.width >= 1 && size.height >= 1)) {
        return std::nullopt;
    }
    vipsruntime::FailureScope scope;
    try {
        const vips::VImage header = vipsload::Open(*kind, path);
        const int orientation = vipsload::Orientation(header);
        const Size stored{static_cast<double>(header.width()),
                          static_cast<double>(header.height())};
        const Size upright = orientation >= 5 ? Size{stored.height, stored.width} : stored;
        if (!Fits(cut, upright) || size.width >= std::trunc(cut.width) ||
            size.height >= std::trunc(cut.height)) {
            return std::nullopt;
        }
        const PlannedCut planned{path, stored,         orientation, UprightBox(upright, cut),
                                 size, minResizeFactor};
        std::optional<vips::VImage> pixels =
            *kind == FileKind::Jpeg ? JpegCut(planned) : WebpCut(planned);
        if (!pixels) {
            return std::nullopt;
        }
        return ResizedUpright(WithProfile(std::move(*pixels), header), size, orientation);
    } catch (const vips::VError&) {
        return std::nullopt;
    }
}

}  // namespace vellumo
