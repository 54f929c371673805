#pragma once

// Inside the core only: the libvips encoder for each output codec.

#include <cstdint>
#include <string>
#include <vector>
#include <vips/vips8>

#include "imaging/OutputCodec.h"
#include "imaging/SaveResult.h"

namespace vellumo::vipsencode {

// Writes `rendered` (pixels made by encoderender::ForCodec for `codec`) into
// the existing, empty file at `path`, which no one else sees yet. `quality`
// is the compression factor for JPEG and JPEG 2000 and is ignored for the
// rest. The failure's reason is the decoder's when the pixels turn out
// damaged while they are read, or the file system's.
SaveResult WriteFile(const vips::VImage& rendered, OutputCodec codec, double quality,
                     const std::string& path);

// JPEG, WebP, AVIF, HEIC and JPEG XL: the lossy codecs that can encode into
// memory with the options they write files with, so that a file's size can
// be measured before anything is written.
bool EncodesIntoMemory(OutputCodec codec);

// `rendered` encoded as WriteFile would write it, into memory, before the
// colour profile is put back (ProfileBytes more). Throws vips::VError; a
// codec EncodesIntoMemory refuses stops the program.
std::vector<unsigned char> EncodeToMemory(const vips::VImage& rendered, OutputCodec codec,
                                          double quality);

// The bytes the colour profile will add to what EncodeToMemory gave.
std::uint64_t ProfileBytes(const vips::VImage& rendered, OutputCodec codec);

// `bytes` (from EncodeToMemory) written into the file at `path`, as
// WriteFile leaves it.
SaveResult WriteEncoded(const vips::VImage& rendered, OutputCodec codec,
                        const std::vector<unsigned char>& bytes, const std::string& path);

}  // namespace vellumo::vipsencode
