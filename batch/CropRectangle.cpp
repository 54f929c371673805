#include "batch/CropRectangle.h"

#include <cmath>

#include "batch/FaceCrop.h"
#include "imaging/ImageTools.h"

namespace vellumo {

namespace {

std::string WholePixelsText(double value) {
    return std::to_string(static_cast<long long>(std::trunc(value)));
}

bool ExactResize(const ResizeRule& rule) {
    return rule.mode == ResizeMode::Exact && rule.width > 0 && rule.height > 0;
}

Rect AutoCropRectangle(const CropSettings& s, const Image& image, const Image* picture,
                       std::string* placementNote, const FaceSearch* faces) {
    const Size size{image.Width(), image.Height()};
    std::string note;
    if (s.portraitOfFace) {
        const Rect portrait = PortraitRectangle(s, size, faces, note);
        if (placementNote != nullptr) {
            *placementNote = note;
        }
        return portrait;
    }
    const bool exact = ExactResize(s.resize);
    Rect rect;
    const std::optional<ClassicRatio> classic = ClassicRatioOf(s.autoCropRatio);
    if (!exact && s.matchOrientation && classic) {
        rect = ImageTools::AutoCropRectangle(image, *classic);
    } else {
        AspectRatio ratio = ChosenAutoCropRatio(s);
        if (!(ratio.width > 0.0) || !(ratio.height > 0.0)) {
            return {};
        }
        // The target's own ratio is never turned: the output is W x H.
        if (s.matchOrientation && !exact) {
            ratio = RatioMatchingOrientation(size, ratio);
        }
        rect = LargestCentredRectangle(size, ratio);
    }
    if (!IsSmartAnchor(s.anchor)) {
        return MoveToAnchor(size, rect, s.anchor);
    }
    if (s.anchor == CropAnchor::Faces) {
        rect = FacesAnchoredRectangle(size, rect, picture, faces, note);
        if (placementNote != nullptr) {
            *placementNote = note;
        }
        return rect;
    }
    if (picture != nullptr) {
        if (const std::optional<Rect> placed =
                ImageTools::SmartPlacement(*picture, size, {rect.width, rect.height}, s.anchor)) {
            return *placed;
        }
    }
    if (placementNote != nullptr) {
        *placementNote =
            std::string(CropAnchorName(s.anchor)) + " placement could not be found; centred";
    }
    return rect;
}

}  // namespace

AspectRatio ChosenAutoCropRatio(const CropSettings& s) {
    if (ExactResize(s.resize)) {
        return {static_cast<double>(s.resize.width), static_cast<double>(s.resize.height)};
    }
    if (const AutoCropRatio* listed = ListedRatio(s.autoCropRatio)) {
        return listed->ratio;
    }
    return s.customRatio;
}

bool UsesPlacementPicture(const CropSettings& settings) {
    return settings.mode == CropMode::Auto &&
           (IsSmartAnchor(settings.anchor) || settings.portraitOfFace.has_value());
}

Rect ResolveCropRectangle(const CropSettings& settings, const Image& image, const Image* picture,
                          std::string* placementNote, const FaceSearch* faces) {
    switch (settings.mode) {
        case CropMode::Auto:
            return AutoCropRectangle(settings, image, picture, placementNote, faces);
        case CropMode::Pixels:
            return {settings.pixelsOriginX, settings.pixelsOriginY, settings.pixelsWidth,
                    settings.pixelsHeight};
        case CropMode::Percents: {
            const float W = static_cast<float>(image.Width());
            const float H = static_cast<float>(image.Height());
            const float x = settings.percentsOriginX * W / 100.0f;
            const float y = settings.percentsOriginY * H / 100.0f;
            const float width = settings.percentsWidth * W / 100.0f;
            const float height = settings.percentsHeight * H / 100.0f;
            return {x, y, width, height};
        }
        case CropMode::None:
            break;
    }
    return {};
}

namespace {

// The written size: the cut's whole pixels, then the resize rule. In the
// pixel and percent modes a resize to exactly W x H first narrows the cut to
// its largest centred W:H part (the auto-crop already has that ratio), so
// that nothing is distorted.
ResolvedCrop& Finish(ResolvedCrop& crop, const CropSettings& settings, bool adjusted) {
    // A rectangle adjusted by hand keeps the rule's ratio only as closely as
    // a drag can, so it is narrowed too (a W:H rectangle is its own part).
    if (ExactResize(settings.resize) && (settings.mode != CropMode::Auto || adjusted)) {
        const Rect inner = LargestCentredRectangle({crop.cut.width, crop.cut.height},
                                                   {static_cast<double>(settings.resize.width),
                                                    static_cast<double>(settings.resize.height)});
        crop.cut = {crop.cut.x + inner.x, crop.cut.y + inner.y, inner.width, inner.height};
    }
    crop.cutSize = {std::trunc(crop.cut.width), std::trunc(crop.cut.height)};
    crop.outputSize = ResizedSize(crop.cutSize, settings.resize);
    crop.resizeNote = ResizeNote(crop.cutSize, settings.resize);
    return crop;
}

}  // namespace

ResolvedCrop ResolveCrop(const CropSettings& settings, const Image& image, const Image* picture,
                         const std::optional<Rect>& adjusted, const FaceSearch* faces) {
    ResolvedCrop crop;
    crop.adjusted = adjusted.has_value();
    if (!adjusted) {
        crop.failure = PortraitRefusal(settings, faces);
    }
    crop.rect = adjusted
                    ? *adjusted
                    : ResolveCropRectangle(settings, image, picture, &crop.placementNote, faces);
    const double W = image.Width();
    const double H = image.Height();
    const Rect whole{0.0, 0.0, W, H};
    const auto keepWhole = [&](CropExtent extent) {
        crop.extent = extent;
        crop.cut = whole;
        return Finish(crop, settings, crop.adjusted);
    };
    if (!adjusted && settings.mode == CropMode::None) {
        return keepWhole(CropExtent::WholeNoMode);
    }
    const Rect& r = crop.rect;
    // The cut itself is ImageTools::CropImage's: it gives back the image
    // for an empty rectangle or one beyond the image.
    const Image sized = Image::OfSize(W, H);
    const Image cut = ImageTools::CropImage(sized, r);
    if (cut.IsSameImage(sized)) {
        return keepWhole(r.width < 1.0 || r.height < 1.0 ? CropExtent::WholeEmpty
                                                         : CropExtent::WholeOutside);
    }
    // A cut of less than a pixel would leave nothing to write.
    if (cut.Width() < 1.0 || cut.Height() < 1.0) {
        return keepWhole(CropExtent::WholeSliver);
    }
    crop.cut = {std::max(r.x, 0.0), std::max(r.y, 0.0), cut.Width(), cut.Height()};
    // Clipped when what is cut differs from what was asked for by a whole
    // pixel; a percent rectangle that overshoots the image by a rounding
    // error is not clipped.
    const bool clipped = std::trunc(cut.Width()) != std::trunc(r.width) ||
                         std::trunc(cut.Height()) != std::trunc(r.height);
    crop.extent = clipped ? CropExtent::Clipped : CropExtent::Inside;
    return Finish(crop, settings, crop.adjusted);
}

namespace {

std::string ExtentText(const ResolvedCrop& crop) {
    switch (crop.extent) {
        case CropExtent::Inside:
            return {};
        case CropExtent::Clipped:
            return "Clipped to " + WholePixelsText(crop.cutSize.width) + " \u00d7 " +
                   WholePixelsText(crop.cutSize.height);
        case CropExtent::WholeNoMode:
            return "Whole image: neither pixels nor percents are chosen";
        case CropExtent::WholeEmpty:
            return "Whole image: the rectangle is empty";
        case CropExtent::WholeOutside:
            return "Whole image: the rectangle lies outside this image";
        case CropExtent::WholeSliver:
            return "Whole image: less than a pixel of the rectangle lies on this image";
    }
    return {};
}

}  // namespace

std::string CropExtentNote(const ResolvedCrop& crop) {
    return JoinNotes(JoinNotes(JoinNotes(ExtentText(crop), crop.placementNote), crop.resizeNote),
                     crop.losslessNote);
}

std::string FirstPageNote(int pages) {
    if (pages <= 1) {
        return {};
    }
    return "first frame only (of " + std::to_string(pages) + ")";
}

std::string JoinNotes(const std::string& a, const std::string& b) {
    if (a.empty()) {
        return b;
    }
    if (b.empty()) {
        return a;
    }
    return a + "; " + b;
}

}  // namespace vellumo
