#include "cli/CliOptions.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <cmath>
#include <filesystem>
#include <thread>

#include "batch/CropPlan.h"
#include "batch/Profile.h"
#include "cli/InputList.h"
#include "imaging/Formats.h"

namespace vellumo::cli {

namespace {

// "X,Y,W,H" as four numbers.
std::optional<std::array<float, 4>> ParseRectangle(const std::string& text) {
    std::array<float, 4> values{};
    std::size_t start = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const std::size_t comma = text.find(',', start);
        if ((i < 3) == (comma == std::string::npos)) {
            return std::nullopt;
        }
        const std::string part =
            text.substr(start, comma == std::string::npos ? comma : comma - start);
        try {
            std::size_t used = 0;
            values[i] = std::stof(part, &used);
            if (used != part.size()) {
                return std::nullopt;
            }
        } catch (const std::exception&) {
            return std::nullopt;
        }
        start = comma + 1;
    }
    return values;
}

// A positive finite decimal, the whole text.
std::optional<double> PositiveNumber(const std::string& text) {
    try {
        std::size_t used = 0;
        const double value = std::stod(text, &used);
        if (used == text.size() && std::isfinite(value) && value > 0.0) {
            return value;
        }
    } catch (const std::exception&) {
    }
    return std::nullopt;
}

// "W:H" with two positive decimals.
std::optional<AspectRatio> ParseRatio(const std::string& text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string::npos) {
        return std::nullopt;
    }
    const auto width = PositiveNumber(text.substr(0, colon));
    const auto height = PositiveNumber(text.substr(colon + 1));
    if (!width || !height) {
        return std::nullopt;
    }
    return AspectRatio{*width, *height};
}

// A side of --resize: empty, or a whole number from 1 to the largest side.
std::optional<int> ParseSide(const std::string& text) {
    if (text.empty()) {
        return 0;
    }
    if (!std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c); }) ||
        text.size() > 5) {
        return std::nullopt;
    }
    const int side = std::stoi(text);
    if (side < 1 || side > kLargestResizeSide) {
        return std::nullopt;
    }
    return side;
}

// The anchors' names as a sentence: "centre, top, ... attention or entropy".
std::string AnchorNameList() {
    std::string list;
    for (std::size_t i = 0; i < kCropAnchorNames.size(); ++i) {
        list += i == 0 ? "" : i + 1 == kCropAnchorNames.size() ? " or " : ", ";
        list += kCropAnchorNames[i];
    }
    return list;
}

ParseOutcome UsageError(const std::string& message) {
    ParseOutcome outcome;
    outcome.exitCode = 2;
    outcome.message = "vellumo-cli: " + message;
    return outcome;
}

}  // namespace

