#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <filesystem>
#include <system_error>

#include "batch/CropRectangle.h"
#include "batch/ImageProcessor.h"
#include "imaging/ImageAccess.h"
#include "imaging/ImageTools.h"

namespace vellumo {

namespace {

// "cannot <verb>: reason", unless the reason already says what failed.
std::string Failure(const std::string& verb, const std::string& reason) {
    if (reason.rfind("cannot ", 0) == 0) {
        return reason;
    }
    return "cannot " + verb + ": " + reason;
}

// The pixels are read while the save writes, so a save can fail on a
// damaged source: tell that from a failed write.
std::string SaveFailure(const std::string& source, const std::string& reason) {
    const LoadResult check = ImageTools::LoadImage(source);
    if (!check) {
        return Failure("decode", check.reason());
    }
    return Failure("write", reason);
}

Size WholePixels(const Image& image) {
    return {std::trunc(image.Width()), std::trunc(image.Height())};
}

// Before an overwrite, what is in the way must go. A folder is removed now
// (only an empty one can be); a file stays until the save replaces it in one
// rename, so that a failed save leaves it as it was; it is only checked that
// it could be removed. Returns the error's description, or nothing.
std::string ClearForOverwrite(const std::string& path) {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::file_status status = fs::symlink_status(path, error);
    if (error || !fs::exists(status)) {
        return {};
    }
    if (fs::is_directory(status)) {
        if (!fs::remove(path, error) || error) {
            return "could not remove " + path + ": " +
                   (error ? error.message() : std::string("not removed"));
        }
        return {};
    }
    fs::path folder = fs::path(path).parent_path();
    if (folder.empty()) {
        folder = ".";
    }
    if (::access(folder.c_str(), W_OK | X_OK) != 0) {
        return "could not remove " + path + ": " + std::generic_category().message(errno);
    }
    return {};
}

ImageOutcome Plan(const ImageTask& task) {
    ImageOutcome outcome;
    const std::optional<Size> size = ImageTools::ImagePixelSizeWithPath(task.source);
    if (!size) {
        outcome.reason = "cannot decode: the file is not an image Vellumo can read";
        return outcome;
    }
    const Image sized = ImageAccess::MakeWithoutPixels(size->width, size->height);
    const Rect rect = ResolveCropRectangle(task.settings, sized);
    outcome.rect = rect;
    outcome.outputSize =
        WholePixels(ImageTools::CropImage(sized, rect.x, rect.y, rect.width, rect.height));
    outcome.status =
        task.decision == OverwriteDecision::Skip ? ImageStatus::Skipped : ImageStatus::Planned;
    return outcome;
}

}  // namespace

ImageOutcome InProcessImageProcessor::Process(const ImageTask& task) {
    if (task.dryRun) {
        return Plan(task);
    }
    ImageOutcome outcome;
    const LoadResult loaded = ImageTools::OpenImage(task.source);
    if (!loaded) {
        outcome.reason = Failure("decode", loaded.reason());
        return outcome;
    }
    const std::optional<Size> pixelSize = ImageTools::ImagePixelSizeWithPath(task.source);
    if (!pixelSize) {
        outcome.reason = "cannot decode: the image's size cannot be read";
        return outcome;
    }
    const Image image = ImageTools::BringImageToActualSize(*loaded, *pixelSize);
    const Rect rect = ResolveCropRectangle(task.settings, image);
    const Image cropped = ImageTools::CropImage(image, rect.x, rect.y, rect.width, rect.height);
    outcome.rect = rect;
    outcome.outputSize = WholePixels(cropped);

    bool saved = false;
    if (task.decision == OverwriteDecision::Skip) {
        outcome.status = ImageStatus::Skipped;
    } else {
        if (task.decision == OverwriteDecision::Overwrite) {
            outcome.removeError = ClearForOverwrite(task.output);
        }
        // The slider's 0 to 100, divided in single precision.
        const double quality = static_cast<double>(task.settings.quality / 100.0f);
        const SaveResult result =
            ImageTools::TrySaveImage(cropped, task.output, task.settings.outputFormat, quality);
        if (!result.saved) {
            outcome.reason = SaveFailure(task.source, result.reason);
            return outcome;
        }
        saved = true;
        outcome.status = ImageStatus::Written;
    }
    if (task.carryMetadata && (saved || outcome.status == ImageStatus::Skipped)) {
        ImageTools::ChangeImageExifWithOriginalImagePath(task.source, task.output);
    }
    return outcome;
}

}  // namespace vellumo
