#include "batch/OutputPath.h"

#include "imaging/Fatal.h"
#include "imaging/Formats.h"

namespace vellumo {

OutputName GenerateOutputName(const NameTemplate& name, const CropSettings& settings,
                              const NameValues& values, const std::string& subfolder) {
    ExpandedName expanded = name.Expand(values);
    const std::string folder =
        subfolder.empty() ? settings.outputFolder : settings.outputFolder + "/" + subfolder;
    return {folder + "/" + expanded.name + "." + OutputFormatExtension(settings.outputFormat),
            std::move(expanded.warnings)};
}

std::string GenerateOutputPathWithImageIndex(const CropSettings& settings,
                                             const std::vector<std::string>& listImagePaths,
                                             long index) {
    if (index < 0 || static_cast<std::size_t>(index) >= listImagePaths.size()) {
        Fatal("output path asked for index " + std::to_string(index) + " of a list of " +
              std::to_string(listImagePaths.size()));
    }
    std::string problem;
    const std::optional<NameTemplate> name = NameTemplate::Parse(settings.nameTemplate, problem);
    if (!name) {
        Fatal("output path asked of a name template that cannot be read: " + problem);
    }
    NameValues values;
    values.source = listImagePaths[index];
    values.index = index;
    return GenerateOutputName(*name, settings, values).path;
}

}  // namespace vellumo
