#include "batch/CropPlan.h"

#include <cmath>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>

#include "batch/Profile.h"
#include "imaging/AtomicFile.h"
#include "imaging/FileBytes.h"

namespace vellumo {

namespace {

using Json = nlohmann::ordered_json;

struct Problem {
    std::string text;
};

std::string ImageName(std::size_t index) {
    return "image " + std::to_string(index + 1);
}

double Coordinate(const Json& rect, const char* key, const std::string& image, bool isSide) {
    const auto found = rect.find(key);
    if (found == rect.end()) {
        throw Problem{"the rectangle of " + image + " has no \"" + key + "\""};
    }
    if (!found->is_number()) {
        throw Problem{"the rectangle of " + image + " has a \"" + key + "\" that is not a number"};
    }
    const double value = found->get<double>();
    if (!std::isfinite(value)) {
        throw Problem{"the rectangle of " + image + " has a \"" + key +
                      "\" that is not a finite number"};
    }
    if (isSide && value < 0.0) {
        throw Problem{"the rectangle of " + image + " has a negative " + key};
    }
    if (std::abs(value) > kLargestPlannedPixels) {
        std::ostringstream text;
        text << "the rectangle of " << image << " has a " << key << " beyond "
             << static_cast<long>(kLargestPlannedPixels) << " pixels";
        throw Problem{text.str()};
    }
    return value;
}

Rect ReadRect(const Json& rect, const std::string& image) {
    if (!rect.is_object()) {
        throw Problem{"the rectangle of " + image + " is not an object"};
    }
    return {Coordinate(rect, "x", image, false), Coordinate(rect, "y", image, false),
            Coordinate(rect, "width", image, true), Coordinate(rect, "height", image, true)};
}

PlannedImage ReadImage(const Json& entry, std::size_t index, const std::string& folder) {
    const std::string name = ImageName(index);
    if (!entry.is_object()) {
        throw Problem{name + " is not an object"};
    }
    const auto path = entry.find("path");
    if (path == entry.end() || !path->is_string() || path->get<std::string>().empty()) {
        throw Problem{name + " has no \"path\""};
    }
    PlannedImage image{path->get<std::string>(), std::nullopt};
    if (!folder.empty() && std::filesystem::path(image.path).is_relative()) {
        image.path = (std::filesystem::path(folder) / image.path).lexically_normal().string();
    }
    if (const auto rect = entry.find("rect"); rect != entry.end()) {
        image.rect = ReadRect(*rect, name);
    }
    return image;
}

}  // namespace

CropPlan MakeCropPlan(const CropSettings& settings, const std::vector<std::string>& paths,
                      const CropAdjustments& adjustments) {
    CropPlan plan{settings, {}};
    plan.images.reserve(paths.size());
    for (const std::string& path : paths) {
        const auto found = adjustments.find(path);
        plan.images.push_back(
            {path, found == adjustments.end() ? std::nullopt : std::optional<Rect>(found->second)});
    }
    return plan;
}

std::vector<std::string> PlannedPaths(const CropPlan& plan) {
    std::vector<std::string> paths;
    paths.reserve(plan.images.size());
    for (const PlannedImage& image : plan.images) {
        paths.push_back(image.path);
    }
    return paths;
}

CropAdjustments PlannedAdjustments(const CropPlan& plan) {
    CropAdjustments adjustments;
    for (const PlannedImage& image : plan.images) {
        if (image.rect) {
            adjustments[image.path] = *image.rect;
        }
    }
    return adjustments;
}

std::string CropPlanText(const CropPlan& plan) {
    Json images = Json::array();
    for (const PlannedImage& image : plan.images) {
        Json entry = {{"path", image.path}};
        if (image.rect) {
            entry["rect"] = {{"x", image.rect->x},
                             {"y", image.rect->y},
                             {"width", image.rect->width},
                             {"height", image.rect->height}};
        }
        images.push_back(std::move(entry));
    }
    const Json text = {{"version", kCropPlanVersion},
                       {"settings", Json::parse(ProfileText(plan.settings))},
                       {"images", std::move(images)}};
    return text.dump(2) + "\n";
}

Loaded<CropPlan> CropPlanFromText(const std::string& text, const CropSettings& current,
                                  const std::string& folder) {
    const Json json = Json::parse(text, nullptr, /*allow_exceptions=*/false);
    if (json.is_discarded()) {
        return Loaded<CropPlan>::Failure("the file is not valid JSON");
    }
    if (!json.is_object()) {
        return Loaded<CropPlan>::Failure("the file does not hold a crop plan");
    }
    const auto version = json.find("version");
    if (version == json.end()) {
        return Loaded<CropPlan>::Failure("the file has no \"version\"");
    }
    if (!version->is_number_integer() || version->get<long long>() != kCropPlanVersion) {
        return Loaded<CropPlan>::Failure("version " + version->dump() +
                                         " is not one this Vellumo reads (it reads version " +
                                         std::to_string(kCropPlanVersion) + ")");
    }
    CropPlan plan{current, {}};
    if (const auto settings = json.find("settings"); settings != json.end()) {
        const Loaded<CropSettings> read = SettingsFromProfileText(settings->dump(), current);
        if (!read) {
            return Loaded<CropPlan>::Failure("its settings: " + read.reason());
        }
        plan.settings = *read;
    }
    const auto images = json.find("images");
    if (images == json.end() || !images->is_array()) {
        return Loaded<CropPlan>::Failure("the file has no list of \"images\"");
    }
    try {
        for (std::size_t i = 0; i < images->size(); ++i) {
            plan.images.push_back(ReadImage((*images)[i], i, folder));
        }
    } catch (const Problem& problem) {
        return Loaded<CropPlan>::Failure(problem.text);
    }
    return Loaded<CropPlan>::Success(std::move(plan));
}

SaveResult WriteCropPlan(const std::string& path, const CropPlan& plan) {
    const std::string text = CropPlanText(plan);
    return atomicfile::ReplaceWithBytes(path, text.data(), text.size());
}

Loaded<CropPlan> ReadCropPlan(const std::string& path, const CropSettings& current) {
    std::string reason;
    const std::optional<std::vector<unsigned char>> bytes = ReadFileBytes(path, reason);
    if (!bytes) {
        return Loaded<CropPlan>::Failure("the file cannot be opened (" + reason + ")");
    }
    const std::string folder = std::filesystem::absolute(path).parent_path().string();
    return CropPlanFromText(std::string(bytes->begin(), bytes->end()), current, folder);
}

}  // namespace vellumo
