#pragma once

// The crop rules that faces decide: the faces anchor and the head-and-
// shoulders portrait, from the faces the worker found in the reduced picture
// (imaging/FaceDetection.h). Used by the crop rule (batch/CropRectangle.h).

#include <optional>
#include <string>

#include "batch/CropSettings.h"
#include "imaging/FaceDetection.h"
#include "imaging/Failure.h"
#include "imaging/Geometry.h"
#include "imaging/Image.h"
#include "imaging/Sentence.h"

namespace vellumo {

// The settings need the faces of each image: auto-crop with the faces anchor
// or a portrait of the face.
bool UsesFaces(const CropSettings& settings);

// The faces anchor's place for `centred` (the rule's rectangle, centred):
// the most faces whole (PlaceAroundFaces). Without faces, or when they could
// not be looked for, the attention anchor's place, and `note` says why;
// without a picture either, `centred`.
Rect FacesAnchoredRectangle(Size image, Rect centred, const Image* picture, const FaceSearch* faces,
                            Sentence& note);

// Why the settings' portrait cannot be cut from an image with these faces:
// none was found, or none could be looked for. Nothing when it can, or the
// settings ask for no portrait.
std::optional<Failure> PortraitRefusal(const CropSettings& settings, const FaceSearch* faces);

// The portrait of the largest face (PlacePortrait), and in `note` whether
// the face lay too near an edge for it as asked. An empty rectangle when
// PortraitRefusal refuses.
Rect PortraitRectangle(const CropSettings& settings, Size image, const FaceSearch* faces,
                       Sentence& note);

}  // namespace vellumo
