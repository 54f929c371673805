#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <filesystem>
#include <system_error>

#include "batch/ClearForOverwrite.h"
#include "batch/CropRectangle.h"
#include "batch/FaceCrop.h"
#include "batch/ImageProcessor.h"
#include "batch/LosslessCrop.h"
#include "imaging/AtomicFile.h"
#include "imaging/FaceDetection.h"
#include "imaging/FileKind.h"
#include "imaging/ImageTools.h"
#include "imaging/LosslessJpeg.h"
#include "imaging/OutputCodec.h"
#include "imaging/Padding.h"
#include "imaging/PhotoFacts.h"
#include "imaging/Trim.h"

namespace vellumo {

namespace {

// The reduced picture a smart anchor judges, when the settings use one: the
// file decoded small, as the window's picture for the same purpose.
std::optional<Image> PlacementPicture(const ImageTask& task) {
    if (!UsesPlacementPicture(task.settings) || task.adjustedRect) {
        return std::nullopt;
    }
    const PreviewResult preview = ImageTools::LoadPreview(task.source, kPlacementPictureSide);
    if (!preview) {
        return std::nullopt;
    }
    return preview->picture;
}

// Trimming measures the decoded pixels themselves, so an image it needs is
// decoded whole into memory (LoadImage), not streamed once (OpenImage).
bool MeasuresPixels(const ImageTask& task) {
    return UsesTrimming(task.settings) && !task.adjustedRect;
}

// What trimming finds on the decoded image, when the rule trims.
std::optional<TrimFinding> FindTrim(const ImageTask& task, const Image& image) {
    if (!MeasuresPixels(task)) {
        return std::nullopt;
    }
    return TrimFinding{ImageTools::FindContent(image, task.settings.trim.tolerance)};
}

// The faces in the reduced picture, when the settings place the crop by
// them.
std::optional<FaceSearch> FacesOf(const ImageTask& task, const std::optional<Image>& picture,
                                  Size full) {
    if (!UsesFaces(task.settings) || task.adjustedRect) {
        return std::nullopt;
    }
    if (!picture) {
        return FaceSearch{{}, "the image could not be decoded small to look for faces"};
    }
    return FindFaces(*picture, full);
}

// The image's crop as the job makes it, and what the person should know of
// it; for a JPEG cropped without re-encoding, the rectangle the file holds.
// A rule that cannot crop this image leaves `outcome` failed.
LosslessDecision Describe(const ImageTask& task, const Image& image, const ImageHeader& header,
                          ImageOutcome& outcome, ResolvedCrop& crop) {
    const std::optional<Image> picture = PlacementPicture(task);
    const std::optional<TrimFinding> trimmed = FindTrim(task, image);
    const std::optional<FaceSearch> faces = FacesOf(task, picture, {image.Width(), image.Height()});
    crop = ResolveCrop(task.settings, image, picture ? &*picture : nullptr, task.adjustedRect,
                       trimmed ? &*trimmed : nullptr, faces ? &*faces : nullptr);
    if (faces) {
        for (const DetectedFace& face : faces->faces) {
            outcome.faces.push_back(face.box);
        }
    }
    if (crop.failure) {
        outcome.failure = crop.failure;
        return {};
    }
    const bool jpeg = task.settings.losslessJpeg &&
                      (header.jpegGrid || SniffFile(task.source).kind == FileKind::Jpeg);
    LosslessDecision lossless =
        DecideLosslessCrop(task.settings, task.settings.outputFormat, jpeg, header.jpegGrid, crop);
    outcome.rect = lossless.cut ? lossless.cut->upright : crop.rect;
    outcome.outputSize = crop.outputSize;
    outcome.wholeImage = IsWhole(crop.extent);
    outcome.warnings = CropExtentNotes(crop);
    Append(outcome.warnings, FirstPageNote(header.pages));
    return lossless;
}

// The crop cut out of the decoded image, brought to its output size and
// encoded at the output path. Formats whose metadata only their encoder
// writes get it now, whenever the metadata option is on (it cannot be added
// afterwards, when the job knows whether the images before this one fared
// well); `metadataSource` is where the source's metadata is read.
// The pixels an image is written from: the file's picture, or already the
// crop at its output size.
struct Decoded {
    Image image;
    bool cutAndResized = false;
    ResolvedCrop crop;
    LosslessDecision lossless;
    ImageHeader header;
};

SaveResult Encode(const ImageTask& task, const Decoded& decoded,
                  const std::string& metadataSource) {
    const Image& image = decoded.image;
    const ResolvedCrop& crop = decoded.crop;
    // An image the rule leaves whole is written whole, with the warning
    // saying why; then the output is brought to its size.
    const Rect whole{0.0, 0.0, image.Width(), image.Height()};
    Image cropped =
        decoded.cutAndResized || crop.cut == whole ? image : ImageTools::CropImage(image, crop.cut);
    Size written = decoded.cutAndResized ? crop.outputSize : crop.cutSize;
    if (crop.pad) {
        cropped = ImageTools::PadImage(cropped, *crop.pad, task.settings.pad);
        written = crop.pad->canvas;
    }
    if (crop.outputSize != written) {
        cropped = ImageTools::ResizeImage(cropped, crop.outputSize);
    }
    // The slider's 0 to 100, divided in single precision.
    const double quality = static_cast<double>(task.settings.quality / 100.0f);
    if (task.settings.keepMetadata) {
        return ImageTools::TrySaveImageWithMetadata(cropped, task.output,
                                                    task.settings.outputFormat, quality,
                                                    metadataSource, task.settings.byteLimit);
    }
    return ImageTools::TrySaveImage(cropped, task.output, task.settings.outputFormat, quality,
                                    task.settings.byteLimit);
}

// What fitting the byte limit chose: the quality, and the smaller size the
// picture was written at, if it had to be.
void NoteFit(const SaveResult& result, ImageOutcome& outcome) {
    if (!result.fit) {
        return;
    }
    outcome.fittedQuality = result.fit->quality;
    if (result.fit->scale < 1.0) {
        outcome.outputSize =
            Size{static_cast<double>(result.fit->width), static_cast<double>(result.fit->height)};
        Append(outcome.warnings,
               Sentence{VELLUMO_TEXT("Engine", "made smaller to %1 × %2 to fit %3"),
                        {std::to_string(result.fit->width), std::to_string(result.fit->height),
                         ByteCountText(result.fit->bytes)}});
    }
}

// The source's header: the one already read, or read now.
std::optional<ImageHeader> HeaderOf(const ImageTask& task,
                                    const std::optional<ImageHeader>& known) {
    return known ? known : ImageTools::HeaderOfFile(task.source);
}

ImageOutcome Plan(const ImageTask& task, const std::optional<ImageHeader>& known) {
    ImageOutcome outcome;
    const std::optional<ImageHeader> header = HeaderOf(task, known);
    if (!header) {
        outcome.failure = Failure::At(
            FailureStage::Decode,
            Sentence{VELLUMO_TEXT("Engine", "the file is not an image Vellumo can read"), {}});
        return outcome;
    }
    // A trim is measured on the pixels, so a dry run that trims decodes them.
    Image image = Image::OfSize(header->pixelSize.width, header->pixelSize.height);
    if (MeasuresPixels(task)) {
        const LoadResult loaded = ImageTools::LoadImage(task.source);
        if (!loaded) {
            outcome.failure = loaded.failure();
            return outcome;
        }
        image = ImageTools::BringImageToActualSize(*loaded, header->pixelSize);
    }
    ResolvedCrop crop;
    Describe(task, image, *header, outcome, crop);
    if (outcome.failure) {
        return outcome;
    }
    outcome.status =
        task.decision == OverwriteDecision::Skip ? ImageStatus::Skipped : ImageStatus::Planned;
    if (task.kind == TaskKind::NameFacts) {
        outcome.photoFacts = ReadPhotoFacts(task.source);
    }
    return outcome;
}

// When the output replaces the source itself, what is carried over from the
// source (its metadata, its date, its permissions) must outlive it: the old
// file is kept under a second name until the new one is complete.
class KeptSource {
  public:
    explicit KeptSource(const ImageTask& task) {
        struct stat status {};
        if (task.target == OutputTarget::Source && ::stat(task.source.c_str(), &status) == 0) {
            mode_ = status.st_mode & 07777;
            if (CarriesMetadata(task.kind)) {
                aside_ = atomicfile::KeepAside(task.source);
            }
        }
    }
    ~KeptSource() {
        if (!aside_.empty()) {
            ::unlink(aside_.c_str());
        }
    }
    KeptSource(const KeptSource&) = delete;
    KeptSource& operator=(const KeptSource&) = delete;

