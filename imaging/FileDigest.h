#pragma once

// Inside the core only: what a file holds, in two numbers that tell one file
// from another (its length and its SHA-256), read in pieces so that a large
// file costs no memory.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vellumo {

struct FileDigest {
    std::uint64_t bytes = 0;
    std::string sha256;  // 64 lower-case hexadecimal digits

    friend bool operator==(const FileDigest&, const FileDigest&) = default;
};

// The digest of the file at `path`; nothing when it cannot be read.
std::optional<FileDigest> DigestOfFile(const std::string& path);

// The SHA-256 of `text`, in hexadecimal.
std::string Sha256OfText(std::string_view text);

}  // namespace vellumo
