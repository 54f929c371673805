#pragma once

// Inside the core only: which decoder may see a file, decided by the file's
// first bytes and never by its name.

#include <optional>
#include <string>

namespace vellumo {

enum class FileKind { Jpeg, Jpeg2000, Png, Gif, Tiff, Bmp };

struct SniffedFile {
    std::optional<FileKind> kind;  // set when the content is one of the six kinds
    std::string reason;            // why not, when kind is empty
};

// Reads the first bytes of the file at `path`.
SniffedFile SniffFile(const std::string& path);

// The kind shown by `size` leading bytes, or nothing.
std::optional<FileKind> SniffBytes(const unsigned char* bytes, std::size_t size);

}  // namespace vellumo