    // Where the source's metadata is read from now.
    const std::string& Source(const ImageTask& task) const {
        return aside_.empty() ? task.source : aside_;
    }
    // The replaced file keeps the old file's permissions.
    void KeepPermissions(const std::string& output) const {
        if (mode_) {
            ::chmod(output.c_str(), *mode_);
        }
    }

  private:
    std::string aside_;
    std::optional<mode_t> mode_;
};

// The source's metadata and date into the output, and what came of it as
// notes of the image. A format whose encoder wrote the metadata gets the
// date only.
void CarryMetadata(const ImageTask& task, const std::string& source, ImageOutcome& outcome) {
    const MetadataResult carried =
        EmbedsMetadataWhenEncoding(InfoOf(task.settings.outputFormat).codec)
            ? ImageTools::CarryCreationDate(source, task.output)
            : ImageTools::CarryMetadata(source, task.output);
    if (carried.status == MetadataResult::Status::DateNotSet) {
        outcome.notes.push_back({NoteKind::DateNotSet, carried.reason});
    } else if (carried.status == MetadataResult::Status::NotCarried) {
        outcome.notes.push_back({NoteKind::MetadataNotCarried, carried.reason});
    }
}

// Whether the crop is one the file can be cut and resized from directly
// (ImageTools::LoadCutResized): a JPEG or WebP written anew, its crop made smaller
// on both sides with nothing padded around it.
bool CutsAndResizes(const Decoded& decoded) {
    const ResolvedCrop& crop = decoded.crop;
    return !decoded.lossless.cut && !crop.pad && crop.outputSize.width < crop.cutSize.width &&
           crop.outputSize.height < crop.cutSize.height;
}

// Whether the task may be one for LoadCutResized, before its crop is
// known: a JPEG or WebP resized and written, whose crop needs no pixels
// measured. Every other image is decoded as a whole first.
bool MayCutAndResize(const ImageTask& task) {
    if (MeasuresPixels(task) || task.settings.resize.mode == ResizeMode::None ||
        task.decision == OverwriteDecision::Skip) {
        return false;
    }
    const std::optional<FileKind> kind = SniffFile(task.source).kind;
    return kind == FileKind::Jpeg || kind == FileKind::WebP;
}

// The whole picture for `decoded`'s crop, streamed by the usual decoder;
// false, with the failure in `outcome`, when the file cannot be read.
bool DecodeWhole(const ImageTask& task, Decoded& decoded, ImageOutcome& outcome) {
    const LoadResult loaded = ImageTools::OpenImage(task.source);
    if (!loaded) {
        outcome.failure = loaded.failure();
        return false;
    }
    decoded.image = ImageTools::BringImageToActualSize(*loaded, decoded.header.pixelSize);
    decoded.cutAndResized = false;
    return true;
}

// A JPEG or WebP whose crop is made smaller, decoded no larger than its output
// needs; the whole picture, streamed, when the crop is not one such or the
// plan cannot read the file (the usual decoder then says why it fails). Its
// crop is resolved on the header's size alone: it needs no pixels. Nothing,
// with the failure in `outcome`, when the crop or the file fails.
std::optional<Decoded> DecodePlanned(const ImageTask& task, const ImageHeader& header,
                                     ImageOutcome& outcome) {
    Decoded decoded;
    decoded.header = header;
    decoded.lossless =
        Describe(task, Image::OfSize(header.pixelSize.width, header.pixelSize.height), header,
                 outcome, decoded.crop);
    if (outcome.failure) {
        return std::nullopt;
    }
    if (CutsAndResizes(decoded)) {
        if (std::optional<Image> image = ImageTools::LoadCutResized(task.source, decoded.crop.cut,
                                                                    decoded.crop.outputSize)) {
            decoded.image = std::move(*image);
            decoded.cutAndResized = true;
            return decoded;
        }
    }
    if (!DecodeWhole(task, decoded, outcome)) {
        return std::nullopt;
    }
    return decoded;
}

// The pixels the image is written from, its crop and what the person should
// know of it; nothing, with the failure in `outcome`, when the file cannot
// be read or the rule cannot crop it.
std::optional<Decoded> DecodeForCrop(const ImageTask& task, const std::optional<ImageHeader>& known,
                                     ImageOutcome& outcome) {
    if (MayCutAndResize(task)) {
        if (const std::optional<ImageHeader> header = HeaderOf(task, known)) {
            return DecodePlanned(task, *header, outcome);
        }
    }
    const LoadResult loaded = MeasuresPixels(task) ? ImageTools::LoadImage(task.source)
                                                   : ImageTools::OpenImage(task.source);
    if (!loaded) {
        outcome.failure = loaded.failure();
        return std::nullopt;
    }
    const std::optional<ImageHeader> header = HeaderOf(task, known);
    if (!header) {
        outcome.failure =
            Failure::At(FailureStage::Decode,
                        Sentence{VELLUMO_TEXT("Engine", "the image's size cannot be read"), {}});
        return std::nullopt;
    }
    Decoded decoded;
    decoded.header = *header;
    decoded.image = ImageTools::BringImageToActualSize(*loaded, header->pixelSize);
    decoded.lossless = Describe(task, decoded.image, *header, outcome, decoded.crop);
    if (outcome.failure) {
        return std::nullopt;
    }
    return decoded;
}

// The output written from `decoded`. The planned decode reads the rows as
// they are written and stops at the first damage it finds, whether or not
// the usual decoder would let it pass: then the usual decoder decodes the
// file again and judges it, so that a file fares as it always did (the
// failed write left no file behind). Its failure to read the file goes into
// `outcome`.
SaveResult Save(const ImageTask& task, const Decoded& decoded, const std::string& metadataSource,
                ImageOutcome& outcome) {
    if (decoded.lossless.cut) {
        return CropJpegLosslessly(task.source, task.output, *decoded.lossless.cut,
                                  *decoded.header.jpegGrid);
    }
    SaveResult result = Encode(task, decoded, metadataSource);
    if (!result.saved && decoded.cutAndResized && result.stage == FailureStage::Decode) {
        Decoded whole = decoded;
        if (DecodeWhole(task, whole, outcome)) {
            result = Encode(task, whole, metadataSource);
        }
    }
    return result;
}

}  // namespace

ImageOutcome InProcessImageProcessor::Process(const ImageTask& task) {
    return Process(task, std::nullopt);
}

ImageOutcome InProcessImageProcessor::Process(const ImageTask& task,
                                              const std::optional<ImageHeader>& known) {
    if (task.kind == TaskKind::DryRun || task.kind == TaskKind::NameFacts) {
        return Plan(task, known);
    }
    if (task.kind == TaskKind::CarryMetadataOnly) {
        ImageOutcome outcome;
        outcome.status = ImageStatus::Written;
        CarryMetadata(task, task.source, outcome);
        return outcome;
    }
    ImageOutcome outcome;
    const std::optional<Decoded> decoded = DecodeForCrop(task, known, outcome);
    if (!decoded) {
        return outcome;
    }

    const KeptSource kept(task);
    bool saved = false;
    if (task.decision == OverwriteDecision::Skip) {
        outcome.status = ImageStatus::Skipped;
    } else {
        if (task.decision == OverwriteDecision::Overwrite) {
            if (std::string error = ClearForOverwrite(task.output); !error.empty()) {
                outcome.notes.push_back({NoteKind::RemoveFailed, std::move(error)});
            }
        }
        const SaveResult result = Save(task, *decoded, kept.Source(task), outcome);
        if (outcome.failure) {
            return outcome;
        }
        if (!result.saved) {
            // The pixels are decoded while they are written: a damaged
            // source fails the save at the Decode stage.
            outcome.failure = Failure::At(result.stage, result.reason);
            return outcome;
        }
        saved = true;
        outcome.status = ImageStatus::Written;
        NoteFit(result, outcome);
    }
    if (CarriesMetadata(task.kind) && (saved || outcome.status == ImageStatus::Skipped)) {
        CarryMetadata(task, kept.Source(task), outcome);
    }
    if (saved) {
        kept.KeepPermissions(task.output);
    }
    return outcome;
}

}  // namespace vellumo
