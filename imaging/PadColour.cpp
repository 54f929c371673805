// The colours and fills padding is given by name.

#include <algorithm>
#include <cctype>
#include <cstdio>

#include "imaging/Padding.h"

namespace vellumo {

namespace {

struct NamedColour {
    std::string_view name;
    RgbColour colour;
};

// The basic colours of CSS (which ImageMagick names alike).
constexpr std::array<NamedColour, 19> kNamedColours = {{
    {"white", {255, 255, 255}}, {"black", {0, 0, 0}},        {"grey", {128, 128, 128}},
    {"gray", {128, 128, 128}},  {"silver", {192, 192, 192}}, {"red", {255, 0, 0}},
    {"lime", {0, 255, 0}},      {"green", {0, 128, 0}},      {"blue", {0, 0, 255}},
    {"yellow", {255, 255, 0}},  {"cyan", {0, 255, 255}},     {"aqua", {0, 255, 255}},
    {"magenta", {255, 0, 255}}, {"fuchsia", {255, 0, 255}},  {"orange", {255, 165, 0}},
    {"navy", {0, 0, 128}},      {"maroon", {128, 0, 0}},     {"purple", {128, 0, 128}},
    {"teal", {0, 128, 128}},
}};

std::string Lower(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}

// "#rgb" or "#rrggbb", lower case.
std::optional<RgbColour> HexColour(const std::string& text) {
    if (text.size() != 4 && text.size() != 7) {
        return std::nullopt;
    }
    std::array<int, 3> samples{};
    const std::size_t digits = (text.size() - 1) / 3;
    for (std::size_t i = 0; i < 3; ++i) {
        int value = 0;
        for (std::size_t d = 0; d < digits; ++d) {
            const int digit = HexDigit(text[1 + i * digits + d]);
            if (digit < 0)
                return std::nullopt;
            value = value * 16 + digit;
        }
        samples[i] = digits == 1 ? value * 17 : value;
    }
    return RgbColour{static_cast<std::uint8_t>(samples[0]), static_cast<std::uint8_t>(samples[1]),
                     static_cast<std::uint8_t>(samples[2])};
}

}  // namespace

std::optional<RgbColour> ColourNamed(std::string_view text) {
    const std::string lower = Lower(text);
    if (!lower.empty() && lower[0] == '#') {
        return HexColour(lower);
    }
    for (const NamedColour& named : kNamedColours) {
        if (named.name == lower) {
            return named.colour;
        }
    }
    return std::nullopt;
}

std::string ColourText(RgbColour colour) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", colour.red, colour.green, colour.blue);
    return text;
}

bool ReadPadBackground(std::string_view text, PadRule& rule) {
    const std::string lower = Lower(text);
    for (std::size_t i = 0; i < kPadBackgroundNames.size(); ++i) {
        if (kPadBackgroundNames[i] == lower) {
            rule.background = static_cast<PadBackground>(i + 1);
            return true;
        }
    }
    const std::optional<RgbColour> colour = ColourNamed(text);
    if (!colour) {
        return false;
    }
    rule.background = PadBackground::Colour;
    rule.colour = *colour;
    return true;
}

std::string PadBackgroundText(const PadRule& rule) {
    if (rule.background == PadBackground::Colour) {
        return ColourText(rule.colour);
    }
    return std::string(kPadBackgroundNames.at(static_cast<std::size_t>(rule.background) - 1));
}

}  // namespace vellumo
