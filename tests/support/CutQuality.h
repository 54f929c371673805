#pragma once

// Measures of a planned decode's cut against the full decode's: its pixels
// must stay as good as the full decode cut and resized with Lanczos3 (at
// least as good as `vips thumbnail` makes the same job, less 0.3 dB), and
// in the same place (within half an output pixel).

#include <optional>
#include <string>
#include <utility>
#include <vips/vips8>

#include "imaging/Geometry.h"
#include "imaging/JpegDecodePlan.h"
#include "tests/support/TempDir.h"

namespace vellumo::test {

// How far `vips thumbnail`'s quality may be above ours.
constexpr double kPsnrAllowance = 0.3;
// How far the picture may have moved, in output pixels.
constexpr double kLargestShift = 0.5;
// How far a planned cut may seem to have moved: its edges are those of the
// full decode, and the estimate's own error is about 0.01 (a cut rounded to
// the nearest scaled pixel was up to 0.2 off).
constexpr double kPlannedShift = 0.05;
// The reduction of the benchmark's job: a 4000-pixel square to 1080.
constexpr double kReduction = 4000.0 / 1080.0;

double Psnr(const vips::VImage& a, const vips::VImage& b);

// The image written as a JPEG of quality 80 and read back.
vips::VImage Encoded(const vips::VImage& image);

// How far `moved` lies from `reference`, in pixels (x, y).
std::pair<double, double> Shift(const vips::VImage& moved, const vips::VImage& reference);

// The centred square of the upright picture, whole pixels, lower-left origin.
Rect CentreSquare(Size upright);

// The full decode, cut and resized: what the planned decode must match.
vips::VImage Reference(const std::string& path, Rect cut, Size size);

// LoadCutResized's picture, which must be there; `factor` as there.
vips::VImage Planned(const std::string& path, Rect cut, Size size,
                     std::optional<double> factor = std::nullopt);

// What a job writes the cut from: the planned decode, or, when there is no
// plan for the cut, the full decode cut and resized.
vips::VImage AsWritten(const std::string& path, Rect cut, Size size, bool& planned);

Size UprightSize(const std::string& path);

// The benchmark's reduction applied to `cut`.
Size OutputOf(Rect cut);

// The job of the benchmark, centre 1:1 made 3.7 times smaller: as written
// (planned when `plannedExpected`, else decoded whole), vips thumbnail and
// the reference.
void ExpectAsGoodAsThumbnail(const std::string& path, bool plannedExpected = true);

// A cut of `cut` made `size` is as close to the reference as a centred one
// and in its place, whether it was planned or not; whether it was is
// returned.
bool ExpectInPlace(const std::string& path, Rect cut, Size size);

// An off-centre cut (the upper-left part, not square), whose edges fall
// between the pixels of most scales.
void ExpectOffCentreInPlace(const std::string& path);

// Fine detail: a zone plate (every frequency up to the finest), lines one
// pixel wide and text, 2400 x 1600 stored in `orientation`, written as
// `extension` ("jpg" at quality 95, "webp" at quality 95).
std::string WriteFineDetail(const TempDir& dir, int orientation,
                            const std::string& extension = "jpg");

// Prints, for the centre square of `path` made 3.7 times smaller, how close
// the planned decode comes to the reference with each least reduction left
// to the resize (1.0 to 2.5), and the full decode's own figure.
void PrintReductionsMeasured(const std::string& path);

// The shared test data's `source` written as a WebP of quality 90 named
// `name` in `dir`.
std::string WriteWebpOf(const TempDir& dir, const std::string& source, const std::string& name);

}  // namespace vellumo::test
