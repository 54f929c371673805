#pragma once

// Where a crop goes when faces decide it. Pure geometry on the faces found
// (imaging/FaceDetection.h); conventions as in ImageTools.h: doubles in
// image pixels, origin at the image's lower-left corner, y upward.

#include <optional>
#include <vector>

#include "imaging/CropPlacement.h"
#include "imaging/FaceDetection.h"
#include "imaging/Geometry.h"

namespace vellumo {

// The place for a rectangle of `rect` size on an image of `image` size that
// keeps the most faces whole, and among those places the one that keeps the
// largest faces; then the kept faces are centred in it as far as that keeps
// them whole. A face counts by how sure the detector is (a faint detection
// less than a clear face), so that a false detection does not draw the crop
// away from real faces. Nothing when `faces` is empty.
std::optional<Rect> PlaceAroundFaces(Size image, Size rect, const std::vector<DetectedFace>& faces);

// A head-and-shoulders portrait: the face's height as a share of the
// output's height and the eyes' line as a share of it from the top, in
// percent.
struct HeadAndShoulders {
    float faceHeight = 45.0f;
    float eyeLine = 40.0f;

    friend bool operator==(const HeadAndShoulders&, const HeadAndShoulders&) = default;
};

// Where the eyes lie in the detector's box, as a share of its height from
// its top (the box runs from the brows to the chin).
inline constexpr double kEyeLineInFaceBox = 0.3;

struct PortraitPlacement {
    Rect rect;
    // The face lies too near an edge for the portrait as asked: the
    // rectangle was moved onto the image, or also made smaller.
    bool moved = false;
    bool shrunk = false;
};

// The portrait of `ratio` (width : height, as given) around `face`: its
// height such that the face's box has `shares.faceHeight` percent of it, the
// face centred across, its eye line at `shares.eyeLine` percent from the top.
// A rectangle that would reach off the image is moved onto it, and one
// larger than the image first made as large as fits, keeping its ratio.
PortraitPlacement PlacePortrait(Size image, AspectRatio ratio, const DetectedFace& face,
                                HeadAndShoulders shares);

}  // namespace vellumo
