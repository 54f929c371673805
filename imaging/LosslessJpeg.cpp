#include "imaging/LosslessJpeg.h"

#include <fcntl.h>
#include <turbojpeg.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>
#include <vips/vips8>

#include "imaging/AtomicFile.h"
#include "imaging/FileBytes.h"
#include "imaging/FileHandles.h"
#include "imaging/IccEmbed.h"
#include "imaging/VipsLoad.h"
#include "imaging/VipsRuntime.h"

namespace vellumo {

namespace {

// How an orientation turns the stored picture upright: first transposed
// (when `swap`), then mirrored left to right and/or top to bottom; and
// libjpeg-turbo's lossless transform that does the same.
struct Turn {
    bool swap = false;
    bool flipX = false;
    bool flipY = false;
    int transform = TJXOP_NONE;
};

Turn TurnOf(int orientation) {
    // Indexed by the Exif orientation, 1 to 8.
    static constexpr Turn kTurns[] = {
        {},
        {},
        {false, true, false, TJXOP_HFLIP},
        {false, true, true, TJXOP_ROT180},
        {false, false, true, TJXOP_VFLIP},
        {true, false, false, TJXOP_TRANSPOSE},
        {true, true, false, TJXOP_ROT90},
        {true, true, true, TJXOP_TRANSVERSE},
        {true, false, true, TJXOP_ROT270},
    };
    return orientation >= 1 && orientation <= 8 ? kTurns[orientation] : Turn{};
}

// Half-open pixel spans, top-left origin.
struct Span {
    long long begin = 0;
    long long end = 0;
};

Span Mirrored(Span span, long long side) {
    return {side - span.end, side - span.begin};
}

long long Down(long long value, int step) {
    return value / step * step;
}
long long Up(long long value, int step) {
    return (value + step - 1) / step * step;
}

using Handle = std::unique_ptr<void, decltype(&tjDestroy)>;

// Bytes TurboJPEG allocated, freed with its allocator.
struct Coded {
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
    Coded() = default;
    Coded(const Coded&) = delete;
    Coded& operator=(const Coded&) = delete;
    ~Coded() { tjFree(bytes); }
};

// One lossless transform of `in` into `out`; the error's text, or empty.
std::string Transform(tjhandle handle, const unsigned char* in, unsigned long size,
                      tjtransform& transform, Coded& out) {
    // A damaged file fails here as it fails the decoder elsewhere, instead of
    // being copied with grey blocks.
    if (tjTransform(handle, in, size, 1, &out.bytes, &out.size, &transform, TJFLAG_STOPONWARNING) !=
        0) {
        return tjGetErrorStr2(handle);
    }
    return {};
}

// The source's colour profile, which every JPEG Vellumo writes keeps.
std::vector<unsigned char> ColourProfileOf(const std::string& source) {
    vipsruntime::EnsureStarted();
    vipsruntime::FailureScope scope;
    try {
        return vipsload::ColourProfile(vipsload::Open(FileKind::Jpeg, source));
    } catch (const vips::VError&) {
        return {};
    }
}

}  // namespace

std::optional<JpegGrid> ReadJpegGrid(const std::string& path) {
    const int fd = filehandles::OpenForReading(path);
    if (fd < 0) {
        return std::nullopt;
    }
    const Handle handle(tjInitDecompress(), &tjDestroy);
    std::vector<unsigned char> head;
    std::optional<JpegGrid> grid;
    // The frame header follows the application markers (Exif, colour
    // profile, XMP), rarely more than a few hundred kilobytes in: read more
    // until it is found or the file ends.
    std::size_t wanted = 65536;
    for (;;) {
        const std::size_t had = head.size();
        head.resize(wanted);
        const ssize_t got =
            filehandles::ReadAt(fd, head.data() + had, wanted - had, static_cast<off_t>(had));
        head.resize(had + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        int width = 0;
        int height = 0;
        int subsampling = -1;
        int colourspace = 0;
        if (handle &&
            tjDecompressHeader3(handle.get(), head.data(), head.size(), &width, &height,
                                &subsampling, &colourspace) == 0 &&
            subsampling >= 0 && subsampling < TJ_NUMSAMP) {
            grid = JpegGrid{tjMCUWidth[subsampling], tjMCUHeight[subsampling], width, height, 1};
            break;
        }
        if (got <= 0 || head.size() < wanted) {
            break;
        }
        wanted *= 4;
    }
    ::close(fd);
    return grid;
}

std::optional<LosslessCut> SnapToJpegGrid(const Rect& cut, const JpegGrid& grid) {
    const Turn turn = TurnOf(grid.orientation);
    const long long storedW = grid.storedWidth;
    const long long storedH = grid.storedHeight;
    const long long uprightW = turn.swap ? storedH : storedW;
    const long long uprightH = turn.swap ? storedW : storedH;
    // The chosen rectangle, top-left origin.
    Span x{std::llround(cut.x), std::llround(cut.x + cut.width)};
    Span y{uprightH - std::llround(cut.y + cut.height), uprightH - std::llround(cut.y)};
    // Back to the file as stored: undo the mirroring, then the transposing.
    if (turn.flipX) {
        x = Mirrored(x, uprightW);
    }
    if (turn.flipY) {
        y = Mirrored(y, uprightH);
    }
    if (turn.swap) {
        std::swap(x, y);
    }
    // The crop starts on a block. A mirror can move only whole blocks, so a
    // stored edge that ends up at the upright left or top must lie on the
    // grid as well; the image's own partial block there cannot be kept.
    const bool alignRight = turn.swap ? turn.flipY : turn.flipX;
    const bool alignBottom = turn.swap ? turn.flipX : turn.flipY;
    x.begin = Down(x.begin, grid.blockWidth);
    y.begin = Down(y.begin, grid.blockHeight);
    long long lostX = 0;
    long long lostY = 0;
    if (alignRight) {
        const long long end = std::min(Up(x.end, grid.blockWidth), Down(storedW, grid.blockWidth));
        lostX = std::max(0LL, x.end - end);
        x.end = end;
    }
    if (alignBottom) {
        const long long end =
            std::min(Up(y.end, grid.blockHeight), Down(storedH, grid.blockHeight));
        lostY = std::max(0LL, y.end - end);
        y.end = end;
    }
    if (x.end <= x.begin || y.end <= y.begin) {
        return std::nullopt;
    }
    LosslessCut snapped;
    snapped.storedLeft = static_cast<int>(x.begin);
    snapped.storedTop = static_cast<int>(y.begin);
    snapped.storedWidth = static_cast<int>(x.end - x.begin);
    snapped.storedHeight = static_cast<int>(y.end - y.begin);
    snapped.trimmedColumns = static_cast<int>(turn.swap ? lostY : lostX);
    snapped.trimmedRows = static_cast<int>(turn.swap ? lostX : lostY);
    // And upright again.
    if (turn.swap) {
        std::swap(x, y);
    }
    if (turn.flipX) {
        x = Mirrored(x, uprightW);
    }
    if (turn.flipY) {
        y = Mirrored(y, uprightH);
    }
    snapped.upright = {static_cast<double>(x.begin), static_cast<double>(uprightH - y.end),
                       static_cast<double>(x.end - x.begin), static_cast<double>(y.end - y.begin)};
    return snapped;
}

SaveResult CropJpegLosslessly(const std::string& source, const std::string& output,
                              const LosslessCut& cut, const JpegGrid& grid) {
    std::string reason;
    const auto bytes = ReadFileBytes(source, reason);
    if (!bytes) {
        return SaveResult::Failed("cannot read the source: " + reason, FailureStage::Read);
    }
    const Handle handle(tjInitTransform(), &tjDestroy);
    if (!handle) {
        return SaveResult::Failed(tjGetErrorStr2(nullptr), FailureStage::Encode);
    }
    // Cut first, in the file's own orientation, where only the start must be
    // on a block; then turn the cut-out upright, which SnapToJpegGrid made
    // perfect (no partial block where the turn moves one).
    tjtransform crop{};
    crop.r = {cut.storedLeft, cut.storedTop, cut.storedWidth, cut.storedHeight};
    crop.op = TJXOP_NONE;
    crop.options = TJXOPT_CROP | TJXOPT_COPYNONE;
    Coded cropped;
    if (std::string error = Transform(handle.get(), bytes->data(), bytes->size(), crop, cropped);
        !error.empty()) {
        return SaveResult::Failed(error, FailureStage::Decode);
    }
    Coded turned;
    const Coded* result = &cropped;
    if (const int transform = TurnOf(grid.orientation).transform; transform != TJXOP_NONE) {
        tjtransform turn{};
        turn.op = transform;
        turn.options = TJXOPT_PERFECT | TJXOPT_COPYNONE;
        if (std::string error = Transform(handle.get(), cropped.bytes, cropped.size, turn, turned);
            !error.empty()) {
            return SaveResult::Failed(error, FailureStage::Crop);
        }
        result = &turned;
    }
    const std::vector<unsigned char> profile = ColourProfileOf(source);
    return atomicfile::Replace(output, [&](const std::string& temp) {
        SaveResult written = OverwriteFileBytes(temp, result->bytes, result->size);
        if (written.saved && !profile.empty()) {
            written = EmbedIccProfile(temp, profile.data(), profile.size());
        }
        return written;
    });
}

}  // namespace vellumo
