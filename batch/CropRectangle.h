#pragma once

#include <optional>
#include <string>

#include "batch/CropSettings.h"
#include "imaging/FaceDetection.h"
#include "imaging/Failure.h"
#include "imaging/Geometry.h"
#include "imaging/Image.h"
#include "imaging/Padding.h"
#include "imaging/Sentence.h"

namespace vellumo {

// The one rule by which the crop settings and an image become a crop
// rectangle, used alike by the preview, the dimension labels and the job:
//   Auto: the largest rectangle of the chosen ratio (ChosenAutoCropRatio),
//     turned to the image's orientation unless the settings say otherwise;
//     with the orientation matched, the first four ratios are exactly
//     ImageTools::AutoCropRectangle. Then moved to the
//     anchor; a smart anchor judges `picture` (the image reduced to
//     kPlacementPictureSide), and without one, or when that fails, the
//     rectangle stays centred and `placementNote` says so; the faces anchor
//     places it by `faces` (batch/FaceCrop.h); a portrait of the face is
//     sized and placed by the largest of `faces` instead;
//   Pixels: the four pixel fields, widened to double;
//   Percents: each percent times the image's side, divided by 100, in single
//     precision (the side narrowed first), then widened;
//   None: (0, 0, 0, 0).
// Nothing is rounded, checked or clamped here.
Rect ResolveCropRectangle(const CropSettings& settings, const Image& image,
                          const Image* picture = nullptr, Sentence* placementNote = nullptr,
                          const FaceSearch* faces = nullptr);

// What trimming found on one image's pixels (ImageTools::FindContent): the
// rectangle of everything that is not background, or nothing when all of it
// is background.
struct TrimFinding {
    std::optional<Rect> content;
};

// The rule trims: trimming is on, with no crop mode (the trimmed area is
// cut) or the auto-crop (the largest rectangle of the ratio within the
// trimmed area, placed there by the anchor). The rectangles typed in
// pixels or percents are taken as typed.
bool UsesTrimming(const CropSettings& settings);

// The rule needs a reduced picture of each image: auto-crop with a smart
// anchor or a portrait of the face.
bool UsesPlacementPicture(const CropSettings& settings);

// How the rule's rectangle meets an image, and so what the job writes.
enum class CropExtent {
    Inside,   // the rectangle lies on the image: exactly it is cut
    Clipped,  // part of it lies off the image: the part on it is cut
    // The image is written whole:
    WholeNoMode,      // no crop mode
    WholeEmpty,       // a side of the rectangle is below one pixel
    WholeOutside,     // the rectangle lies off the image
    WholeSliver,      // less than one pixel of it lies on the image
    WholeBackground,  // trimming found nothing but background
};

inline bool IsWhole(CropExtent extent) {
    return extent != CropExtent::Inside && extent != CropExtent::Clipped;
}

// What the job does with one image: the rule's rectangle, how it meets the
// image, the rectangle actually cut (the whole image for the Whole extents;
// for a resize to exactly W x H in the pixel and percent modes, the largest
// centred W:H part of it), its size in whole pixels, and the output's size
// after the resize rule, exactly as the job writes it. The preview, the
// labels, the dry run and the job all read this one result.
struct ResolvedCrop {
    Rect rect;
    CropExtent extent = CropExtent::Inside;
    Rect cut;
    Size cutSize;
    Size outputSize;
    bool adjusted = false;  // the rectangle was adjusted by hand, not the rule's
    // The cut placed on a canvas of the padding's ratio, when the settings
    // pad; the output's size is then the canvas's, resized.
    std::optional<PadLayout> pad;
    Sentence placementNote;   // a smart anchor that fell back to centre
    Sentence resizeNote;      // a resize that was not carried out
    Sentences losslessNotes;  // a crop without re-encoding moved or refused
    // The rule cannot make this image's crop (a portrait without a face):
    // nothing is written.
    std::optional<Failure> failure;
};

//
// An image whose rectangle was adjusted by hand passes it as `adjusted` (in
// its own pixels, lower-left origin): it takes the place of the rule's in any
// mode, and is clipped, kept whole and resized like a pixel rectangle.
//
// With trimming (UsesTrimming), `trimmed` is what was found on the image's
// pixels: the rule works within the content widened by the margin, and an
// image found to be all background is written whole. Without a finding
// the rule works on the whole image.
ResolvedCrop ResolveCrop(const CropSettings& settings, const Image& image,
                         const Image* picture = nullptr,
                         const std::optional<Rect>& adjusted = std::nullopt,
                         const TrimFinding* trimmed = nullptr, const FaceSearch* faces = nullptr);

// The sentences for anything but a plain crop, shown under the preview and
// carried as the job's warnings for the image: "Whole image: the rectangle
// lies outside this image", "Clipped to 100 × 68", followed by the
// placement, resize and lossless notes. None for a plain crop.
Sentences CropExtentNotes(const ResolvedCrop& crop);

// The warning for a file of several pages or frames of which only the first
// is cropped: "first frame only (of 12)". Empty for one page.
Sentence FirstPageNote(int pages);

}  // namespace vellumo
