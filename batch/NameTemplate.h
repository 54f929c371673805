#pragma once

// The name template of an output: text with tokens in square brackets, each
// replaced by a value of the image it names.
//
//   [FileName]   the source's file name without its last extension
//   [FileIndex]  the image's place in the list, from 1
//   [Folder]     the name of the folder the source is in
//   [Ext]        the source's extension, without the dot, as spelled
//   [Date]       when the photo was taken (Exif DateTimeOriginal, else the
//                file's modification time), as [Date:yyyy-MM-dd]; a
//                pattern of its own after a colon (batch/DateFormat.h)
//   [Camera]     the camera's model (Exif Model)
//   [Width], [Height]  the output's size in pixels
//   [Ratio]      the output's aspect ratio as "16x9" (see RatioName)
//
// Tokens are spelled exactly (case matters). An unknown token or a "[" that
// is never closed is refused before any image is read. A token without a
// value for an image becomes empty text, and the image gets a warning.
// "/" and NUL in a value become "_": a value never makes a folder.

#include <optional>
#include <string>
#include <vector>

#include "batch/DateFormat.h"
#include "imaging/Geometry.h"
#include "imaging/PhotoFacts.h"
#include "imaging/Sentence.h"

namespace vellumo {

enum class NameToken { FileName, FileIndex, Folder, Ext, Date, Camera, Width, Height, Ratio };

// What one image's name is made of. The output size and the photo's facts
// come from reading the image (see NameFacts.h); the rest from its path.
struct NameValues {
    std::string source;  // the source's path
    long index = 0;      // its place in the list, from 0
    std::optional<Size> outputSize;
    std::optional<PhotoFacts> facts;
};

// What one image's name needs read from the image itself (NameFacts.h).
struct ImageNameFacts {
    std::optional<Size> outputSize;  // none when the image cannot be read
    std::optional<PhotoFacts> photoFacts;
};

struct ExpandedName {
    std::string name;
    // "[Camera] has no value: left empty in the name", naming every token
    // left empty; none when every token had one.
    Sentences warnings;
};

class NameTemplate {
  public:
    // `text` read as a template; nothing, with one line naming what is
    // wrong in `problem`, for an unknown or unclosed token. An empty text is
    // "[FileName]"; a template with none of [FileName], [FileIndex] and
    // [Date] gets " ([FileIndex])" appended, so that images of one batch
    // are told apart.
    static std::optional<NameTemplate> Parse(const std::string& text, std::string& problem);

    // Some token needs the image read: its size or its metadata.
    bool NeedsImage() const;
    // Some token needs the photo's metadata ([Date], [Camera]).
    bool NeedsPhotoFacts() const;

    // What a token without a value becomes: empty text (a name to write),
    // or the token as written ("[Date]"), for a name shown before the
    // image's facts are known.
    enum class Missing { LeftEmpty, KeptAsToken };

    ExpandedName Expand(const NameValues& values, Missing missing = Missing::LeftEmpty) const;

  private:
    struct Part {
        std::optional<NameToken> token;  // none: literal text
        std::string text;
        std::optional<DateFormat> date;  // for [Date]
    };
    bool Holds(NameToken token) const;

    std::vector<Part> parts_;
};

// Why `text` is no template (as Parse says it), or nothing.
std::optional<std::string> NameTemplateProblem(const std::string& text);

// The ratio of a width and height as a name shows it: a listed crop ratio
// the size matches to within 1 % in its orientation ("16x9", "9x16",
// "1.91x1"), else the exact ratio in its smallest whole numbers when both
// are at most 50 ("7x2"), else the width per unit height to two decimals
// ("1.37x1").
std::string RatioName(Size size);

}  // namespace vellumo
