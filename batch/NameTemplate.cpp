#include "batch/NameTemplate.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <numeric>
#include <string_view>

#include "batch/CropSettings.h"

namespace vellumo {

namespace {

struct TokenName {
    NameToken token;
    std::string_view name;
};
constexpr std::array<TokenName, 9> kTokens = {{
    {NameToken::FileName, "FileName"},
    {NameToken::FileIndex, "FileIndex"},
    {NameToken::Folder, "Folder"},
    {NameToken::Ext, "Ext"},
    {NameToken::Date, "Date"},
    {NameToken::Camera, "Camera"},
    {NameToken::Width, "Width"},
    {NameToken::Height, "Height"},
    {NameToken::Ratio, "Ratio"},
}};
constexpr const char* kKnownTokens =
    "[FileName] [FileIndex] [Folder] [Ext] [Date] [Date:pattern] [Camera] [Width] [Height] "
    "[Ratio]";

std::optional<NameToken> TokenNamed(std::string_view name) {
    for (const TokenName& entry : kTokens) {
        if (entry.name == name) {
            return entry.token;
        }
    }
    return std::nullopt;
}

// "/" and NUL would make a folder or end the name.
std::string FileNameSafe(std::string value) {
    for (char& c : value) {
        if (c == '/' || c == '\0') {
            c = '_';
        }
    }
    return value;
}

std::string WholeNumber(double value) {
    return std::to_string(static_cast<long long>(std::llround(value)));
}

// The value of one token for these values; nothing when it has none.
std::optional<std::string> ValueOf(NameToken token, const std::optional<DateFormat>& date,
                                   const NameValues& values) {
    namespace fs = std::filesystem;
    const fs::path source(values.source);
    switch (token) {
        case NameToken::FileName: {
            // As names have always been made: the index goes in after the
            // file name, so a "[FileIndex]" in the file's own name gets it.
            std::string stem = source.stem().string();
            const std::string index = std::to_string(values.index + 1);
            for (std::size_t at = stem.find("[FileIndex]"); at != std::string::npos;
                 at = stem.find("[FileIndex]", at + index.size())) {
                stem.replace(at, std::string_view("[FileIndex]").size(), index);
            }
            return stem;
        }
        case NameToken::FileIndex:
            return std::to_string(values.index + 1);
        case NameToken::Folder: {
            // The error-code form: an empty path has no absolute form, and
            // the throwing one would end the program.
            std::error_code error;
            const fs::path whole = fs::absolute(source, error);
            const std::string folder =
                error ? std::string() : whole.lexically_normal().parent_path().filename().string();
            return folder.empty() ? std::nullopt : std::optional(folder);
        }
        case NameToken::Ext: {
            const std::string ext = source.extension().string();
            return ext.size() < 2 ? std::nullopt : std::optional(ext.substr(1));
        }
        case NameToken::Date:
            if (!values.facts || !values.facts->taken) {
                return std::nullopt;
            }
            return date->Format(*values.facts->taken);
        case NameToken::Camera:
            if (!values.facts || values.facts->camera.empty()) {
                return std::nullopt;
            }
            return values.facts->camera;
        case NameToken::Width:
        case NameToken::Height:
        case NameToken::Ratio:
            if (!values.outputSize) {
                return std::nullopt;
            }
            return token == NameToken::Width    ? WholeNumber(values.outputSize->width)
                   : token == NameToken::Height ? WholeNumber(values.outputSize->height)
                                                : RatioName(*values.outputSize);
    }
    return std::nullopt;
}

std::string_view NameOfToken(NameToken token) {
    for (const TokenName& entry : kTokens) {
        if (entry.token == token) {
            return entry.name;
        }
    }
    return {};
}

// "[Camera], [Width] have no value: left empty in the name".
Sentence AbsentTokensNote(const std::vector<std::string_view>& absent) {
    std::string names;
    // Appended piece by piece: GCC 12 at -O3 takes "[" + name + "]" for an
    // overlapping copy (a false -Wrestrict).
    for (const std::string_view name : absent) {
        if (!names.empty()) {
            names += ", ";
        }
        names += '[';
        names += name;
        names += ']';
    }
    return {absent.size() == 1 ? VELLUMO_TEXT("Engine", "%1 has no value: left empty in the name")
                               : VELLUMO_TEXT("Engine", "%1 have no value: left empty in the name"),
            {names}};
}

}  // namespace

std::optional<NameTemplate> NameTemplate::Parse(const std::string& given, std::string& problem) {
    const std::string text = given.empty() ? std::string("[FileName]") : given;
    NameTemplate parsed;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t open = text.find('[', at);
        if (open != at) {
            std::string literal = text.substr(at, open - at);
            // A name, never a path: "/" would put the crop into another
            // folder than the output folder, ".." even outside it.
            if (literal.find_first_of(std::string_view("/\0", 2)) != std::string::npos) {
                problem = "a name cannot hold \"/\": every crop goes into the output folder";
                return std::nullopt;
            }
            parsed.parts_.push_back({std::nullopt, std::move(literal), std::nullopt});
            at = open;
            continue;
        }
        const std::size_t close = text.find(']', open);
        if (close == std::string::npos) {
            problem = "unclosed token " + text.substr(open) + " (known: " + kKnownTokens + ")";
            return std::nullopt;
        }
        const std::string inside = text.substr(open + 1, close - open - 1);
        const std::size_t colon = inside.find(':');
        const std::optional<NameToken> token = TokenNamed(inside.substr(0, colon));
        Part part{token, text.substr(open, close - open + 1), std::nullopt};
        if (token == NameToken::Date) {
            std::string why;
            part.date = DateFormat::Parse(
                colon == std::string::npos ? kDefaultDatePattern : inside.substr(colon + 1), why);
            if (!part.date) {
                problem = "token " + part.text + ": " + why;
                return std::nullopt;
            }
        } else if (!token || colon != std::string::npos) {
            problem = "unknown token " + part.text + " (known: " + kKnownTokens + ")";
            return std::nullopt;
        }
        parsed.parts_.push_back(std::move(part));
        at = close + 1;
    }
    if (!parsed.Holds(NameToken::FileName) && !parsed.Holds(NameToken::FileIndex) &&
        !parsed.Holds(NameToken::Date)) {
        parsed.parts_.push_back({std::nullopt, " (", std::nullopt});
        parsed.parts_.push_back({NameToken::FileIndex, "[FileIndex]", std::nullopt});
        parsed.parts_.push_back({std::nullopt, ")", std::nullopt});
    }
    return parsed;
}

