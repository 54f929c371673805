#include "batch/OutputPlan.h"

#include <sys/stat.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <set>
#include <system_error>
#include <unordered_map>

#include "batch/InputFolders.h"
#include "batch/OutputPath.h"
#include "imaging/Formats.h"

namespace vellumo {

namespace {

namespace fs = std::filesystem;

// What tells two paths apart as the file system sees them: the device and
// inode of an existing file (so hard links, symbolic links and any spelling
// of one file agree), else the absolute path with "." and ".." resolved and
// the symbolic links of its folders followed.
class PathKeys {
  public:
    std::string Of(const std::string& path) {
        struct stat status {};
        if (::stat(path.c_str(), &status) == 0) {
            return "file " + std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
        }
        const fs::path absolute =
            fs::path(path).is_absolute() ? fs::path(path) : fs::current_path() / path;
        const fs::path normal = absolute.lexically_normal();
        return "path " + (Folder(normal.parent_path()) / normal.filename()).string();
    }

  private:
    // Folders repeat from image to image: each is resolved once.
    const fs::path& Folder(const fs::path& folder) {
        const auto found = folders_.find(folder.string());
        if (found != folders_.end()) {
            return found->second;
        }
        std::error_code error;
        fs::path resolved = fs::weakly_canonical(folder, error);
        if (error) {
            resolved = folder;
        }
        return folders_.emplace(folder.string(), std::move(resolved)).first->second;
    }

