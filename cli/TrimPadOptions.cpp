#include "cli/TrimPadOptions.h"

#include <CLI/CLI.hpp>
#include <cmath>
#include <exception>

#include "batch/RuleClash.h"
#include "cli/OptionValues.h"
#include "cli/RuleClashText.h"
#include "imaging/Formats.h"

namespace vellumo::cli {

namespace {

using Problem = std::optional<std::string>;

// The whole text as a finite number, or nothing.
std::optional<double> NumberOf(const std::string& text) {
    try {
        std::size_t used = 0;
        const double value = std::stod(text, &used);
        if (used == text.size() && std::isfinite(value)) {
            return value;
        }
    } catch (const std::exception&) {
    }
    return std::nullopt;
}

Problem ApplyTrim(const TrimPadGroup& g, CropSettings& s) {
    if (g.trimOption->count() > 0) {
        s.trim.on = g.trim;
    }
    if (g.toleranceOption->count() > 0) {
        const std::optional<double> tolerance = NumberOf(g.tolerance);
        if (!tolerance || *tolerance < 0.0 || *tolerance > kLargestTrimTolerance) {
            return "--trim-tolerance: expected a percentage from 0 to 100, got " + g.tolerance;
        }
        s.trim.tolerance = *tolerance;
    }
    if (g.marginOption->count() > 0) {
        const std::optional<double> margin = NumberOf(g.margin);
        if (!margin || *margin < 0.0 || *margin > kLargestTrimMargin ||
            *margin != std::floor(*margin)) {
            return "--trim-margin: expected a whole number of pixels from 0 to " +
                   std::to_string(kLargestTrimMargin) + ", got " + g.margin;
        }
        s.trim.margin = static_cast<int>(*margin);
    }
    if (!s.trim.on && (g.toleranceOption->count() > 0 || g.marginOption->count() > 0)) {
        return std::string(g.toleranceOption->count() > 0 ? "--trim-tolerance" : "--trim-margin") +
               ": only with --trim";
    }
    return std::nullopt;
}

Problem ApplyPad(const TrimPadGroup& g, CropSettings& s) {
    if (g.padOption->count() > 0) {
        const std::optional<AspectRatio> ratio = ParseRatio(g.pad);
        if (!ratio) {
            return "--pad: expected a ratio W:H of two positive numbers, got " + g.pad;
        }
        s.pad.on = true;
        s.pad.ratio = *ratio;
    }
    if (g.backgroundOption->count() > 0) {
        if (!s.pad.on) {
            return "--background: only with --pad";
        }
        if (!ReadPadBackground(g.background, s.pad)) {
            return "--background: unknown colour " + g.background +
                   " (use a name such as white or black, #RRGGBB, edge, blur or transparent)";
        }
    }
    return std::nullopt;
}

// What the settings cannot do together, whether they came from here or
// from a profile, as the crop command refuses it.
Problem Combinations(const CropSettings& s) {
    if (const std::optional<RuleClash> clash = RuleClashOf(s)) {
        return RuleClashText(*clash, s);
    }
    return std::nullopt;
}

}  // namespace

void AddTrimAndPad(CLI::App& app, TrimPadGroup& g) {
    CLI::App* group = app.add_option_group("Trim and pad");
    g.trimOption = group->add_flag(
        "--trim", g.trim,
        "Cut away uniform borders: the colour (or transparency) of the corners around the "
        "picture; with --auto, the largest crop of the ratio within what is left");
    g.toleranceOption = group->add_option(
        "--trim-tolerance", g.tolerance,
        "How far a border's colours may stray from the corner's, 0 (the same) to 100 percent "
        "(as ImageMagick's -fuzz); default 0");
    g.marginOption = group->add_option(
        "--trim-margin", g.margin, "Pixels of border kept around the trimmed picture; default 0");
    g.padOption = group->add_option(
        "--pad", g.pad,
        "Instead of cutting, place the whole image (or what --trim leaves) on the smallest "
        "canvas of the ratio W:H; --anchor chooses where it sits");
    g.backgroundOption = group->add_option(
        "--background", g.background,
        "What fills the padding: a colour (white, black, grey ..., #RRGGBB; default white), "
        "edge (the outermost pixels repeated), blur (a blurred copy of the image) or "
        "transparent (formats with alpha)");
}

std::optional<std::string> ApplyTrimAndPad(const TrimPadGroup& g, bool cropRectangleGiven,
                                           CropSettings& s) {
    if (Problem problem = ApplyTrim(g, s)) {
        return problem;
    }
    if (Problem problem = ApplyPad(g, s)) {
        return problem;
    }
    const bool asked = g.trimOption->count() > 0 || g.padOption->count() > 0;
    if (asked && !cropRectangleGiven && s.mode != CropMode::Auto) {
        s.mode = CropMode::None;
    }
    return Combinations(s);
}

}  // namespace vellumo::cli
