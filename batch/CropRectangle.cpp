#include "batch/CropRectangle.h"

#include <algorithm>
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

// `rect` moved into `within` as far as it must.
Rect KeptWithin(const Rect& rect, const Rect& within) {
    const double x = std::clamp(rect.x, within.x, within.x + within.width - rect.width);
    const double y = std::clamp(rect.y, within.y, within.y + within.height - rect.height);
    return {x, y, rect.width, rect.height};
}

// A smart anchor judges the whole picture; with the crop kept within a
// trimmed area, its choice is moved into that area.
Rect SmartlyPlaced(const CropSettings& s, Size size, Rect rect, const Rect& within,
                   const Image* picture, Sentence* placementNote, const FaceSearch* faces) {
    if (s.anchor == CropAnchor::Faces) {
        Sentence note;
        rect = KeptWithin(FacesAnchoredRectangle(size, rect, picture, faces, note), within);
        if (placementNote != nullptr) {
            *placementNote = note;
        }
        return rect;
    }
    if (picture != nullptr) {
        if (const std::optional<Rect> placed =
                ImageTools::SmartPlacement(*picture, size, {rect.width, rect.height}, s.anchor)) {
            return KeptWithin(*placed, within);
        }
    }
    if (placementNote != nullptr) {
        *placementNote =
            s.anchor == CropAnchor::Attention
                ? Sentence{VELLUMO_TEXT("Engine",
                                        "attention placement could not be found; centred"),
                           {}}
                : Sentence{VELLUMO_TEXT("Engine", "entropy placement could not be found; centred"),
                           {}};
    }
    return rect;
}

// The auto-crop's rectangle inside `within` (the whole image, or what a trim
// left of it).
Rect AutoCropRectangle(const CropSettings& s, const Image& image, const Rect& within,
                       const Image* picture, Sentence* placementNote, const FaceSearch* faces) {
    const Size size{image.Width(), image.Height()};
    if (s.portraitOfFace) {
        Sentence note;
        const Rect portrait = PortraitRectangle(s, size, faces, note);
        if (placementNote != nullptr) {
            *placementNote = note;
        }
        return portrait;
    }
    const Size area{within.width, within.height};
    const bool exact = ExactResize(s.resize);
    Rect rect;
    const std::optional<ClassicRatio> classic = ClassicRatioOf(s.autoCropRatio);
    if (!exact && s.matchOrientation && classic) {
        rect = ImageTools::AutoCropRectangle(Image::OfSize(area.width, area.height), *classic);
    } else {
        AspectRatio ratio = ChosenAutoCropRatio(s);
        if (!(ratio.width > 0.0) || !(ratio.height > 0.0)) {
            return {};
        }
        // The target's own ratio is never turned: the output is W x H.
        if (s.matchOrientation && !exact) {
            ratio = RatioMatchingOrientation(area, ratio);
        }
        rect = LargestCentredRectangle(area, ratio);
    }
    if (!IsSmartAnchor(s.anchor)) {
        rect = MoveToAnchor(area, rect, s.anchor);
    }
    rect.x += within.x;
    rect.y += within.y;
    return IsSmartAnchor(s.anchor)
               ? SmartlyPlaced(s, size, rect, within, picture, placementNote, faces)
               : rect;
}

// The rule's rectangle, the auto-crop kept within `within`.
Rect RuleRectangle(const CropSettings& settings, const Image& image, const Rect& within,
                   const Image* picture, Sentence* placementNote, const FaceSearch* faces) {
    switch (settings.mode) {
        case CropMode::Auto:
            return AutoCropRectangle(settings, image, within, picture, placementNote, faces);
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
            return within;
    }
    return {};
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
                          Sentence* placementNote, const FaceSearch* faces) {
    if (settings.mode == CropMode::None) {
        return {};
    }
    const Rect whole{0.0, 0.0, image.Width(), image.Height()};
    return RuleRectangle(settings, image, whole, picture, placementNote, faces);
}

bool UsesTrimming(const CropSettings& settings) {
    return settings.trim.on && (settings.mode == CropMode::None || settings.mode == CropMode::Auto);
}

