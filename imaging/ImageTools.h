#pragma once

// ImageTools: every image operation of Vellumo, as free functions. The
// conventions shared by all of them, stated once here:
//
// - Coordinates are doubles in the image's own units (one unit is one pixel),
//   with the origin at the image's lower-left corner, x to the right and
//   y upward; regions are a Rect, extents a Size. A rectangle's y is the
//   distance of its lower edge from the image's lower edge. Conversion to
//   the top-left rows of the pixel library happens in one place only (inside
//   the raster operations).
// - Operations never change their inputs; they return new values. Where an
//   operation "returns the input", the result IsSameImage() as the input.
// - Operations do not throw. Requests that cannot sensibly be carried out are
//   not errors: they give back the input, an empty rectangle, false or
//   nothing, as each function says.
// - Image pixels are evaluated lazily and streamed: nothing is decoded before
//   it is needed, and a crop of a huge file does not hold the whole decoded
//   image in memory.
// - All functions may be called from any thread.
//
// Below, each function notes only its own edge behaviour.

#include <chrono>
#include <optional>
#include <string>

#include "imaging/ByteLimit.h"
#include "imaging/CropPlacement.h"
#include "imaging/Formats.h"
#include "imaging/Geometry.h"
#include "imaging/Image.h"
#include "imaging/JpegDecodePlan.h"
#include "imaging/LoadResult.h"
#include "imaging/MetadataResult.h"
#include "imaging/Preview.h"
#include "imaging/SaveResult.h"

