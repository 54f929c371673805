#pragma once

// Inside the core only: the work of
// ImageTools::ChangeImageExifWithOriginalImagePath, with the source's
// creation date asked for through a function, so that what happens when the
// source vanishes between its metadata and its date can be checked.

#include <chrono>
#include <functional>
#include <string>

#include "imaging/MetadataResult.h"

namespace vellumo::metadatacarry {

using DateOfSource = std::function<std::chrono::system_clock::time_point()>;

// As ChangeImageExifWithOriginalImagePath; `dateOfSource` is called once,
// after the source's metadata has been read and the saved file opened.
MetadataResult Carry(const std::string& originalImagePath, const std::string& croppedImagePath,
                     const DateOfSource& dateOfSource);

}  // namespace vellumo::metadatacarry
