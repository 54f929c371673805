#include "batch/FaceCrop.h"

#include "imaging/FacePlacement.h"
#include "imaging/ImageTools.h"

namespace vellumo {

bool UsesFaces(const CropSettings& settings) {
    return settings.mode == CropMode::Auto &&
           (settings.anchor == CropAnchor::Faces || settings.portraitOfFace.has_value());
}

Rect FacesAnchoredRectangle(Size image, Rect centred, const Image* picture, const FaceSearch* faces,
                            std::string& note) {
    const Size size{centred.width, centred.height};
    if (faces != nullptr && !faces->Failed()) {
        if (const std::optional<Rect> placed = PlaceAroundFaces(image, size, faces->faces)) {
            return *placed;
        }
    }
    if (faces == nullptr) {
        note = "faces were not looked for";
    } else if (faces->Failed()) {
        note = "faces could not be looked for: " + faces->failure;
    } else {
        note = "no face found";
    }
    if (picture != nullptr) {
        if (const std::optional<Rect> placed =
                ImageTools::SmartPlacement(*picture, image, size, CropAnchor::Attention)) {
            note += "; placed by attention";
            return *placed;
        }
    }
    note += "; centred";
    return centred;
}

std::optional<Failure> PortraitRefusal(const CropSettings& settings, const FaceSearch* faces) {
    if (settings.mode != CropMode::Auto || !settings.portraitOfFace) {
        return std::nullopt;
    }
    if (faces == nullptr) {
        return Failure::At(FailureStage::Crop,
                           "the portrait needs a face, and none was looked for");
    }
    if (faces->Failed()) {
        return Failure::At(FailureStage::Crop, "faces could not be looked for: " + faces->failure);
    }
    if (faces->faces.empty()) {
        return Failure::At(FailureStage::Crop, "no face found for the portrait");
    }
    return std::nullopt;
}

Rect PortraitRectangle(const CropSettings& settings, Size image, const FaceSearch* faces,
                       std::string& note) {
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
        note =
            "the face is too near the image's edges for the portrait as asked; made smaller and "
            "moved onto the image";
    } else if (placed.moved) {
        note =
            "the face is too near the image's edge for the portrait as asked; moved onto the "
            "image";
    }
    return placed.rect;
}

}  // namespace vellumo
