#pragma once

// Finding faces in the reduced picture a smart anchor judges. Conventions as
// in ImageTools.h: rectangles in the full image's units, origin at its
// lower-left corner, y upward.

#include <string>
#include <vector>

#include "imaging/Geometry.h"
#include "imaging/Image.h"

namespace vellumo {

// A face the detector found: its box (brows to chin, cheek to cheek, as the
// detector draws it) and how sure the detector is (0 at its threshold,
// about 1 for a clear frontal face, more for a very clear one).
struct DetectedFace {
    Rect box;
    double confidence = 0.0;

    friend bool operator==(const DetectedFace&, const DetectedFace&) = default;
};

// What a look for faces gave: the faces, largest first, or why none could be
// looked for (the detector failed); an empty list with no failure means the
// picture has no face the detector knows.
struct FaceSearch {
    std::vector<DetectedFace> faces;
    std::string failure;

    bool Failed() const { return !failure.empty(); }
};

// The faces in `picture` (the image of `full` size, reduced), in the full
// image's units. Never throws; a picture without pixels is a failure.
FaceSearch FindFaces(const Image& picture, Size full);

}  // namespace vellumo
