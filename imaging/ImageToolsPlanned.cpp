// A crop that is then made smaller, decoded no larger than needed: JPEG
// and WebP files.

#include <cmath>
#include <vector>

#include "imaging/FileBytes.h"
#include "imaging/FileKind.h"
#include "imaging/ImageAccess.h"
#include "imaging/ImageTools.h"
#include "imaging/JpegDecodePlan.h"
#include "imaging/JpegRegionDecode.h"
#include "imaging/SourceTap.h"
#include "imaging/VipsLoad.h"
#include "imaging/VipsRuntime.h"
#include "imaging/WebpFacts.h"
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
vips::VImage WithProfile(vips::VImage pixels, const std::vector<unsigned char>& profile) {
    if (!profile.empty()) {
        pixels = pixels.copy();
        vips_image_set_blob_copy(pixels.get_image(), VIPS_META_ICC_NAME, profile.data(),
                                 profile.size());
    }
    return pixels;
}

// The stored box made `size` (upright) and turned upright. It is resized as
// stored, so that the box streams from the decoder to the resize: turning
// the large box first would need all of it in memory. Only the small result
// is held to be turned.
Image ResizedUpright(vips::VImage box, Size size, int orientation) {
    const double width = box.width();
    const double height = box.height();
    Image resized = ImageTools::ResizeImage(ImageAccess::Make(std::move(box), width, height),
                                            TurnedBy(size, orientation));
    const vips::VImage* pixels = ImageAccess::Pixels(resized);
    if (orientation == 1 || pixels == nullptr) {
        return resized;
    }
    vips::VImage turned = pixels->copy_memory();
    turned.set(VIPS_META_ORIENTATION, orientation);
    turned = turned.autorot();
    return ImageAccess::Make(std::move(turned), size.width, size.height);
}

// The cut in whole pixels of the upright picture, when it lies wholly on
// the picture and is made smaller on both sides.
std::optional<PixelBox> UprightCut(Size stored, int orientation, Rect cut, Size size) {
    const Size upright = TurnedBy(stored, orientation);
    const bool fits = cut.x >= 0 && cut.y >= 0 && cut.width >= 1 && cut.height >= 1 &&
                      cut.x + cut.width <= upright.width && cut.y + cut.height <= upright.height;
    if (!fits || size.width >= std::trunc(cut.width) || size.height >= std::trunc(cut.height)) {
        return std::nullopt;
    }
    return UprightBox(upright, cut);
}

// A JPEG's cut, its rows decoded as the resize reads them. Damage found
// while the rows are written fails the save at the Decode stage, as the
// usual decoder's does.
std::optional<Image> JpegCutResized(const std::string& path, Rect cut, Size size,
                                    double minResizeFactor) {
    const vips::VImage header = vipsload::Open(FileKind::Jpeg, path);
    const int orientation = vipsload::Orientation(header);
    const Size stored{static_cast<double>(header.width()), static_cast<double>(header.height())};
    const std::optional<PixelBox> box = UprightCut(stored, orientation, cut, size);
    if (!box) {
        return std::nullopt;
    }
    const std::optional<JpegDecodePlan> plan =
        PlanJpegDecode(stored, orientation, *box, size, minResizeFactor);
    if (!plan) {
        return std::nullopt;
    }
    std::optional<vips::VImage> pixels = jpegregion::Decode(path, stored, *plan);
    if (!pixels) {
        return std::nullopt;
    }
    return ResizedUpright(WithProfile(sourcetap::Tap(*pixels), vipsload::ColourProfile(header)),
                          size, orientation);
}

// A WebP's cut, decoded at once (libwebp has no decode by rows that crops
// and scales), its header read from the same bytes.
std::optional<Image> WebpCutResized(const std::string& path, Rect cut, Size size,
                                    double minResizeFactor) {
    std::string reason;
    const std::optional<std::vector<unsigned char>> file = ReadFileBytes(path, reason);
    const std::optional<WebpFacts> facts = file ? ReadWebpFacts(*file) : std::nullopt;
    if (!facts || facts->frames != 1) {
        return std::nullopt;
    }
    const std::optional<PixelBox> box = UprightCut(facts->stored, facts->orientation, cut, size);
    if (!box) {
        return std::nullopt;
    }
    const std::optional<WebpDecodePlan> plan =
        PlanWebpDecode(facts->stored, facts->orientation, *box, size, minResizeFactor);
    if (!plan) {
        return std::nullopt;
    }
    std::optional<vips::VImage> pixels = webpregion::Decode(*file, facts->stored, *plan);
    if (!pixels) {
        return std::nullopt;
    }
    return ResizedUpright(WithProfile(std::move(*pixels), facts->iccProfile), size,
                          facts->orientation);
}

}  // namespace

std::optional<Image> ImageTools::LoadCutResized(const std::string& path, Rect cut, Size size,
                                                std::optional<double> minResizeFactor) {
    vipsruntime::EnsureStarted();
    const std::optional<FileKind> kind = SniffFile(path).kind;
    if (!(size.width >= 1 && size.height >= 1)) {
        return std::nullopt;
    }
    vipsruntime::FailureScope scope;
    try {
        if (kind == FileKind::Jpeg && !vipsload::OnlySecondDecoder()) {
            return JpegCutResized(path, cut, size, minResizeFactor.value_or(kMinResizeFactor));
        }
        if (kind == FileKind::WebP) {
            return WebpCutResized(path, cut, size, minResizeFactor.value_or(kWebpMinResizeFactor));
        }
        return std::nullopt;
    } catch (const vips::VError&) {
        return std::nullopt;
    }
}

}  // namespace vellumo