bool NameTemplate::Holds(NameToken token) const {
    for (const Part& part : parts_) {
        if (part.token == token) {
            return true;
        }
    }
    return false;
}

bool NameTemplate::NeedsPhotoFacts() const {
    return Holds(NameToken::Date) || Holds(NameToken::Camera);
}

bool NameTemplate::NeedsImage() const {
    return NeedsPhotoFacts() || Holds(NameToken::Width) || Holds(NameToken::Height) ||
           Holds(NameToken::Ratio);
}

ExpandedName NameTemplate::Expand(const NameValues& values, Missing missing) const {
    ExpandedName expanded;
    std::vector<std::string_view> absent;
    for (const Part& part : parts_) {
        if (!part.token) {
            expanded.name += part.text;
            continue;
        }
        if (const std::optional<std::string> value = ValueOf(*part.token, part.date, values)) {
            expanded.name += FileNameSafe(*value);
            continue;
        }
        if (missing == Missing::KeptAsToken) {
            expanded.name += part.text;
        }
        if (std::find(absent.begin(), absent.end(), NameOfToken(*part.token)) == absent.end()) {
            absent.push_back(NameOfToken(*part.token));
        }
    }
    if (!absent.empty()) {
        expanded.warnings.push_back(AbsentTokensNote(absent));
    }
    return expanded;
}

std::optional<std::string> NameTemplateProblem(const std::string& text) {
    std::string problem;
    if (NameTemplate::Parse(text, problem)) {
        return std::nullopt;
    }
    return problem;
}

std::string RatioName(Size size) {
    if (size.width <= 0.0 || size.height <= 0.0) {
        return "0x0";
    }
    const double ratio = size.width / size.height;
    for (const AutoCropRatio& listed : kAutoCropRatios) {
        const AspectRatio sides = listed.ratio;
        std::string title(listed.title);
        if (const std::size_t colon = title.find(':'); colon != std::string::npos) {
            title[colon] = 'x';
        }
        if (std::abs(ratio / (sides.width / sides.height) - 1.0) <= 0.01) {
            return title;
        }
        if (std::abs(ratio / (sides.height / sides.width) - 1.0) <= 0.01) {
            const std::size_t x = title.find('x');
            return title.substr(x + 1) + "x" + title.substr(0, x);
        }
    }
    const long long w = std::llround(size.width);
    const long long h = std::llround(size.height);
    const long long common = std::gcd(w, h);
    if (common > 0 && w / common <= 50 && h / common <= 50) {
        return std::to_string(w / common) + "x" + std::to_string(h / common);
    }
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.2fx1", ratio);
    return text.data();
}

}  // namespace vellumo
