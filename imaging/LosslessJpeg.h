#pragma once

// Cropping a JPEG file without decoding and re-encoding its pixels: the
// coded blocks inside the rectangle are copied as they are (libjpeg-turbo's
// lossless transforms), and a file stored sideways is turned upright the
// same way. Pixels decoded from the output equal the source's, bit for bit.
//
// Conventions, as everywhere in the core: rectangles are in the upright
// image's pixels with the origin at the lower-left corner. The price of not
// re-encoding is the block grid: a crop can only start on a block boundary
// of the file as stored, and a turn can only move whole blocks, so the
// rectangle written is the chosen one grown outward to the grid (see
// SnapToJpegGrid).

#include <optional>
#include <string>

#include "imaging/Geometry.h"
#include "imaging/SaveResult.h"

namespace vellumo {

// The block grid of the JPEG file at `path`, orientation 1; nothing when it
// is not a JPEG libjpeg reads or its subsampling has no lossless transforms.
// Reads the file only up to its frame header.
std::optional<JpegGrid> ReadJpegGrid(const std::string& path);

// Where a lossless crop of whole pixels lands.
struct LosslessCut {
    Rect upright;  // what the output holds: upright, lower-left origin
    // The file as stored, top-left origin: the rectangle cut out of it.
    int storedLeft = 0;
    int storedTop = 0;
    int storedWidth = 0;
    int storedHeight = 0;
    // Pixels of the chosen rectangle lost at an edge because the turn upright
    // cannot move a partial block of the image's own edge (at most a block
    // less one pixel); 0 when nothing is lost.
    int trimmedColumns = 0;
    int trimmedRows = 0;
};

// The rectangle a lossless crop of `cut` (upright, lower-left origin, whole
// pixels inside the image) writes for a file with `grid`. In the file as
// stored, the left and top edges move outward to the block grid (the crop
// must start on a block); an edge that the turn upright brings to the left
// or the top moves outward too, to the grid or, when that is the image's
// own partial edge, inward to the last whole block. The other edges stay.
// Nothing when no whole block would be left.
std::optional<LosslessCut> SnapToJpegGrid(const Rect& cut, const JpegGrid& grid);

// Writes the lossless crop `cut` of the JPEG file `source` to `output`
// (atomically, see AtomicFile.h), turned upright. The output keeps the
// source's colour profile and nothing else of its metadata, like any JPEG
// Vellumo writes; its coded pixels are the source's.
SaveResult CropJpegLosslessly(const std::string& source, const std::string& output,
                              const LosslessCut& cut, const JpegGrid& grid);

}  // namespace vellumo
