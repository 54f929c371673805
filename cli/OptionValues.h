#pragma once

// The values of the command line's options that are more than a word or a
// number, each read from its text whole or not at all.

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "imaging/CropPlacement.h"

namespace vellumo::cli {

// "X,Y,W,H" as four numbers, each within plus or minus
// kLargestRectangleField (no NaN, no infinity).
std::optional<std::array<float, 4>> ParseRectangle(const std::string& text);

// "W:H" with two decimals from kSmallestRatioSide to kLargestRatioSide.
std::optional<AspectRatio> ParseRatio(const std::string& text);

// A side of --resize: empty (0), or a whole number from 1 to the largest
// side an output may have.
std::optional<int> ParseSide(const std::string& text);

// A quality from 0 to 100; an empty text when it is one, else the reason.
std::string QualityProblem(const std::string& text);

// A size in bytes: a whole number above 0, with an optional K (1000) or M
// (1000000), any case, and an optional B: "500K", "2M", "350000". Decimal
// units, so that a limit read as 500 KB is met either way it is meant.
std::optional<std::uint64_t> ByteCountOf(const std::string& text);

// A share of a portrait in percent: a number from 1 to 99 ("45", "37.5"),
// nothing else.
std::optional<float> ParseShare(const std::string& text);

// The anchors' names as a sentence: "centre, top, ... entropy or faces".
std::string AnchorNameList();

}  // namespace vellumo::cli
