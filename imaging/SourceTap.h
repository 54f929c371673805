#pragma once

// Inside the core only: telling a decoder's failure from a failure of what
// reads its pixels. A file read once streams: its pixels are decoded while
// the encoder pulls them, so damage in the file surfaces as the save's
// failure. A tap between the decoder and everything after it notes when the
// decoder fails; the note travels with every image made from the tapped one.

#include <string>
#include <vips/vips8>

namespace vellumo::sourcetap {

// The metadata field that holds the tap. It is no metadata of the file: it
// is never written into one, and an encoder's pixels keep it.
inline constexpr const char* kTapField = "vellumo-decoder-tap";

// `pixels` (straight from a decoder), passed through unchanged and tapped.
vips::VImage Tap(const vips::VImage& pixels);

// True when the decoder behind `image` (tapped somewhere before it) failed
// to give the pixels asked of it. False for an image without a tap.
bool DecoderFailed(const vips::VImage& image);

// The warning the decoder behind `image` raised where it failed, when it
// raised one: often the only words for what is wrong with the file.
std::string DecoderWarning(const vips::VImage& image);

}  // namespace vellumo::sourcetap