namespace {

// The ratio of a padded canvas: the output's own when it is resized to
// exactly W x H, else the rule's.
AspectRatio PadRatio(const CropSettings& settings) {
    if (ExactResize(settings.resize)) {
        return {static_cast<double>(settings.resize.width),
                static_cast<double>(settings.resize.height)};
    }
    return settings.pad.ratio;
}

// The written size: the cut's whole pixels, padded when the settings pad,
// then the resize rule. In the pixel and percent modes a resize to exactly
// W x H first narrows an unpadded cut to its largest centred W:H part (the
// auto-crop and the padded canvas already have that ratio), so that
// nothing is distorted.
ResolvedCrop& Finish(ResolvedCrop& crop, const CropSettings& settings, bool adjusted) {
    // A rectangle adjusted by hand keeps the rule's ratio only as closely as
    // a drag can, so it is narrowed too (a W:H rectangle is its own part).
    if (ExactResize(settings.resize) && !settings.pad.on &&
        (settings.mode != CropMode::Auto || adjusted)) {
        const Rect inner = LargestCentredRectangle({crop.cut.width, crop.cut.height},
                                                   {static_cast<double>(settings.resize.width),
                                                    static_cast<double>(settings.resize.height)});
        crop.cut = {crop.cut.x + inner.x, crop.cut.y + inner.y, inner.width, inner.height};
    }
    crop.cutSize = {std::trunc(crop.cut.width), std::trunc(crop.cut.height)};
    Size written = crop.cutSize;
    if (settings.pad.on) {
        crop.pad = PadLayoutFor(crop.cutSize, PadRatio(settings), settings.anchor);
        written = crop.pad->canvas;
    }
    crop.outputSize = ResizedSize(written, settings.resize);
    crop.resizeNote = ResizeNote(written, settings.resize);
    return crop;
}

// The area the rule works within: the whole image, or what a trim leaves of
// it with its margin; nothing when the trim found only background.
std::optional<Rect> WorkingArea(const CropSettings& settings, const Rect& whole,
                                const TrimFinding* trimmed) {
    if (!UsesTrimming(settings) || trimmed == nullptr) {
        return whole;
    }
    if (!trimmed->content) {
        return std::nullopt;
    }
    return WidenedByMargin(*trimmed->content, {whole.width, whole.height}, settings.trim.margin);
}

}  // namespace

ResolvedCrop ResolveCrop(const CropSettings& settings, const Image& image, const Image* picture,
                         const std::optional<Rect>& adjusted, const TrimFinding* trimmed,
                         const FaceSearch* faces) {
    ResolvedCrop crop;
    crop.adjusted = adjusted.has_value();
    if (!adjusted) {
        crop.failure = PortraitRefusal(settings, faces);
    }
    const double W = image.Width();
    const double H = image.Height();
    const Rect whole{0.0, 0.0, W, H};
    const auto keepWhole = [&](CropExtent extent) {
        crop.extent = extent;
        crop.cut = whole;
        return Finish(crop, settings, crop.adjusted);
    };
    const std::optional<Rect> within = WorkingArea(settings, whole, trimmed);
    if (!adjusted && !within) {
        return keepWhole(CropExtent::WholeBackground);
    }
    const bool trimming = UsesTrimming(settings) && trimmed != nullptr;
    if (!adjusted && settings.mode == CropMode::None && !trimming) {
        return keepWhole(CropExtent::WholeNoMode);
    }
    crop.rect = adjusted
                    ? *adjusted
                    : RuleRectangle(settings, image, *within, picture, &crop.placementNote, faces);
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

Sentence ExtentText(const ResolvedCrop& crop) {
    switch (crop.extent) {
        case CropExtent::Inside:
            return {};
        case CropExtent::Clipped:
            return {VELLUMO_TEXT("Engine", "Clipped to %1 × %2"),
                    {WholePixelsText(crop.cutSize.width), WholePixelsText(crop.cutSize.height)}};
        case CropExtent::WholeNoMode:
            // Padding without a crop mode keeps the whole image by choice:
            // nothing to warn of.
            if (crop.pad) {
                return {};
            }
            return {VELLUMO_TEXT("Engine", "Whole image: neither pixels nor percents are chosen"),
                    {}};
        case CropExtent::WholeEmpty:
            return {VELLUMO_TEXT("Engine", "Whole image: the rectangle is empty"), {}};
        case CropExtent::WholeOutside:
            return {VELLUMO_TEXT("Engine", "Whole image: the rectangle lies outside this image"),
                    {}};
        case CropExtent::WholeSliver:
            return {
                VELLUMO_TEXT("Engine",
                             "Whole image: less than a pixel of the rectangle lies on this image"),
                {}};
        case CropExtent::WholeBackground:
            return {VELLUMO_TEXT("Engine", "Whole image: nothing but background to trim"), {}};
    }
    return {};
}

}  // namespace

Sentences CropExtentNotes(const ResolvedCrop& crop) {
    Sentences notes;
    Append(notes, ExtentText(crop));
    Append(notes, crop.placementNote);
    Append(notes, crop.resizeNote);
    Append(notes, crop.losslessNotes);
    return notes;
}

Sentence FirstPageNote(int pages) {
    if (pages <= 1) {
        return {};
    }
    return {VELLUMO_TEXT("Engine", "first frame only (of %1)"), {std::to_string(pages)}};
}

}  // namespace vellumo
