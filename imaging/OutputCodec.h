#pragma once

// Inside the core only: the encoders behind the output format list (each
// format's row in imaging/Formats.h names its codec), and the quality factor
// each lossy encoder is given.

#include <optional>

namespace vellumo {

enum class OutputCodec { Jpeg, Jpeg2000, Png, Tiff, Gif, Bmp, WebP, Avif, Heic, JpegXl };

// The 1 to 100 quality factor for a compression factor from 0.0 (most
// compression) to 1.0 (least): rounded to the nearest hundredth. libjpeg
// and OpenJPEG know no factor 0, so 0.0 (and anything below, or not a
// number) asks for their strongest compression, 1; above 1.0 counts as 1.0.
int QualityFactor(double quality);

// True when JPEG 2000 is to be written without loss: a compression factor of
// 1.0 (or above).
bool Jpeg2000Lossless(double quality);

// True for WebP and JPEG XL, written without loss at the quality slider's
// top (as the window's quality label says). JPEG 2000 is too, by its own
// rule (Jpeg2000Lossless), which its label has never shown.
bool LosslessAtFullQuality(OutputCodec codec);

// Formats whose Exif and XMP only their encoder can write (Exiv2 cannot edit
// them afterwards): AVIF and HEIC. They get them as they are encoded.
bool EmbedsMetadataWhenEncoding(OutputCodec codec);

}  // namespace vellumo
