#include "batch/Profile.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <system_error>

#include "imaging/AtomicFile.h"
#include "imaging/Formats.h"

namespace vellumo {

namespace {

using Json = nlohmann::ordered_json;

// A problem with one value, naming it for the warning.
struct Problem {
    std::string text;
};

const Json* Member(const Json& object, const char* key) {
    const auto found = object.find(key);
    return found == object.end() ? nullptr : &*found;
}

void ReadBool(const Json& object, const char* key, bool& value) {
    if (const Json* member = Member(object, key)) {
        if (!member->is_boolean())
            throw Problem{"\"" + std::string(key) + "\" must be true or false"};
        value = member->get<bool>();
    }
}

double WideNumber(const Json& value, const std::string& name, double low, double high) {
    if (!value.is_number())
        throw Problem{"\"" + name + "\" must be a number"};
    const double number = value.get<double>();
    if (!std::isfinite(number) || number < low || number > high) {
        std::ostringstream range;
        range << "\"" << name << "\" must be between " << low << " and " << high;
        throw Problem{range.str()};
    }
    return number;
}

// The window's fields hold single-precision numbers.
float Number(const Json& value, const std::string& name, double low, double high) {
    return static_cast<float>(WideNumber(value, name, low, high));
}

void ReadString(const Json& object, const char* key, std::string& value) {
    if (const Json* member = Member(object, key)) {
        if (!member->is_string())
            throw Problem{"\"" + std::string(key) + "\" must be text"};
        value = member->get<std::string>();
    }
}

// The four fields of a rectangle object; missing ones keep their values.
void ReadRectangle(const Json& object, const char* key, float& x, float& y, float& w, float& h) {
    const Json* member = Member(object, key);
    if (member == nullptr)
        return;
    if (!member->is_object())
        throw Problem{"\"" + std::string(key) + "\" must be an object"};
    const std::pair<const char*, float*> fields[] = {
        {"x", &x}, {"y", &y}, {"width", &w}, {"height", &h}};
    for (const auto& [name, target] : fields) {
        if (const Json* value = Member(*member, name)) {
            *target = Number(*value, std::string(key) + "." + name, -kLargestRectangleField,
                             kLargestRectangleField);
        }
    }
}

// A whole number of bytes, 0 for none, up to a petabyte.
void ReadByteLimit(const Json& object, ByteLimit& limit) {
    if (const Json* member = Member(object, "maxBytes")) {
        const double bytes = WideNumber(*member, "maxBytes", 0, 1e15);
        if (bytes != std::floor(bytes))
            throw Problem{"\"maxBytes\" must be a whole number"};
        limit.maxBytes = static_cast<std::uint64_t>(bytes);
    }
    ReadBool(object, "maxBytesScaleDown", limit.scaleDown);
}

template <std::size_t N>
long TitleIndex(const Json& value, const char* key, const std::array<std::string_view, N>& titles) {
    if (!value.is_string())
        throw Problem{"\"" + std::string(key) + "\" must be text"};
    const std::string title = value.get<std::string>();
    const auto found = std::find(titles.begin(), titles.end(), title);
    if (found == titles.end()) {
        throw Problem{"\"" + std::string(key) + "\" has an unknown value \"" +
                      value.get<std::string>() + "\""};
    }
    return static_cast<long>(found - titles.begin());
}

// The ratio entries in the order of RatioChoice, "custom" last.
constexpr std::array<std::string_view, kAutoCropRatios.size() + 1> RatioNames() {
    std::array<std::string_view, kAutoCropRatios.size() + 1> names{};
    for (std::size_t i = 0; i < kAutoCropRatios.size(); ++i) {
        names[i] = kAutoCropRatios[i].title;
    }
    names.back() = "custom";
    return names;
}
constexpr auto kRatioNames = RatioNames();

template <typename Value, std::size_t N>
Value NamedValue(const Json& object, const char* key,
                 const std::array<std::string_view, N>& names) {
    return static_cast<Value>(TitleIndex(object, key, names));
}

// The head-and-shoulders portrait: null for none, else its two shares.
void ReadPortrait(const Json& profile, CropSettings& s) {
    const Json* portrait = Member(profile, "portraitOfFace");
    if (portrait == nullptr) {
        return;
    }
    if (portrait->is_null()) {
        s.portraitOfFace.reset();
        return;
    }
    if (!portrait->is_object())
        throw Problem{"\"portraitOfFace\" must be an object or null"};
    HeadAndShoulders shares;
    for (const auto& [name, share] :
         {std::pair{"faceHeight", &shares.faceHeight}, std::pair{"eyeLine", &shares.eyeLine}}) {
        if (const Json* value = Member(*portrait, name)) {
            *share = Number(*value, std::string("portraitOfFace.") + name, 1, 99);
        }
    }
    s.portraitOfFace = shares;
}

Json PortraitJson(const std::optional<HeadAndShoulders>& portrait) {
    if (!portrait) {
        return nullptr;
    }
    return {{"faceHeight", portrait->faceHeight}, {"eyeLine", portrait->eyeLine}};
}

// The crop rules added in version 2.
void ReadRules(const Json& profile, CropSettings& s) {
    if (const Json* ratio = Member(profile, "customRatio")) {
        if (!ratio->is_object())
            throw Problem{"\"customRatio\" must be an object"};
        for (const auto& [name, side] : {std::pair{"width", &s.customRatio.width},
                                         std::pair{"height", &s.customRatio.height}}) {
            if (const Json* value = Member(*ratio, name)) {
                *side = WideNumber(*value, std::string("customRatio.") + name, kSmallestRatioSide,
                                   kLargestRatioSide);
            }
        }
    }
    ReadBool(profile, "matchOrientation", s.matchOrientation);
    if (const Json* anchor = Member(profile, "anchor")) {
        s.anchor = NamedValue<CropAnchor>(*anchor, "anchor", kCropAnchorNames);
    }
    ReadPortrait(profile, s);
    if (const Json* resize = Member(profile, "resize")) {
        if (!resize->is_object())
            throw Problem{"\"resize\" must be an object"};
        if (const Json* mode = Member(*resize, "mode")) {
            s.resize.mode = NamedValue<ResizeMode>(*mode, "resize.mode", kResizeModeNames);
        }
        for (const auto& [name, side] :
             {std::pair{"width", &s.resize.width}, std::pair{"height", &s.resize.height}}) {
            if (const Json* value = Member(*resize, name)) {
                *side = static_cast<int>(
                    Number(*value, std::string("resize.") + name, 0, kLargestResizeSide));
            }
        }
        ReadBool(*resize, "enlarge", s.resize.enlarge);
    }
}

const Json& Object(const Json& object, const char* key) {
    const Json* member = Member(object, key);
    if (!member->is_object())
        throw Problem{"\"" + std::string(key) + "\" must be an object"};
    return *member;
}

// "trim": {"on", "tolerance", "margin"}; "pad": {"on", "ratio", "background"}.
void ReadTrimAndPad(const Json& profile, CropSettings& s) {
    if (Member(profile, "trim") != nullptr) {
        const Json& trim = Object(profile, "trim");
        ReadBool(trim, "on", s.trim.on);
        if (const Json* tolerance = Member(trim, "tolerance"))
            s.trim.tolerance = WideNumber(*tolerance, "trim.tolerance", 0, kLargestTrimTolerance);
        if (const Json* margin = Member(trim, "margin")) {
            const double pixels = WideNumber(*margin, "trim.margin", 0, kLargestTrimMargin);
            if (pixels != std::floor(pixels))
                throw Problem{"\"trim.margin\" must be a whole number"};
            s.trim.margin = static_cast<int>(pixels);
        }
    }
    if (Member(profile, "pad") == nullptr)
        return;
    const Json& pad = Object(profile, "pad");
    ReadBool(pad, "on", s.pad.on);
    if (Member(pad, "ratio") != nullptr) {
        const Json& ratio = Object(pad, "ratio");
        for (const auto& [name, side] :
             {std::pair{"width", &s.pad.ratio.width}, std::pair{"height", &s.pad.ratio.height}}) {
            if (const Json* value = Member(ratio, name))
                *side = WideNumber(*value, std::string("pad.ratio.") + name, kSmallestRatioSide,
                                   kLargestRatioSide);
        }
    }
    std::string background = PadBackgroundText(s.pad);
    ReadString(pad, "background", background);
    if (!ReadPadBackground(background, s.pad))
        throw Problem{"\"pad.background\" has an unknown value \"" + background + "\""};
}

constexpr std::array<std::string_view, 4> kCropModeNames = {"auto", "pixels", "percents", "none"};

std::string_view CropModeName(CropMode mode) {
    return kCropModeNames.at(static_cast<std::size_t>(mode));
}

// The mode of a profile: "cropMode", or, in profiles written before it
// existed, the four radio buttons of the window, each missing one keeping
// the state the current mode gives it.
CropMode ReadCropMode(const Json& profile, CropMode current) {
    if (const Json* mode = Member(profile, "cropMode")) {
        return static_cast<CropMode>(TitleIndex(*mode, "cropMode", kCropModeNames));
    }
    bool autoCrop = current == CropMode::Auto;
    bool customCrop = !autoCrop;
    bool pixels = current == CropMode::Pixels;
    bool percents = current == CropMode::Percents;
    ReadBool(profile, "autoCrop", autoCrop);
    ReadBool(profile, "customCrop", customCrop);
    ReadBool(profile, "customCropPixels", pixels);
    ReadBool(profile, "customCropPercents", percents);
    return CropModeOfRadios(autoCrop, customCrop, pixels, percents);
}

}  // namespace

std::string ProfileText(const CropSettings& s) {
    const Json profile = {
        {"version", kProfileVersion},
        {"cropMode", CropModeName(s.mode)},
        {"autoCropRatio",
         kRatioNames.at(static_cast<std::size_t>(PositionOfRatioChoice(s.autoCropRatio)))},
        {"customRatio", {{"width", s.customRatio.width}, {"height", s.customRatio.height}}},
        {"matchOrientation", s.matchOrientation},
        {"anchor", CropAnchorName(s.anchor)},
        {"portraitOfFace", PortraitJson(s.portraitOfFace)},
        {"resize",
         {{"mode", ResizeModeName(s.resize.mode)},
          {"width", s.resize.width},
          {"height", s.resize.height},
          {"enlarge", s.resize.enlarge}}},
        {"pixels",
         {{"x", s.pixelsOriginX},
          {"y", s.pixelsOriginY},
          {"width", s.pixelsWidth},
          {"height", s.pixelsHeight}}},
        {"percents",
         {{"x", s.percentsOriginX},
          {"y", s.percentsOriginY},
          {"width", s.percentsWidth},
          {"height", s.percentsHeight}}},
        {"format", InfoOf(s.outputFormat).title},
        {"quality", s.quality},
        {"losslessJpeg", s.losslessJpeg},
        {"nameTemplate", s.nameTemplate},
        {"outputFolder", s.outputFolder},
        {"keepMetadata", s.keepMetadata},
        {"keepStructure", s.keepStructure},
        {"maxBytes", s.byteLimit.maxBytes},
        {"maxBytesScaleDown", s.byteLimit.scaleDown},
        {"trim", {{"on", s.trim.on}, {"tolerance", s.trim.tolerance}, {"margin", s.trim.margin}}},
        {"pad",
         {{"on", s.pad.on},
          {"ratio", {{"width", s.pad.ratio.width}, {"height", s.pad.ratio.height}}},
          {"background", PadBackgroundText(s.pad)}}},
    };
    return profile.dump(2) + "\n";
}

Loaded<CropSettings> SettingsFromProfileText(const std::string& text, const CropSettings& current) {
    const Json profile = Json::parse(text, nullptr, /*allow_exceptions=*/false);
    if (profile.is_discarded()) {
        return Loaded<CropSettings>::Failure("the file is not valid JSON");
    }
    if (!profile.is_object()) {
        return Loaded<CropSettings>::Failure("the file does not hold a profile");
    }
    const Json* version = Member(profile, "version");
    if (version == nullptr) {
        return Loaded<CropSettings>::Failure("the file has no \"version\"");
    }
    if (!version->is_number_integer() || version->get<long long>() < 1 ||
        version->get<long long>() > kProfileVersion) {
        return Loaded<CropSettings>::Failure(
            "version " + version->dump() +
            " is not one this Vellumo reads (it reads versions 1 and " +
            std::to_string(kProfileVersion) + ")");
    }
    CropSettings s = current;
    if (version->get<long long>() == 1) {
        // Version 1 knew only centred crops of the four ratios, turned to
        // each image, written at their own size: its missing keys are those.
        const CropSettings defaults;
        s.customRatio = defaults.customRatio;
        s.matchOrientation = defaults.matchOrientation;
        s.anchor = defaults.anchor;
        s.portraitOfFace = defaults.portraitOfFace;
        s.resize = defaults.resize;
    }
    try {
        s.mode = ReadCropMode(profile, s.mode);
        if (const Json* ratio = Member(profile, "autoCropRatio")) {
            s.autoCropRatio =
                *RatioChoiceAtPosition(TitleIndex(*ratio, "autoCropRatio", kRatioNames));
        }
        ReadRectangle(profile, "pixels", s.pixelsOriginX, s.pixelsOriginY, s.pixelsWidth,
                      s.pixelsHeight);
        ReadRectangle(profile, "percents", s.percentsOriginX, s.percentsOriginY, s.percentsWidth,
                      s.percentsHeight);
        if (const Json* format = Member(profile, "format")) {
            if (!format->is_string())
                throw Problem{"\"format\" must be text"};
            const std::optional<OutputFormat> named = OutputFormatNamed(format->get<std::string>());
            if (!named)
                throw Problem{"\"format\" has an unknown value \"" + format->get<std::string>() +
                              "\""};
            s.outputFormat = *named;
        }
        if (const Json* quality = Member(profile, "quality")) {
            s.quality = Number(*quality, "quality", 0, 100);
        }
        ReadBool(profile, "losslessJpeg", s.losslessJpeg);
        ReadString(profile, "nameTemplate", s.nameTemplate);
        ReadString(profile, "outputFolder", s.outputFolder);
        ReadBool(profile, "keepMetadata", s.keepMetadata);
        ReadBool(profile, "keepStructure", s.keepStructure);
        ReadByteLimit(profile, s.byteLimit);
        ReadRules(profile, s);
        ReadTrimAndPad(profile, s);
    } catch (const Problem& problem) {
        return Loaded<CropSettings>::Failure(problem.text);
    }
    return Loaded<CropSettings>::Success(s);
}

SaveResult WriteProfile(const std::string& path, const CropSettings& settings) {
    const std::string text = ProfileText(settings);
    return atomicfile::ReplaceWithBytes(path, text.data(), text.size());
}

Loaded<CropSettings> ReadProfile(const std::string& path, const CropSettings& current) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        return Loaded<CropSettings>::Failure("the file cannot be opened (" +
                                             std::generic_category().message(errno) + ")");
    }
    std::ostringstream text;
    text << in.rdbuf();
    return SettingsFromProfileText(text.str(), current);
}

}  // namespace vellumo
