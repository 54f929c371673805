#pragma once

// Image lists too long for a command line: one path per line, or separated
// by NUL bytes (as `find -print0` writes them), from a file or from
// standard input ("-").

#include <string>
#include <vector>

#include "imaging/LoadResult.h"

namespace vellumo::cli {

// The paths listed in `path`, in order; empty lines (or empty names) are
// left out. A missing or unreadable file is a failure with the reason.
Loaded<std::vector<std::string>> ReadInputList(const std::string& path, bool nulSeparated);

// The paths a list's text holds, as ReadInputList reads them; lines of a
// newline-separated list may end with CR LF.
std::vector<std::string> InputListFromText(const std::string& text, bool nulSeparated);

}  // namespace vellumo::cli
