#pragma once

// Where every image of a job is written, settled for the whole list before
// anything is written:
//
// - Each image's path comes from the name template, the folder and the
//   format (GenerateOutputPathWithImageIndex), or, when the originals are
//   replaced, is the image's own file, written in the format its extension
//   names.
// - An output that is the file of any listed image (the same file however it
//   is spelled: compared by device and inode, links included) is never
//   written: that image is refused. Its own file is allowed only when the
//   originals are replaced.
// - Two images are never written to one path. Paths are compared as the
//   file system resolves them (normalised, symbolic links followed) and,
//   where a file exists, by device and inode. Of the images that share a
//   path the first in the list keeps it; the later ones are refused, or
//   numbered: " (2)", " (3)" ... before the extension, skipping any name
//   another image of the batch is written to or reads from.
// - When the originals are replaced, a file listed twice is replaced once,
//   by its first entry: the later entry is refused even when numbering,
//   since it would read the file after it was replaced.

#include <optional>
#include <string>
#include <vector>

#include "batch/CropSettings.h"
#include "batch/NameTemplate.h"

namespace vellumo {

enum class ClashPolicy {
    Refuse,  // later images that share a path are not written
    Number,  // later images get " (2)", " (3)" ... before the extension
};

inline constexpr const char* kClashReason = "another image of this batch is written to this path";
inline constexpr const char* kOriginalReason =
    "the output would replace an original image of this batch";

// Where an image's output goes.
enum class OutputTarget {
    NewFile,  // a file of its own (which may replace an earlier output)
    // The source file itself (the originals are replaced): whatever is
    // carried over from the source is read before it goes.
    Source,
};

struct PlannedOutput {
    std::string path;
    OutputFormat format = OutputFormat::Jpg;  // what the file is written in, unless refused
    std::string refusal;  // why nothing is written for this image; empty when it is
    OutputTarget target = OutputTarget::NewFile;
    // Tokens of the name that had no value for this image, in words.
    Sentences warnings;
};

// A set of images that would be written to one path.
struct OutputClash {
    std::string path;
    std::vector<long> images;  // indices in list order, two or more
};

struct OutputPlan {
    std::vector<PlannedOutput> images;  // one per listed image
    // The clashes found, before numbering settled them (numbering or not).
    std::vector<OutputClash> clashes;
};

// `facts` holds what the names need read from the images, one entry per
// listed image (GatherNameFacts); without it those tokens are left empty.
// A name template that cannot be read refuses every image with its reason.
// When the settings keep the tree, each output's subfolder is measured from
// the deepest of `roots` holding its image; without roots, from the folder
// all the images share. The list's first image is numbered as index
// `firstIndex` ([FileIndex] one more), the others after it.
OutputPlan PlanOutputs(const CropSettings& settings, const std::vector<std::string>& listImagePaths,
                       ClashPolicy policy, const std::vector<ImageNameFacts>* facts = nullptr,
                       const std::vector<std::string>* roots = nullptr, long firstIndex = 0);

// The output format a file's extension names ("jpg" gives Jpg), any case;
// nothing for an extension that is no output format.
std::optional<OutputFormat> OutputFormatOfPath(const std::string& path);

// `path` with " (n)" put before its extension: "a/x.jpg", 2 gives
// "a/x (2).jpg".
std::string NumberedPath(const std::string& path, int number);

}  // namespace vellumo
