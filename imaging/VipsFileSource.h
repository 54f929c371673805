#pragma once

// Inside the core only: the libvips source a decoder reads a file from.
// Throws vips::VError.

#include <string>
#include <vips/vips8>

namespace vellumo::vipsfilesource {

// The file at `path`; for a descriptor's name (FileHandles.h) the descriptor
// itself, read at offsets: each source keeps its own position, so that
// several decoders may read the same descriptor at once (a picture decoded
// small for the crop's placement while the full image streams to the
// encoder).
vips::VSource Of(const std::string& path);

}  // namespace vellumo::vipsfilesource
