#include "batch/FaceCrop.h"

#include "imaging/FacePlacement.h"
#include "imaging/ImageTools.h"

namespace vellumo {

namespace {

// Whole sentences, so that each can be translated as one.
Sentence FallbackNote(bool notLookedFor, bool lookFailed, bool byAttention,
                      const FaceSearch* faces) {
    if (notLookedFor) {
        return {byAttention
                    ? VELLUMO_TEXT("Engine", "faces were not looked for; placed by attention")
                    : VELLUMO_TEXT("Engine", "faces were not looked for; centred"),
                {}};
    }
    if (lookFailed) {
        return {byAttention ? VELLUMO_TEXT("Engine",
                                           "faces could not be looked for: %1; placed by attention")
                            : VELLUMO_TEXT("Engine", "faces could not be looked for: %1; centred"),
                {faces->failure}};
    }
    return {byAttention ? VELLUMO_TEXT("Engine", "no face found; placed by attention")
                        : VELLUMO_TEXT("Engine", "no face found; centred"),
            {}};
}

}  // namespace

bool UsesFaces(const CropSettings& settings) {
    return settings.mode == CropMode::Auto &&
           (settings.anchor == CropAnchor::Faces || settings.portraitOfFace.has_value());
}

Rect FacesAnchoredRectangle(Size image, Rect centred, const Image* picture, const FaceSearch* faces,
                            Sentence& note) {
    const Size size{centred.width, centred.height};
    if (faces != nullptr && !faces->Failed()) {
        if (const std::optional<Rect> placed = PlaceAroundFaces(image, size, faces->faces)) {
            return *placed;
        }
    }
    // Why no face placed it, and how it was placed instead.
    enum class Why { NotLookedFor, LookFailed, NoneFound } why = Why::NoneFound;
    if (faces == nullptr) {
        why = Why::NotLookedFor;
    } else if (faces->Failed()) {
        why = Why::LookFailed;
    }
    if (picture != nullptr) {
        if (const std::optional<Rect> placed =
                ImageTools::SmartPlacement(*picture, image, size, CropAnchor::Attention)) {
            note = FallbackNote(why == Why::NotLookedFor, why == Why::LookFailed, true, faces);
            return *placed;
        }
    }
    note = FallbackNote(why == Why::NotLookedFor, why == Why::LookFailed, false, faces);
    return centred;
}

std::optional<Failure> PortraitRefusal(const CropSettings& settings, const FaceSearch* faces) {
    if (settings.mode != CropMode::Auto || !settings.portraitOfFace) {
        return std::nullopt;
    }
    if (faces == nullptr) {
        return Failure::At(
            FailureStage::Crop,
            Sentence{VELLUMO_TEXT("Engine", "the portrait needs a face, and none was looked for"),
                     {}});
    }
    if (faces->Failed()) {
        return Failure::At(FailureStage::Crop,
                           Sentence{VELLUMO_TEXT("Engine", "faces could not be looked for: %1"),
                                    {faces->failure}});
    }
    if (faces->faces.empty()) {
        return Failure::At(FailureStage::Crop,
                           Sentence{VELLUMO_TEXT("Engine", "no face found for the portrait"), {}});
    }
    return std::nullopt;
}

Rect PortraitRectangle(const CropSettings& settings, Size image, const FaceSearch* faces,
                       Sentence& note) {
    if (PortraitRefusal(settings, faces)) {
        return {};
    }
    const AspectRatio ratio = ChosenAutoCropRatio(settings);
    if (!(ratio.width > 0.0) || !(ratio.height > 0.0)) {
        return {};
    }
    // Faces come largest first.
    const PortraitPlacement placed =
        PlacePortrait(image, ratio, faces->faces.front(), *settings.portraitOfFace);
    if (placed.shrunk) {
        note = {VELLUMO_TEXT("Engine",
                             "the face is too near the image's edges for the portrait as asked; "
                             "made smaller and moved onto the image"),
                {}};
    } else if (placed.moved) {
        note = {VELLUMO_TEXT("Engine",
                             "the face is too near the image's edge for the portrait as asked; "
                             "moved onto the image"),
                {}};
    }
    return placed.rect;
}

}  // namespace vellumo
