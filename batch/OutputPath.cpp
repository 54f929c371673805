#include "batch/OutputPath.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "imaging/Fatal.h"
#include "imaging/Formats.h"

namespace vellumo {

namespace {

constexpr std::string_view kFileNameToken = "[FileName]";
constexpr std::string_view kFileIndexToken = "[FileIndex]";

// Literal, case-sensitive replacement of every occurrence, left to right.
std::string ReplaceAll(std::string text, std::string_view token, const std::string& value) {
    for (std::size_t at = text.find(token); at != std::string::npos;
         at = text.find(token, at + value.size())) {
        text.replace(at, token.size(), value);
    }
    return text;
}

std::string Template(const std::string& name) {
    if (name.empty()) {
        return std::string(kFileNameToken);
    }
    if (name.find(kFileNameToken) != std::string::npos ||
        name.find(kFileIndexToken) != std::string::npos) {
        return name;
    }
    return name + " ([FileIndex])";
}

// The last path component without its last extension: "a.b.jpg" gives "a.b".
std::string BaseName(const std::string& path) {
    return std::filesystem::path(path).stem().string();
}

}  // namespace

std::string GenerateOutputPathWithImageIndex(const CropSettings& settings,
                                             const std::vector<std::string>& listImagePaths,
                                             long index) {
    if (index < 0 || static_cast<std::size_t>(index) >= listImagePaths.size()) {
        Fatal("output path asked for index " + std::to_string(index) + " of a list of " +
              std::to_string(listImagePaths.size()));
    }
    std::string name = Template(settings.nameTemplate);
    name = ReplaceAll(std::move(name), kFileNameToken, BaseName(listImagePaths[index]));
    name = ReplaceAll(std::move(name), kFileIndexToken, std::to_string(index + 1));

    return settings.outputFolder + "/" + name + "." + OutputFormatExtension(settings.outputFormat);
}

}  // namespace vellumo
