#pragma once

// Inside the core only: the work of ImageTools::CarryMetadata, with the
// source's creation date asked for through a function, so that what happens
// when the source vanishes between its metadata and its date can be checked.

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "imaging/MetadataResult.h"

namespace vellumo::metadatacarry {

using DateOfSource = std::function<std::chrono::system_clock::time_point()>;

// As ImageTools::CarryMetadata; `dateOfSource` is called once,
// after the source's metadata has been read and the saved file opened.
MetadataResult Carry(const std::string& originalImagePath, const std::string& croppedImagePath,
                     const DateOfSource& dateOfSource);

// The source's Exif (as an APP1 payload, "Exif\0\0" first) and XMP packet,
// changed as Carry changes them for a saved picture of `width` x `height`,
// for an encoder that writes them itself. Nothing when the source's
// metadata cannot be read; an empty part when the source has none of it.
struct EncoderMetadata {
    std::vector<unsigned char> exif;
    std::string xmp;
};
std::optional<EncoderMetadata> ForEncoder(const std::string& originalImagePath, long width,
                                          long height);

}  // namespace vellumo::metadatacarry