namespace vellumo::ImageTools {

// ---- Crop geometry -----------------------------------------------------

// The largest centred rectangle of the ratio `ratio` (1:1, 4:3, 3:2, 16:9)
// inside the image, turned for portrait images. The image is landscape when
// float(W / H) >= 1 (a square is landscape). Not rounded.
Rect AutoCropRectangle(const Image& image, ClassicRatio ratio);

// How much of the requested rectangle lies on the image: visible right
// (or top) end minus visible left (or bottom) end. Not clamped at zero:
// a rectangle wholly outside gives a side of zero or less. Any NaN in the
// request or the image size gives (0, 0).
Size VisibleSize(const Image& image, Rect request);

// The whole pixels CropImage takes, on an image of `image` pixels, for a cut
// of `cut` (its size in whole pixels: the clipped size, truncated): the
// origin rounded to the nearest pixel (a negative one to 0), the size at
// most the image's, and the cut moved back onto the image where it would
// overhang. Lower-left origin, like every rectangle here.
Rect CropPixelArea(Size image, Rect cut);

// Where a rectangle of `rect` size (in pixels of an image of `full` size)
// draws the eye most, by libvips' smartcrop measure `anchor` (Attention
// or Entropy), judged on `picture`: the same image reduced (see
// kPlacementPictureSide), so that a large photo costs a small image's
// work. The rectangle's origin, within the image; nothing when the
// picture has no pixels, the anchor is neither of those or libvips fails.
std::optional<Rect> SmartPlacement(const Image& picture, Size full, Size rect, CropAnchor anchor);

// ---- Loading -----------------------------------------------------------

// Decodes a JPEG, JPEG 2000, PNG, GIF (first frame), TIFF (first page), BMP,
// WebP (first frame), HEIC/HEIF and AVIF (primary image) or JPEG XL file,
// chosen by the file's first bytes, never by its name; any other content is
// refused before a decoder sees it. The EXIF (or TIFF) orientation is
// applied, so the pixels are upright as a photo viewer shows them.
// Truncated or damaged data is a failure, not a partly grey picture. The
// logical size equals the upright pixel size.
LoadResult LoadImage(const std::string& path);

// LoadImage for a single pass, as a crop job makes it: nothing is decoded
// now; the pixels are read from the file once, top to bottom, as the one
// operation that reads them (a save) needs them, overlapping decoding
// with encoding. Damage in rows that are needed fails that operation;
// rows that are never needed are never read. The result must be read
// only once. Files that must be turned upright, or are too large to
// hold, come as from LoadImage.
LoadResult OpenImage(const std::string& path);

// CropImage of `cut` followed by ResizeImage to `size`, straight from the
// file at `path`, decoding no more of it than that needs: for a JPEG only
// the rows and columns under the cut (in the picture as stored, whatever
// its orientation), at the smallest of libjpeg's M/8 scales that still
// leaves the resize a reduction of kMinResizeFactor and puts the cut's
// edges on whole scaled pixels, else at 8/8 (imaging/JpegDecodePlan.h);
// for a WebP only the cut, scaled by libwebp to leave the resize the same
// reduction (imaging/WebpDecodePlan.h).
// The result has `size`'s pixels, upright, and the file's colour profile;
// a JPEG's rows are decoded when it is read, and damage found then fails
// the read at the Decode stage. `cut` lies wholly on the image and `size`
// is smaller than it. Nothing when the picture is too small to gain
// (kLeastPlannedPixels), the file is not a JPEG or WebP read this way
// (CMYK, animated, a damaged header or damage above the cut, the other
// decoders chosen) or libvips fails: the caller then takes the usual way
// (OpenImage), which says why a file fails.
// `minResizeFactor` is there for measuring other bounds; without it each
// format's own measured bound holds.
std::optional<Image> LoadCutResized(const std::string& path, Rect cut, Size size,
                                    std::optional<double> minResizeFactor = std::nullopt);

// The picture the window shows for a file: decoded at a reduced size
// where the decoder can (JPEG shrink-on-load, JPEG 2000 resolution levels,
// WebP scaling, a HEIF's own thumbnail), scaled down to fit in
// maxSide x maxSide (never up), upright. Damage fails it, as LoadImage.
PreviewResult LoadPreview(const std::string& path, int maxSide);

// The small picture a camera stored in a JPEG's Exif block, upright, with
// the file's full size: quick to show while the file's own picture is
// decoded. A failure when there is none, its longer side is under
// `minSide`, or its shape is not the file's (a thumbnail with black bars).
PreviewResult LoadEmbeddedThumbnail(const std::string& path, int minSide);

// The image as 8-bit sRGB RGBA, for display. Nothing for an image
// without pixels.
std::optional<RgbaBitmap> RenderRgba8(const Image& image);

// The largest width and, separately, the largest height over all pages or
// frames of the file, from its headers only (no pixels decoded), upright
// (sides swapped for orientations 5 to 8). Nothing for a file that
// cannot be read as one of the image kinds Vellumo reads.
std::optional<Size> PixelSizeOfFile(const std::string& path);

// PixelSizeOfFile with the number of pages (TIFF) or frames (GIF, as many
// as the file declares) of the file, at least 1; only the first is ever
// decoded.
std::optional<ImageHeader> HeaderOfFile(const std::string& path);

// ---- Raster operations -------------------------------------------------

// Cuts `rect` out of the image. Returns the input when its width or
// height is below 1, when the origin lies beyond the image (a negative
// coordinate is compared with the requested size instead, so negative
// origins always go on to clipping) or when nothing of the rectangle
// lies on the image. The result's size is the clipped size. Never
// resamples: the cut starts at the origin rounded to the nearest whole
// pixel and is the clipped size truncated toward zero, in pixels.
Image CropImage(const Image& image, Rect rect);

// The whole image scaled to exactly `size` (aspect ratio not kept).
Image ResizeImage(const Image& image, Size size);

// The input itself when its size equals the pixel size of the file at
// `path` (exact comparison, width first), else the image resized to that
// pixel size. A file whose pixel size cannot be read stops the program;
// callers that must survive it read the size first and use the overload
// below.
Image BringImageToActualSize(const Image& image, const std::string& path);
Image BringImageToActualSize(const Image& image, Size pixelSize);

// The preview picture: a new 8-bit RGBA image of the input's size, the
// input veiled with white at 60 % opacity outside `rect` (0.6 x white +
// 0.4 x pixel, alpha 0.6 + 0.4 x alpha) and unchanged inside it. Pixels the
// rectangle's edge crosses are veiled in proportion to the part of them
// outside. The rectangle is neither validated nor clipped beyond the
// image's bounds.
Image VeilOutsideRectangle(const Image& image, Rect rect);

// ---- Encoding and metadata ---------------------------------------------

// Writes the image to `path` in output format `format` (one of the 14 of
// kOutputFormats, imaging/Formats.h, by its codec: JPG, JPEG and JPE as
// JPEG; JP2 and JPX as JPEG 2000, both written as JP2 files; PNG; TIFF and
// TIF; GIF; BMP, 24-bit or 32-bit when the image has alpha; WEBP; AVIF;
// HEIC; JXL). `quality` (0.0 to 1.0, 1.0 the least compression) is used by
// the formats that take one (OutputFormatInfo::takesQuality; JPEG 2000,
// WebP and JPEG XL are lossless at 1.0): the others give the same bytes
// whatever it is. The file is W x H pixels, the image's size truncated
// toward zero. Alpha goes where the format has it; JPEG and 24-bit BMP get
// it flattened onto white. The image's ICC profile goes with it where the
// format can carry one; no Exif, IPTC or XMP is written.
// An existing file is replaced in one step: a reader sees the old file
// or the new one, never a part; a failed write leaves it as it was and
// leaves no temporary file behind.
// Fails, writing nothing, for an image whose width or height is below 1,
// not finite, or too large for any pixels.
// With a byte limit, the file is at most that long: the quality is lowered
// (and the picture made smaller when the limit says so) until it fits, or
// the save fails with the smallest size reached (imaging/SizeFitting.h);
// the result's `fit` says what was chosen.
SaveResult TrySaveImage(const Image& image, const std::string& path, OutputFormat format,
                        double quality, const ByteLimit& limit = {});
// TrySaveImage, with the Exif and XMP of the file at `metadataSource`
// written by the encoder itself for the formats whose metadata only it
// can write (AVIF, HEIC; see EmbedsMetadataWhenEncoding), changed as
// CarryMetadata changes them. Other formats are saved as TrySaveImage saves
// them; a source whose metadata cannot be read gives a file without.
SaveResult TrySaveImageWithMetadata(const Image& image, const std::string& path,
                                    OutputFormat format, double quality,
                                    const std::string& metadataSource, const ByteLimit& limit = {});
// TrySaveImage without the reason.
bool SaveImage(const Image& image, const std::string& path, OutputFormat format, double quality);

// Copies the Exif, IPTC and XMP of the file at `source` into the saved file
// at `output`, which keeps its own format and pixels (rewritten as
// TrySaveImage writes: in one step), then gives the saved file the source's
// creation date (CreationDate) as its birth time, or on Linux, where no
// birth time can be set, as its modification time.
// Because the pixels were turned upright and cropped, the carried
// orientation becomes 1 (top-left), Exif (and XMP) pixel dimensions
// become the saved file's, and the source's thumbnail stays behind;
// everything else travels as it was. The saved file's colour profile is
// kept.
// Changes nothing, and says why, when either file cannot be read as an
// image, the saved file is a GIF or BMP (formats without these
// metadata), or the rewrite fails; says DateNotSet when only the date
// could not be set. Prints nothing: the caller tells the person.
MetadataResult CarryMetadata(const std::string& source, const std::string& output);
// Gives the saved file the source's creation date only, as CarryMetadata
// does after the metadata: for the formats that got their metadata from
// the encoder.
MetadataResult CarryCreationDate(const std::string& source, const std::string& output);

// The file's birth time where the file system records one, else its
// modification time; the current time when the file's attributes cannot
// be read (it is gone, say).
std::chrono::system_clock::time_point CreationDate(const std::string& path);

}  // namespace vellumo::ImageTools
