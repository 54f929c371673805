#pragma once

// Inside the core only: whole files as bytes in memory.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "imaging/SaveResult.h"

namespace vellumo {

// The bytes of the file at `path`, or nothing with `reason` set.
std::optional<std::vector<unsigned char>> ReadFileBytes(const std::string& path,
                                                        std::string& reason);

// Writes `size` bytes over the existing file at `path`, truncating it first.
// Not atomic: meant for a file no one else sees yet (see AtomicFile.h).
SaveResult OverwriteFileBytes(const std::string& path, const void* bytes, std::size_t size);

}  // namespace vellumo