    std::unordered_map<std::string, fs::path> folders_;
};

}  // namespace

std::optional<OutputFormat> OutputFormatOfPath(const std::string& path) {
    const std::string extension = fs::path(path).extension().string();
    if (extension.size() < 2) {
        return std::nullopt;
    }
    return OutputFormatNamed(std::string_view(extension).substr(1));
}

std::string NumberedPath(const std::string& path, int number) {
    const std::size_t slash = path.rfind('/');
    const std::size_t nameStart = slash == std::string::npos ? 0 : slash + 1;
    std::size_t dot = path.rfind('.');
    // A name that only begins with a dot (".hidden") has no extension.
    if (dot == std::string::npos || dot <= nameStart) {
        dot = path.size();
    }
    return path.substr(0, dot) + " (" + std::to_string(number) + ")" + path.substr(dot);
}

namespace {

// The keys the plan compares paths by, for the images' sources and
// outputs, and the first image that reads each file.
struct PlannedKeys {
    PathKeys keys;
    std::vector<std::string> sources;
    std::vector<std::string> outputs;
    std::map<std::string, long> firstReader;
};

// How the plan names each image's output, and what the names are made of.
struct Naming {
    std::optional<NameTemplate> name;
    std::string problem;  // why the template cannot be read
    const std::vector<ImageNameFacts>* facts = nullptr;
    // Where the tree is kept: what each image's subfolder is measured from.
    std::vector<std::string> roots;
    long firstIndex = 0;  // the index of the list's first image
};

// A new file's path by the name template; false, with the refusal set, when
// the template cannot be read.
bool PlaceNewFile(const CropSettings& settings, const std::vector<std::string>& listImagePaths,
                  long i, const Naming& naming, PlannedOutput& image) {
    if (!naming.name) {
        image.refusal = "the name template cannot be used: " + naming.problem;
        return false;
    }
    NameValues values;
    values.source = listImagePaths[i];
    values.index = naming.firstIndex + i;
    if (naming.facts != nullptr && static_cast<std::size_t>(i) < naming.facts->size()) {
        values.outputSize = (*naming.facts)[i].outputSize;
        values.facts = (*naming.facts)[i].photoFacts;
    }
    const std::string subfolder =
        settings.keepStructure ? FolderBelowRoots(listImagePaths[i], naming.roots) : std::string();
    OutputName named = GenerateOutputName(*naming.name, settings, values, subfolder);
    image.path = std::move(named.path);
    image.warnings = std::move(named.warnings);
    image.format = settings.outputFormat;
    return true;
}

// Each image's path and format, and the refusals of outputs that are the
// file of a listed image (allowed for its own file when the originals are
// replaced, once per file).
void PlacePaths(const CropSettings& settings, const std::vector<std::string>& listImagePaths,
                const Naming& naming, OutputPlan& plan, PlannedKeys& k) {
    const long count = static_cast<long>(listImagePaths.size());
    for (long i = 0; i < count; ++i) {
        k.sources[i] = k.keys.Of(listImagePaths[i]);
        k.firstReader.emplace(k.sources[i], i);
    }
    for (long i = 0; i < count; ++i) {
        PlannedOutput& image = plan.images[i];
        if (settings.replaceOriginals) {
            image.path = listImagePaths[i];
            const std::optional<OutputFormat> own = OutputFormatOfPath(image.path);
            if (!own) {
                image.refusal = "the file's extension names no format it could be written in";
                continue;
            }
            image.format = *own;
        } else if (!PlaceNewFile(settings, listImagePaths, i, naming, image)) {
            continue;
        }
        k.outputs[i] = k.keys.Of(image.path);
        const auto reader = k.firstReader.find(k.outputs[i]);
        if (reader == k.firstReader.end()) {
            continue;
        }
        if (settings.replaceOriginals && k.outputs[i] == k.sources[i]) {
            image.target = OutputTarget::Source;
            if (reader->second != i) {
                image.refusal = kClashReason;  // the file is listed before: replaced there
            }
        } else {
            image.refusal = kOriginalReason;
        }
    }
}

// Images that would share a path, in list order: noted as clashes, the
// later ones refused or numbered.
void SettleClashes(OutputPlan& plan, PlannedKeys& k, ClashPolicy policy) {
    std::map<std::string, std::vector<long>> sharing;
    std::vector<std::string> order;
    for (long i = 0; i < static_cast<long>(plan.images.size()); ++i) {
        if (!plan.images[i].refusal.empty()) {
            continue;
        }
        auto& images = sharing[k.outputs[i]];
        if (images.empty()) {
            order.push_back(k.outputs[i]);
        }
        images.push_back(i);
    }
    std::set<std::string> taken(k.sources.begin(), k.sources.end());
    for (const auto& [key, images] : sharing) {
        taken.insert(key);
    }
    for (const std::string& key : order) {
        const std::vector<long>& images = sharing[key];
        if (images.size() < 2) {
            continue;
        }
        plan.clashes.push_back({plan.images[images.front()].path, images});
        const std::string shared = plan.images[images.front()].path;
        int number = 2;
        for (std::size_t i = 1; i < images.size(); ++i) {
            PlannedOutput& later = plan.images[images[i]];
            if (policy == ClashPolicy::Refuse) {
                later.refusal = kClashReason;
                continue;
            }
            for (;; ++number) {
                const std::string candidate = NumberedPath(shared, number);
                if (taken.insert(k.keys.Of(candidate)).second) {
                    later.path = candidate;
                    ++number;
                    break;
                }
            }
        }
    }
}

}  // namespace

OutputPlan PlanOutputs(const CropSettings& settings, const std::vector<std::string>& listImagePaths,
                       ClashPolicy policy, const std::vector<ImageNameFacts>* facts,
                       const std::vector<std::string>* roots, long firstIndex) {
    Naming naming;
    naming.firstIndex = firstIndex;
    naming.name = NameTemplate::Parse(settings.nameTemplate, naming.problem);
    naming.facts = facts;
    if (settings.keepStructure) {
        naming.roots = roots != nullptr && !roots->empty()
                           ? *roots
                           : std::vector<std::string>{SharedFolder(listImagePaths)};
    }
    OutputPlan plan;
    plan.images.resize(listImagePaths.size());
    PlannedKeys keys;
    keys.sources.resize(listImagePaths.size());
    keys.outputs.resize(listImagePaths.size());
    PlacePaths(settings, listImagePaths, naming, plan, keys);
    SettleClashes(plan, keys, policy);
    return plan;
}

}  // namespace vellumo
