#pragma once

// Inside the core only: which decoder may see a file, decided by the file's
// first bytes and never by its name.

#include <optional>
#include <string>

#include "imaging/Failure.h"

namespace vellumo {

// Heif covers HEIC and AVIF: one container (ISO base media file format) and
// one decoder (libheif) for both codecs.
enum class FileKind { Jpeg, Jpeg2000, Png, Gif, Tiff, Bmp, Heif, WebP, JpegXl };

struct SniffedFile {
    std::optional<FileKind> kind;  // set when the content is a kind Vellumo reads
    std::string reason;            // why not, when kind is empty
    // Read when the file could not be opened or read, Decode when its
    // content is no kind Vellumo reads.
    FailureStage stage = FailureStage::Decode;
};

// Reads the first bytes of the file at `path`.
SniffedFile SniffFile(const std::string& path);

// The kind shown by `size` leading bytes, or nothing.
std::optional<FileKind> SniffBytes(const unsigned char* bytes, std::size_t size);

}  // namespace vellumo
