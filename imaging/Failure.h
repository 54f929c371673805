#pragma once

// Why an image's work failed, and at which stage: one type for the core's
// failures, from the file's first bytes to the metadata carried afterwards.

#include <optional>
#include <string>

#include "imaging/Sentence.h"

namespace vellumo {

enum class FailureStage {
    Read,      // the file could not be opened or read
    Decode,    // its content is no image Vellumo reads, or damaged
    Crop,      // the rectangle could not be cut (a JPEG cut without re-encoding)
    Encode,    // the encoder refused the image
    Write,     // the output could not be written (the file system said no)
    Metadata,  // the source's metadata could not be carried
};

// "read", "decode", "crop", "encode", "write", "metadata"; nothing for any
// other name.
const char* StageName(FailureStage stage);
std::optional<FailureStage> StageFromName(const std::string& name);

struct Failure {
    FailureStage stage = FailureStage::Decode;
    // The line a person reads: "cannot decode: not a JPEG file",
    // "cannot write: permission denied".
    std::string reason;
    // The cause alone, for a front end that words the stage in its own
    // language: "not a JPEG file". A library's or the system's own text is
    // the pattern "%1" with that text as its value. Empty for a failure made
    // without a cause (its reason is all there is).
    Sentence detail;

    // A failure at `stage` whose cause is `detail`, worded "cannot <verb>:
    // detail": "decode", "crop", "carry metadata"; "write" for both an
    // encoder's refusal and the file system's (the person sees that the output
    // could not be written). A file that cannot be opened or read words
    // itself ("cannot open: ..."), so its detail is taken as the line.
    static Failure At(FailureStage stage, const Sentence& detail);
    // A cause in a library's or the system's own words.
    static Failure At(FailureStage stage, const std::string& detail);

    friend bool operator==(const Failure&, const Failure&) = default;
};

}  // namespace vellumo
