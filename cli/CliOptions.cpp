#include "cli/CliOptions.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <thread>

#include "batch/CropPlan.h"
#include "batch/NameTemplate.h"
#include "batch/Profile.h"
#include "cli/InputList.h"
#include "cli/OptionValues.h"
#include "cli/TrimPadOptions.h"
#include "imaging/Formats.h"

namespace vellumo::cli {

namespace {

// The options' texts as given, and the options themselves (to tell given
// from left out), group by group. Each group is declared by one function
// and applied to the settings by another, in the order the help lists them.

struct SourceGroup {  // where the settings and the images come from
    std::string profile, plan, inputs;
    bool nulSeparated = false, recursive = false;
    CLI::Option* profileOption = nullptr;
    CLI::Option* planOption = nullptr;
    CLI::Option* inputsOption = nullptr;
};

struct RuleGroup {  // how every image is cropped, and the size it is written at
    std::string autoRatio, pixels, percents, orientation, anchor, resize, resizeMode;
    bool enlarge = false;
    CLI::Option* enlargeOption = nullptr;
    // A head-and-shoulders portrait of the largest face, and its two shares.
    bool portrait = false;
    std::string faceHeight, eyeLine;
    CLI::Option* portraitOption = nullptr;
};

struct OutputGroup {  // what is written, and where
    std::string format = "JPG", nameTemplate{kDefaultNameTemplate}, folder, overwrite, onClash,
                maxBytes;
    float quality = 80.0f;
    bool lossless = false, keepMetadata = false, inPlace = false, maxBytesResize = false,
         keepStructure = false;
    CLI::Option *formatOption = nullptr, *qualityOption = nullptr, *losslessOption = nullptr,
                *nameOption = nullptr, *outputOption = nullptr, *keepOption = nullptr,
                *maxBytesOption = nullptr, *maxBytesResizeOption = nullptr,
                *structureOption = nullptr;
};

struct BatchGroup {  // this run's share of a large batch, and its record
    std::string shard;
    long shardCount = 0;
    CLI::Option* shardOption = nullptr;
    CLI::Option* shardCountOption = nullptr;
};

struct Groups {
    Command command = Command::Crop;
    SourceGroup source;
    RuleGroup rule;
    TrimPadGroup trimPad;
    OutputGroup output;
    BatchGroup batch;
    double timeoutSeconds = 120;
};

// A usage error: one line naming the option.
using Problem = std::optional<std::string>;

void AddSettingsSources(CLI::App& app, SourceGroup& g) {
    CLI::App* group = app.add_option_group("Settings from a file");
    g.profileOption = group->add_option(
        "--profile", g.profile,
        "Settings from a profile saved by the window; options given here override it");
    g.planOption = group->add_option(
        "--plan", g.plan,
        "A crop plan saved by the window: its images, their adjusted rectangles and its "
        "settings; options given here override the settings");
    g.planOption->excludes(g.profileOption);
}

void AddCropRule(CLI::App& app, RuleGroup& g) {
    CLI::App* group = app.add_option_group("Crop rule");
    auto* autoOption = group->add_option(
        "--auto", g.autoRatio,
        "Largest crop of a ratio W:H, any positive numbers (1:1, 4:3, 3:2, 16:9, 4:5, 1.91:1 ...)");
    group
        ->add_option("--orientation", g.orientation,
                     "match (default): the ratio turned to each image's orientation; as-given: "
                     "used as written on every image")
        ->check(CLI::IsMember({"match", "as-given"}));
    group->add_option("--anchor", g.anchor,
                      "Where the --auto rectangle sits: centre (default), top, bottom, left, "
                      "right, top-left, top-right, bottom-left, bottom-right, attention, entropy, "
                      "faces (the most faces whole; none found: attention)");
    group->add_option("--resize", g.resize,
                      "Output size after cropping: WxH (fit within), Wx (width), xH (height)");
    group
        ->add_option("--resize-mode", g.resizeMode,
                     "fit (default): within WxH, keeping the ratio; exact: exactly WxH, the "
                     "crop taking the ratio W:H")
        ->check(CLI::IsMember({"fit", "exact"}));
    g.enlargeOption =
        group->add_flag("--enlarge", g.enlarge, "Let --resize make a smaller crop larger");
    auto* pixelsOption = group->add_option(
        "--pixels", g.pixels, "Rectangle in pixels, X,Y,W,H, origin at the lower-left corner");
    auto* percentsOption =
        group->add_option("--percents", g.percents, "Rectangle in percents of each image, X,Y,W,H");
    autoOption->excludes(pixelsOption)->excludes(percentsOption);
    pixelsOption->excludes(percentsOption);
    g.portraitOption = group->add_flag(
        "--portrait-of-face", g.portrait,
        "Head-and-shoulders portrait of the largest face, of the --auto ratio as given (1:1 "
        "without one); an image without a face fails and nothing is written");
    g.portraitOption->excludes(pixelsOption)->excludes(percentsOption);
    group
        ->add_option("--face-height", g.faceHeight,
                     "With --portrait-of-face: the face's height in percent of the output's "
                     "height, 1 to 99 (default 45)")
        ->needs(g.portraitOption);
    group
        ->add_option("--eye-line", g.eyeLine,
                     "With --portrait-of-face: the eyes' line in percent of the output's height "
                     "from its top, 1 to 99 (default 40)")
        ->needs(g.portraitOption);
}

void AddOutput(CLI::App& app, OutputGroup& g) {
    CLI::App* group = app.add_option_group("Output");
    g.formatOption = group
                         ->add_option("--format", g.format,
                                      "Output format: " + OutputFormatTitles(" ") + " (any case)")
                         ->capture_default_str();
    g.qualityOption =
        group->add_option("--quality", g.quality, "Quality for JPEG and JPEG 2000, 0 to 100")
            ->check(CLI::Validator(QualityProblem, "0-100"))
            ->capture_default_str();
    g.losslessOption = group->add_flag(
        "--lossless", g.lossless,
        "Crop JPEG files to JPEG without re-encoding: the rectangle moves out to the file's "
        "block grid, and the quality is not used for them");
    g.maxBytesOption = group->add_option(
        "--max-bytes", g.maxBytes,
        "Largest output file: bytes, or with K (1000) or M (1000000): 500K. JPEG, WebP, AVIF, "
        "HEIC and JPEG XL take the highest quality up to --quality that fits");
    g.maxBytesResizeOption =
        group
            ->add_flag("--max-bytes-resize", g.maxBytesResize,
                       "When even quality 1 does not fit --max-bytes, make the picture smaller "
                       "step by step until it does")
            ->needs(g.maxBytesOption);
    g.nameOption = group
                       ->add_option("--name", g.nameTemplate,
                                    "File name template: [FileName] [FileIndex] [Folder] [Ext] "
                                    "[Date] [Date:yyyy-MM-dd_HHmm] [Camera] [Width] [Height] "
                                    "[Ratio]")
                       ->capture_default_str();
    g.outputOption = group->add_option("--output", g.folder, "Output folder");
    g.keepOption =
        group->add_flag("--keep-metadata", g.keepMetadata,
                        "Carry EXIF, IPTC, XMP and the creation date over to the outputs");
    g.structureOption = group->add_flag(
        "--keep-structure", g.keepStructure,
        "Write each crop into the subfolder of --output that matches its source's folder below "
        "the folder given");
    group
        ->add_option("--overwrite", g.overwrite,
                     "Existing outputs: ask, all or none (default: ask on a terminal, else none)")
        ->check(CLI::IsMember({"ask", "all", "none"}));
    group
        ->add_option("--on-clash", g.onClash,
                     "Images written to one path: fail (the later ones are not written, the "
                     "default) or number (the later ones get \" (2)\", \" (3)\" ...)")
        ->check(CLI::IsMember({"fail", "number"}));
    group
        ->add_flag("--in-place", g.inPlace,
                   "Replace each original file by its own crop, in its own format (no --output, "
                   "--name or --format)")
        ->excludes(g.outputOption)
        ->excludes(g.nameOption)
        ->excludes(g.formatOption)
        ->excludes(g.structureOption);
}

void AddJob(CLI::App& app, CliOptions& options, double& timeoutSeconds) {
    CLI::App* group = app.add_option_group("Job");
    group->add_flag("--dry-run", options.dryRun, "Decide and report, write nothing");
    group->add_flag("--json", options.json, "One JSON object per image on standard output");
    group->add_flag("--quiet", options.quiet, "Print only failures");
    group
        ->add_option("--max-pixels", options.limits.maxPixels,
                     "Refuse images that declare more pixels than this")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    options.jobs = static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
    group
        ->add_option("--jobs", options.jobs,
                     "Images worked on at once, each in a worker process of its own (default: "
                     "the number of cores; 1: one after another)")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    group->add_option("--timeout", timeoutSeconds, "Give up on an image after this many seconds")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    group->add_flag("--require-sandbox", options.limits.requireSandbox,
                    "Decode nothing unless every layer of the workers' sandbox is active (see "
                    "--sandbox-status)");
}

void AddInputs(CLI::App& app, SourceGroup& g, CliOptions& options, Command command) {
    app.add_option("FILE", options.files,
                   command == Command::Watch ? "The folder to watch"
                                             : "Image files, and folders of them, to crop")
        ->excludes(g.planOption);
    CLI::App* group = app.add_option_group("Inputs");
    g.inputsOption = group->add_option(
        "--inputs", g.inputs,
        "Read the image files from this file, one per line (- for standard input)");
    g.inputsOption->excludes(g.planOption);
    group
        ->add_flag("--null", g.nulSeparated,
                   "The --inputs file separates paths with NUL bytes (find -print0)")
        ->needs(g.inputsOption);
    group->add_flag("--recursive", g.recursive,
                    "Also crop the images in the folders' subfolders (watch: those made later "
                    "too)");
}

void AddBatch(CLI::App& app, BatchGroup& g, CliOptions& options, CLI::Option* planOption) {
    CLI::App* group = app.add_option_group("Large batches");
    g.shardOption = group->add_option(
        "--shard", g.shard,
        "Do only this run's share of the batch: I/N takes the images whose position in the "
        "sorted list is I modulo N; auto takes I (and N) from JOB_COMPLETION_INDEX or "
        "SLURM_ARRAY_TASK_ID (and SLURM_ARRAY_TASK_COUNT)");
    g.shardOption->excludes(planOption);
    g.shardCountOption = group
                             ->add_option("--shard-count", g.shardCount,
                                          "N for --shard auto (Kubernetes Indexed Jobs)")
                             ->check(CLI::PositiveNumber);
    auto* manifestOption = group->add_option(
        "--manifest", options.manifest,
        "Append one JSON line per finished image to this file (durable after each image)");
    group
        ->add_flag("--resume", options.resume,
                   "Skip the images the --manifest records as done whose outputs are unchanged")
        ->needs(manifestOption);
}

// The paths of --inputs join the arguments'. A list read from standard
// input leaves nobody there to answer questions.
Problem ReadInputs(const SourceGroup& g, CliOptions& options, bool& standardInputIsTerminal) {
    if (g.inputsOption->count() == 0) {
        return std::nullopt;
    }
    const Loaded<std::vector<std::string>> listed = ReadInputList(g.inputs, g.nulSeparated);
    if (!listed) {
        return "--inputs: " + g.inputs + ": " + listed.reason();
    }
    options.files.insert(options.files.end(), listed->begin(), listed->end());
    if (g.inputs == "-") {
        standardInputIsTerminal = false;
    }
    return std::nullopt;
}

// Folders given become the images in them (and below, with --recursive);
// what was left out is told before the job (CliOptions::walk).
Problem WalkFolders(const SourceGroup& g, CliOptions& options) {
    WalkedInputs walked = WalkInputs(options.files, g.recursive);
    if (walked.images.empty() && !walked.roots.empty() && walked.unread.empty()) {
        return walked.roots.front() + ": no image files in the folder" +
               (g.recursive ? "" : " (--recursive takes its subfolders too)");
    }
    options.files = std::move(walked.images);
    options.roots = walked.roots;
    options.walk = std::move(walked);
    return std::nullopt;
}

// A watch takes one folder and the images arriving in it: nothing that
// lists images, replaces them or takes a share of a batch.
Problem WatchedFolder(const Groups& g, CliOptions& options) {
    for (const auto& [option, name] :
         {std::pair{g.source.planOption, "--plan"}, std::pair{g.source.inputsOption, "--inputs"},
          std::pair{g.batch.shardOption, "--shard"},
          std::pair{g.batch.shardCountOption, "--shard-count"}}) {
        if (option->count() > 0) {
            return std::string(name) + ": not with watch";
        }
    }
    if (g.output.inPlace) {
        return "--in-place: not with watch";
    }
    if (options.dryRun) {
        return "--dry-run: not with watch";
    }
    if (options.files.size() != 1) {
        return "watch: give one folder to watch";
    }
    options.roots = std::move(options.files);
    options.files.clear();
    return std::nullopt;
}

// Crops written among the images they come from would be taken for images
// by the next walk of that folder, and mixed with them: only the kept tree
// may write there, beside each source.
Problem OutputAmongInputs(const CliOptions& options) {
    const CropSettings& s = options.settings;
    if (s.replaceOriginals || s.keepStructure) {
        return std::nullopt;
    }
    for (const std::string& root : options.roots) {
        std::error_code ignored;
        if (std::filesystem::equivalent(root, s.outputFolder, ignored)) {
            return "--output: " + s.outputFolder +
                   " is a folder of the images: give another folder, or --keep-structure";
        }
    }
    return std::nullopt;
}

// This run's share; the list then sorted, each path once, so that every
// shard sees the same list.
Problem SelectShard(const BatchGroup& g, CliOptions& options,
                    const EnvironmentLookup& environment) {
    if (g.shardOption->count() == 0 && g.shardCountOption->count() == 0) {
        return std::nullopt;
    }
    std::string reason;
    if (g.shard.empty() || g.shard == "auto") {
        options.shard = ShardFromEnvironment(
            g.shardCountOption->count() > 0 ? std::optional<long>(g.shardCount) : std::nullopt,
            environment, reason);
    } else if (g.shardCountOption->count() > 0) {
        return "--shard-count: only with --shard auto";
    } else {
        options.shard = ParseShard(g.shard, reason);
    }
    if (!options.shard) {
        return "--shard: " + reason;
    }
    options.files = SortedUnique(std::move(options.files));
    return std::nullopt;
}

// A plan gives the images, their rectangles and settings; a profile the
// settings. The options given then override them.
Problem LoadSettingsFiles(const SourceGroup& g, CliOptions& options) {
    CropSettings& s = options.settings;
    if (g.planOption->count() > 0) {
        const Loaded<CropPlan> loaded = ReadCropPlan(g.plan, s);
        if (!loaded) {
            return "--plan: " + g.plan + ": " + loaded.reason();
        }
        s = loaded->settings;
        options.files = PlannedPaths(*loaded);
        options.adjustments = PlannedAdjustments(*loaded);
    } else if (options.files.empty() && options.roots.empty()) {  // a watch has its folder
        return "FILE is required (or --inputs, or --plan)";
    }
    if (g.profileOption->count() > 0) {
        const Loaded<CropSettings> loaded = ReadProfile(g.profile, s);
        if (!loaded) {
            return "--profile: " + g.profile + ": " + loaded.reason();
        }
        s = *loaded;
    }
    return std::nullopt;
}

// --auto, --pixels or --percents. Without one (nor a profile) the window's
// start state stays: custom pixels 0, 0, 0, 0, which keeps every image whole.
Problem ApplyCropMode(const RuleGroup& g, CropSettings& s) {
    if (!g.autoRatio.empty()) {
        s.mode = CropMode::Auto;
        if (const std::optional<RatioChoice> listed = ListedRatioTitled(g.autoRatio)) {
            s.autoCropRatio = *listed;
        } else if (const auto ratio = ParseRatio(g.autoRatio)) {
            s.autoCropRatio = RatioChoice::Custom;
            s.customRatio = *ratio;
        } else {
            return "--auto: expected a ratio W:H of two positive numbers, got " + g.autoRatio;
        }
    } else if (!g.pixels.empty()) {
        const auto rect = ParseRectangle(g.pixels);
        if (!rect) {
            return "--pixels: expected four numbers X,Y,W,H, got " + g.pixels;
        }
        s.mode = CropMode::Pixels;
        std::tie(s.pixelsOriginX, s.pixelsOriginY, s.pixelsWidth, s.pixelsHeight) =
            std::tuple((*rect)[0], (*rect)[1], (*rect)[2], (*rect)[3]);
    } else if (!g.percents.empty()) {
        const auto rect = ParseRectangle(g.percents);
        if (!rect) {
            return "--percents: expected four numbers X,Y,W,H, got " + g.percents;
        }
        s.mode = CropMode::Percents;
        std::tie(s.percentsOriginX, s.percentsOriginY, s.percentsWidth, s.percentsHeight) =
            std::tuple((*rect)[0], (*rect)[1], (*rect)[2], (*rect)[3]);
    }
    return std::nullopt;
}

Problem ApplyPlacement(const RuleGroup& g, CropSettings& s) {
    if (!g.orientation.empty()) {
        s.matchOrientation = g.orientation == "match";
    }
    if (!g.anchor.empty()) {
        const auto named = CropAnchorNamed(g.anchor);
        if (!named) {
            return "--anchor: unknown anchor " + g.anchor + " (use " + AnchorNameList() + ")";
        }
        s.anchor = *named;
    }
    return std::nullopt;
}

// --portrait-of-face, --face-height, --eye-line: the portrait is an
// auto-crop of the chosen ratio.
Problem ApplyPortrait(const RuleGroup& g, CropSettings& s) {
    if (g.portraitOption->count() == 0) {
        return std::nullopt;
    }
    HeadAndShoulders shares = s.portraitOfFace.value_or(HeadAndShoulders{});
    for (const auto& [name, text, share] :
         {std::tuple{"--face-height", &g.faceHeight, &shares.faceHeight},
          std::tuple{"--eye-line", &g.eyeLine, &shares.eyeLine}}) {
        if (text->empty()) {
            continue;
        }
        const std::optional<float> value = ParseShare(*text);
        if (!value) {
            return std::string(name) + ": expected a share from 1 to 99 percent, got " + *text;
        }
        *share = *value;
    }
    s.mode = CropMode::Auto;
    s.portraitOfFace = shares;
    return std::nullopt;
}

Problem ApplyResize(const RuleGroup& g, CropSettings& s) {
    if (!g.resize.empty()) {
        const std::size_t x = g.resize.find_first_of("xX");
        const auto width = x == std::string::npos ? std::nullopt : ParseSide(g.resize.substr(0, x));
        const auto height =
            x == std::string::npos ? std::nullopt : ParseSide(g.resize.substr(x + 1));
        if (!width || !height || (*width == 0 && *height == 0)) {
            return "--resize: expected WxH, Wx or xH with sides from 1 to " +
                   std::to_string(kLargestResizeSide) + ", got " + g.resize;
        }
        s.resize.width = *width;
        s.resize.height = *height;
        s.resize.mode = *height == 0  ? ResizeMode::Width
                        : *width == 0 ? ResizeMode::Height
                                      : ResizeMode::Fit;
    }
    if (g.resizeMode == "exact") {
        if (s.resize.width == 0 || s.resize.height == 0) {
            return "--resize-mode exact: needs --resize WxH with both sides";
        }
        s.resize.mode = ResizeMode::Exact;
    }
    if (g.enlargeOption->count() > 0) {
        s.resize.enlarge = g.enlarge;
    }
    return std::nullopt;
}

Problem ApplyOutput(const OutputGroup& g, CropSettings& s) {
    if (g.formatOption->count() > 0) {
        const std::optional<OutputFormat> named = OutputFormatNamed(g.format);
        if (!named) {
            return "--format: unknown format " + g.format + " (use " + OutputFormatTitles(" ") +
                   ")";
        }
        s.outputFormat = *named;
    }
    if (g.qualityOption->count() > 0)
        s.quality = g.quality;
    if (g.losslessOption->count() > 0)
        s.losslessJpeg = g.lossless;
    if (g.nameOption->count() > 0)
        s.nameTemplate = g.nameTemplate;
    if (g.outputOption->count() > 0)
        s.outputFolder = g.folder;
    if (g.keepOption->count() > 0)
        s.keepMetadata = g.keepMetadata;
    if (g.structureOption->count() > 0)
        s.keepStructure = g.keepStructure;
    if (g.maxBytesOption->count() > 0) {
        const std::optional<std::uint64_t> bytes = ByteCountOf(g.maxBytes);
        if (!bytes) {
            return "--max-bytes: " + g.maxBytes +
                   " is no size (a whole number of bytes above 0, or with K or M: 500K)";
        }
        s.byteLimit.maxBytes = *bytes;
    }
    if (g.maxBytesResizeOption->count() > 0)
        s.byteLimit.scaleDown = g.maxBytesResize;
    s.replaceOriginals = g.inPlace;
    if (s.outputFolder.empty() && !g.inPlace) {
        return "--output is required";
    }
    if (const std::optional<std::string> problem = NameTemplateProblem(s.nameTemplate);
        problem && !g.inPlace) {
        return "--name: " + *problem;
    }
    return std::nullopt;
}

// --overwrite, by default: ask on a terminal, none otherwise (no file is
// replaced without consent); --on-clash.
void ApplyAnswers(const OutputGroup& g, bool standardInputIsTerminal, CliOptions& options) {
    options.onClash = g.onClash == "number" ? ClashPolicy::Number : ClashPolicy::Refuse;
    if (g.overwrite.empty()) {
        options.overwrite = standardInputIsTerminal ? OverwriteMode::Ask : OverwriteMode::None;
    } else {
        options.overwrite = g.overwrite == "ask"   ? OverwriteMode::Ask
                            : g.overwrite == "all" ? OverwriteMode::All
                                                   : OverwriteMode::None;
    }
}

Problem CheckFiles(const std::vector<std::string>& files) {
    for (const std::string& file : files) {
        if (InputExtensionOfPath(file) == nullptr) {
            return file + ": not an image file name (" + InputExtensionList(" ") + ")";
        }
    }
    return std::nullopt;
}

// Everything after the words were parsed, in the order the problems are
// reported: the first one found is the one line the person sees.
Problem ApplyGroups(const Groups& g, bool standardInputIsTerminal,
                    const EnvironmentLookup& environment, CliOptions& options) {
    options.limits.timeout =
        std::chrono::milliseconds(static_cast<long long>(g.timeoutSeconds * 1000.0));
    options.recursive = g.source.recursive;
    Problem problem;
    if (g.command == Command::Watch) {
        problem = WatchedFolder(g, options);
    } else {
        problem = ReadInputs(g.source, options, standardInputIsTerminal);
        if (!problem)
            problem = WalkFolders(g.source, options);
        if (!problem)
            problem = SelectShard(g.batch, options, environment);
    }
    if (!problem)
        problem = LoadSettingsFiles(g.source, options);
    if (!problem)
        problem = ApplyCropMode(g.rule, options.settings);
    if (!problem)
        problem = ApplyPlacement(g.rule, options.settings);
    if (!problem)
        problem = ApplyPortrait(g.rule, options.settings);
    if (!problem)
        problem = ApplyResize(g.rule, options.settings);
    if (!problem)
        problem = ApplyOutput(g.output, options.settings);
    if (!problem) {
        const bool rectangleGiven =
            !g.rule.autoRatio.empty() || !g.rule.pixels.empty() || !g.rule.percents.empty();
        problem = ApplyTrimAndPad(g.trimPad, rectangleGiven, options.settings);
    }
    if (!problem)
        problem = OutputAmongInputs(options);
    if (problem) {
        return problem;
    }
    ApplyAnswers(g.output, standardInputIsTerminal, options);
    return CheckFiles(options.files);
}

ParseOutcome Outcome(int exitCode, std::string message) {
    ParseOutcome outcome;
    outcome.exitCode = exitCode;
    outcome.message = std::move(message);
    return outcome;
}

}  // namespace

ParseOutcome ParseCommandLine(int argc, const char* const* argv, bool standardInputIsTerminal,
                              const EnvironmentLookup& environment, Command command) {
    const bool watch = command == Command::Watch;
    CLI::App app{watch ? "Crops every image in FOLDER and every image that arrives in it later, "
                         "once each, until stopped (SIGINT or SIGTERM)."
                       : "Crops image files in one go: the same engine as the Vellumo window.",
                 watch ? "vellumo-cli watch" : "vellumo-cli"};
    CliOptions options;
    Groups groups;
    groups.command = command;
    AddSettingsSources(app, groups.source);
    AddCropRule(app, groups.rule);
    AddTrimAndPad(app, groups.trimPad);
    AddOutput(app, groups.output);
    AddJob(app, options, groups.timeoutSeconds);
    AddInputs(app, groups.source, options, command);
    AddBatch(app, groups.batch, options, groups.source.planOption);
    // The version is the project's (CMake's PROJECT_VERSION), so the
    // program, the window and the package always agree.
    app.set_version_flag("--version", "vellumo-cli " VELLUMO_VERSION, "Print the version and exit");
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        return Outcome(0, app.help());
    } catch (const CLI::CallForVersion& version) {
        return Outcome(0, version.what());
    } catch (const CLI::ParseError& error) {
        return Outcome(2, std::string("vellumo-cli: ") + error.what());
    }
    if (const Problem problem =
            ApplyGroups(groups, standardInputIsTerminal, environment, options)) {
        return Outcome(2, "vellumo-cli: " + *problem);
    }
    ParseOutcome outcome;
    outcome.options = std::move(options);
    return outcome;
}

}  // namespace vellumo::cli
