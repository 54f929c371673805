#pragma once

#include <string>

namespace vellumo {

// Before an overwrite, what is in the way must go. A folder is removed now
// (only an empty one can be); a file stays until the save replaces it in one
// rename, so that a failed save leaves it as it was; it is only checked that
// it could be removed. Returns the error's description, or nothing.
std::string ClearForOverwrite(const std::string& path);

}  // namespace vellumo