ParseOutcome ParseCommandLine(int argc, const char* const* argv, bool standardInputIsTerminal,
                              const EnvironmentLookup& environment) {
    CLI::App app{"Crops image files in one go: the same engine as the Vellumo window.",
                 "vellumo-cli"};
    CliOptions options;
    std::string autoRatio, pixels, percents, format = "JPG", overwrite, profile;
    std::string nameTemplate{kDefaultNameTemplate}, outputFolder;
    float quality = 80.0f;
    bool keepMetadata = false;

    auto* profileOption = app.add_option(
        "--profile", profile,
        "Settings from a profile saved by the window; options given here override it");
    std::string planFile;
    auto* planOption = app.add_option(
        "--plan", planFile,
        "A crop plan saved by the window: its images, their adjusted rectangles and its "
        "settings; options given here override the settings");
    planOption->excludes(profileOption);

    auto* autoOption = app.add_option(
        "--auto", autoRatio,
        "Largest crop of a ratio W:H, any positive numbers (1:1, 4:3, 3:2, 16:9, 4:5, 1.91:1 ...)");
    std::string orientation, anchor, resize, resizeMode;
    app.add_option("--orientation", orientation,
                   "match (default): the ratio turned to each image's orientation; as-given: "
                   "used as written on every image")
        ->check(CLI::IsMember({"match", "as-given"}));
    app.add_option("--anchor", anchor,
                   "Where the --auto rectangle sits: centre (default), top, bottom, left, right, "
                   "top-left, top-right, bottom-left, bottom-right, attention, entropy");
    app.add_option("--resize", resize,
                   "Output size after cropping: WxH (fit within), Wx (width), xH (height)");
    app.add_option("--resize-mode", resizeMode,
                   "fit (default): within WxH, keeping the ratio; exact: exactly WxH, the "
                   "crop taking the ratio W:H")
        ->check(CLI::IsMember({"fit", "exact"}));
    bool enlarge = false;
    auto* enlargeOption =
        app.add_flag("--enlarge", enlarge, "Let --resize make a smaller crop larger");
    auto* pixelsOption = app.add_option(
        "--pixels", pixels, "Rectangle in pixels, X,Y,W,H, origin at the lower-left corner");
    auto* percentsOption =
        app.add_option("--percents", percents, "Rectangle in percents of each image, X,Y,W,H");
    autoOption->excludes(pixelsOption)->excludes(percentsOption);
    pixelsOption->excludes(percentsOption);
    auto* formatOption = app.add_option("--format", format,
                                        "Output format: " + OutputFormatTitles(" ") + " (any case)")
                             ->capture_default_str();
    auto* qualityOption =
        app.add_option("--quality", quality, "Quality for JPEG and JPEG 2000, 0 to 100")
            ->check(CLI::Validator(
                [](const std::string& text) -> std::string {
                    try {
                        const float value = std::stof(text);
                        if (value >= 0.0f && value <= 100.0f)
                            return {};
                    } catch (const std::exception&) {
                    }
                    return "must be a number from 0 to 100, got " + text;
                },
                "0-100"))
            ->capture_default_str();
    bool lossless = false;
    auto* losslessOption = app.add_flag(
        "--lossless", lossless,
        "Crop JPEG files to JPEG without re-encoding: the rectangle moves out to the file's "
        "block grid, and the quality is not used for them");
    auto* nameOption =
        app.add_option("--name", nameTemplate, "File name template with [FileName] and [FileIndex]")
            ->capture_default_str();
    auto* outputOption = app.add_option("--output", outputFolder, "Output folder");
    auto* keepOption =
        app.add_flag("--keep-metadata", keepMetadata,
                     "Carry EXIF, IPTC, XMP and the creation date over to the outputs");
    app.add_option("--overwrite", overwrite,
                   "Existing outputs: ask, all or none (default: ask on a terminal, else none)")
        ->check(CLI::IsMember({"ask", "all", "none"}));
    std::string onClash;
    app.add_option("--on-clash", onClash,
                   "Images written to one path: fail (the later ones are not written, the "
                   "default) or number (the later ones get \" (2)\", \" (3)\" ...)")
        ->check(CLI::IsMember({"fail", "number"}));
    bool inPlace = false;
    auto* inPlaceOption = app.add_flag(
        "--in-place", inPlace,
        "Replace each original file by its own crop, in its own format (no --output, --name "
        "or --format)");
    inPlaceOption->excludes(outputOption)->excludes(nameOption)->excludes(formatOption);
    app.add_flag("--dry-run", options.dryRun, "Decide and report, write nothing");
    app.add_flag("--json", options.json, "One JSON object per image on standard output");
    app.add_flag("--quiet", options.quiet, "Print only failures");
    double timeoutSeconds = 120;
    app.add_option("--max-pixels", options.limits.maxPixels,
                   "Refuse images that declare more pixels than this")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    options.jobs = static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
    app.add_option("--jobs", options.jobs,
                   "Images worked on at once, each in a worker process of its own (default: the "
                   "number of cores; 1: one after another)")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    app.add_option("--timeout", timeoutSeconds, "Give up on an image after this many seconds")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    auto* filesOption = app.add_option("FILE", options.files, "Image files to crop");
    filesOption->excludes(planOption);
    std::string inputs;
    bool nulSeparated = false;
    auto* inputsOption =
        app.add_option("--inputs", inputs,
                       "Read the image files from this file, one per line (- for standard input)");
    inputsOption->excludes(planOption);
    app.add_flag("--null", nulSeparated,
                 "The --inputs file separates paths with NUL bytes (find -print0)")
        ->needs(inputsOption);
    std::string shard;
    long shardCount = 0;
    auto* shardOption = app.add_option(
        "--shard", shard,
        "Do only this run's share of the batch: I/N takes the images whose position in the "
        "sorted list is I modulo N; auto takes I (and N) from JOB_COMPLETION_INDEX or "
        "SLURM_ARRAY_TASK_ID (and SLURM_ARRAY_TASK_COUNT)");
    shardOption->excludes(planOption);
    auto* shardCountOption =
        app.add_option("--shard-count", shardCount, "N for --shard auto (Kubernetes Indexed Jobs)")
            ->check(CLI::PositiveNumber);
    auto* manifestOption = app.add_option(
        "--manifest", options.manifest,
        "Append one JSON line per finished image to this file (durable after each image)");
    app.add_flag("--resume", options.resume,
                 "Skip the images the --manifest records as done whose outputs are unchanged")
        ->needs(manifestOption);
    // The version is the project's (CMake's PROJECT_VERSION), so the
    // program, the window and the package always agree.
    app.set_version_flag("--version", "vellumo-cli " VELLUMO_VERSION, "Print the version and exit");

    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        ParseOutcome outcome;
        outcome.message = app.help();
        return outcome;
    } catch (const CLI::CallForVersion& version) {
        ParseOutcome outcome;
        outcome.message = version.what();
        return outcome;
    } catch (const CLI::ParseError& error) {
        return UsageError(error.what());
    }

    options.limits.timeout =
        std::chrono::milliseconds(static_cast<long long>(timeoutSeconds * 1000.0));
    if (inputsOption->count() > 0) {
        const Loaded<std::vector<std::string>> listed = ReadInputList(inputs, nulSeparated);
        if (!listed) {
            return UsageError("--inputs: " + inputs + ": " + listed.reason());
        }
        options.files.insert(options.files.end(), listed->begin(), listed->end());
        if (inputs == "-") {
            standardInputIsTerminal = false;  // the list took it: nobody to ask
        }
    }
    if (shardOption->count() > 0 || shardCountOption->count() > 0) {
        std::string reason;
        if (shard.empty() || shard == "auto") {
            options.shard = ShardFromEnvironment(
                shardCountOption->count() > 0 ? std::optional<long>(shardCount) : std::nullopt,
                environment, reason);
        } else if (shardCountOption->count() > 0) {
            return UsageError("--shard-count: only with --shard auto");
        } else {
            options.shard = ParseShard(shard, reason);
        }
        if (!options.shard) {
            return UsageError("--shard: " + reason);
        }
        options.files = SortedUnique(std::move(options.files));
    }
    CropSettings& s = options.settings;
    if (planOption->count() > 0) {
        const Loaded<CropPlan> loaded = ReadCropPlan(planFile, s);
        if (!loaded) {
            return UsageError("--plan: " + planFile + ": " + loaded.reason());
        }
        s = loaded->settings;
        options.files = PlannedPaths(*loaded);
        options.adjustments = PlannedAdjustments(*loaded);
    } else if (options.files.empty()) {
        return UsageError("FILE is required (or --inputs, or --plan)");
    }
    if (profileOption->count() > 0) {
        const Loaded<CropSettings> loaded = ReadProfile(profile, s);
        if (!loaded) {
            return UsageError("--profile: " + profile + ": " + loaded.reason());
        }
        s = *loaded;
    }
    if (!autoRatio.empty()) {
        const auto found =
            std::find_if(kAutoCropRatios.begin(), kAutoCropRatios.end(),
                         [&](const AutoCropRatio& entry) { return entry.title == autoRatio; });
        s.mode = CropMode::Auto;
        if (found != kAutoCropRatios.end()) {
            s.autoCropFormat = found - kAutoCropRatios.begin();
        } else if (const auto ratio = ParseRatio(autoRatio)) {
            s.autoCropFormat = kCustomRatioIndex;
            s.customRatio = *ratio;
        } else {
            return UsageError("--auto: expected a ratio W:H of two positive numbers, got " +
                              autoRatio);
        }
    } else if (!pixels.empty()) {
        const auto rect = ParseRectangle(pixels);
        if (!rect) {
            return UsageError("--pixels: expected four numbers X,Y,W,H, got " + pixels);
        }
        s.mode = CropMode::Pixels;
        std::tie(s.pixelsOriginX, s.pixelsOriginY, s.pixelsWidth, s.pixelsHeight) =
            std::tuple((*rect)[0], (*rect)[1], (*rect)[2], (*rect)[3]);
    } else if (!percents.empty()) {
        const auto rect = ParseRectangle(percents);
        if (!rect) {
            return UsageError("--percents: expected four numbers X,Y,W,H, got " + percents);
        }
        s.mode = CropMode::Percents;
        std::tie(s.percentsOriginX, s.percentsOriginY, s.percentsWidth, s.percentsHeight) =
            std::tuple((*rect)[0], (*rect)[1], (*rect)[2], (*rect)[3]);
    }
    // Without a crop option or a profile: the window's start state, custom
    // pixels 0, 0, 0, 0, which keeps every image whole.
    if (!orientation.empty()) {
        s.matchOrientation = orientation == "match";
    }
    if (!anchor.empty()) {
        const auto named = CropAnchorNamed(anchor);
        if (!named) {
            return UsageError("--anchor: unknown anchor " + anchor + " (use " + AnchorNameList() +
                              ")");
        }
        s.anchor = *named;
    }
    if (!resize.empty()) {
        const std::size_t x = resize.find_first_of("xX");
        const auto width = x == std::string::npos ? std::nullopt : ParseSide(resize.substr(0, x));
        const auto height = x == std::string::npos ? std::nullopt : ParseSide(resize.substr(x + 1));
        if (!width || !height || (*width == 0 && *height == 0)) {
            return UsageError("--resize: expected WxH, Wx or xH with sides from 1 to " +
                              std::to_string(kLargestResizeSide) + ", got " + resize);
        }
        s.resize.width = *width;
        s.resize.height = *height;
        s.resize.mode = *height == 0  ? ResizeMode::Width
                        : *width == 0 ? ResizeMode::Height
                                      : ResizeMode::Fit;
    }
    if (resizeMode == "exact") {
        if (s.resize.width == 0 || s.resize.height == 0) {
            return UsageError("--resize-mode exact: needs --resize WxH with both sides");
        }
        s.resize.mode = ResizeMode::Exact;
    }
    if (enlargeOption->count() > 0) {
        s.resize.enlarge = enlarge;
    }

    if (formatOption->count() > 0) {
        s.outputFormat = OutputFormatNamed(format);
        if (s.outputFormat < 0) {
            return UsageError("--format: unknown format " + format + " (use " +
                              OutputFormatTitles(" ") + ")");
        }
    }
    if (qualityOption->count() > 0)
        s.quality = quality;
    if (losslessOption->count() > 0)
        s.losslessJpeg = lossless;
    if (nameOption->count() > 0)
        s.nameTemplate = nameTemplate;
    if (outputOption->count() > 0)
        s.outputFolder = outputFolder;
    if (keepOption->count() > 0)
        s.keepMetadata = keepMetadata;
    s.replaceOriginals = inPlace;
    if (s.outputFolder.empty() && !inPlace) {
        return UsageError("--output is required");
    }
    options.onClash = onClash == "number" ? ClashPolicy::Number : ClashPolicy::Refuse;

    if (overwrite.empty()) {
        options.overwrite = standardInputIsTerminal ? OverwriteMode::Ask : OverwriteMode::None;
    } else {
        options.overwrite = overwrite == "ask"   ? OverwriteMode::Ask
                            : overwrite == "all" ? OverwriteMode::All
                                                 : OverwriteMode::None;
    }

    for (const std::string& file : options.files) {
        std::error_code ignored;
        if (std::filesystem::is_directory(file, ignored)) {
            return UsageError(file + " is a folder: give image files");
        }
        if (InputExtensionOfPath(file) == nullptr) {
            return UsageError(file + ": not an image file name (" + InputExtensionList(" ") + ")");
        }
    }

    ParseOutcome outcome;
    outcome.options = std::move(options);
    return outcome;
}

}  // namespace vellumo::cli
