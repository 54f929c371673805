#include "imaging/JpegRegionDecode.h"

#include <unistd.h>

// jpeglib.h needs size_t and FILE declared before it.
#include <cstddef>
#include <cstdio>
// clang-format off
#include <jpeglib.h>
#include <jerror.h>
// clang-format on

#include <csetjmp>
#include <cstring>
#include <memory>
#include <vector>

#include "imaging/FileHandles.h"

namespace vellumo::jpegregion {

namespace {

// The compressed bytes, read at offsets in chunks: the file's position,
// which a descriptor shares with its duplicates, is never used.
constexpr std::size_t kChunk = std::size_t{64} * 1024;

struct FileSource {
    jpeg_source_mgr manager{};
    int fd = -1;
    off_t offset = 0;
    JOCTET buffer[kChunk]{};
};

// libjpeg's end of a source: a fake end-of-image marker after a warning,
// which the decode counts as damage.
const JOCTET kEndOfImage[2] = {0xFF, JPEG_EOI};

boolean FillInput(j_decompress_ptr cinfo) {
    auto* source = reinterpret_cast<FileSource*>(cinfo->src);
    const ssize_t read = filehandles::ReadAt(source->fd, source->buffer, kChunk, source->offset);
    if (read <= 0) {
        WARNMS(cinfo, JWRN_JPEG_EOF);
        source->manager.next_input_byte = kEndOfImage;
        source->manager.bytes_in_buffer = 2;
        return TRUE;
    }
    source->offset += read;
    source->manager.next_input_byte = source->buffer;
    source->manager.bytes_in_buffer = static_cast<std::size_t>(read);
    return TRUE;
}

void SkipInput(j_decompress_ptr cinfo, long count) {
    auto* source = reinterpret_cast<FileSource*>(cinfo->src);
    if (count <= 0) {
        return;
    }
    const auto skip = static_cast<std::size_t>(count);
    if (skip <= source->manager.bytes_in_buffer) {
        source->manager.next_input_byte += skip;
        source->manager.bytes_in_buffer -= skip;
        return;
    }
    source->offset += static_cast<off_t>(skip - source->manager.bytes_in_buffer);
    source->manager.bytes_in_buffer = 0;
}

void Nothing(j_decompress_ptr /*cinfo*/) {}

// Errors jump back to the decode; every warning (corrupt data, a premature
// end) marks the decode as failed, for the usual decoder to judge.
struct ErrorTrap {
    jpeg_error_mgr manager{};
    std::jmp_buf jump{};
    bool warned = false;
};

[[noreturn]] void OnError(j_common_ptr cinfo) {
    std::longjmp(reinterpret_cast<ErrorTrap*>(cinfo->err)->jump, 1);
}

void OnMessage(j_common_ptr cinfo, int level) {
    if (level < 0) {
        reinterpret_cast<ErrorTrap*>(cinfo->err)->warned = true;
    }
}

bool Readable(const jpeg_decompress_struct& cinfo) {
    return cinfo.data_precision == 8 &&
           (cinfo.jpeg_color_space == JCS_GRAYSCALE || cinfo.jpeg_color_space == JCS_RGB ||
            cinfo.jpeg_color_space == JCS_YCbCr);
}

// Opens the decode of the plan's box at its row `firstRow`: the header read,
// the scale and the columns set, the rows above skipped. False when the file
// is not one this decode reads. libjpeg's errors jump out of it.
bool StartRows(jpeg_decompress_struct& cinfo, const JpegDecodePlan& plan, Size storedSize,
               int firstRow, JDIMENSION& firstColumn) {
    jpeg_read_header(&cinfo, TRUE);
    if (!Readable(cinfo) || cinfo.image_width != static_cast<JDIMENSION>(storedSize.width) ||
        cinfo.image_height != static_cast<JDIMENSION>(storedSize.height)) {
        return false;
    }
    cinfo.scale_num = static_cast<unsigned>(plan.eighths);
    cinfo.scale_denom = 8;
    const bool grey = cinfo.jpeg_color_space == JCS_GRAYSCALE;
    cinfo.out_color_space = grey ? JCS_GRAYSCALE : JCS_RGB;
    jpeg_start_decompress(&cinfo);
    const PixelBox& box = plan.decoded;
    if (static_cast<int>(cinfo.output_width) < box.left + box.width ||
        static_cast<int>(cinfo.output_height) < box.top + box.height) {
        return false;
    }
    JDIMENSION left = static_cast<JDIMENSION>(box.left);
    JDIMENSION width = static_cast<JDIMENSION>(box.width);
    if (width < cinfo.output_width) {
        // Moves the left edge back to the decoder's block grid.
        jpeg_crop_scanline(&cinfo, &left, &width);
    }
    firstColumn = left;
    if (box.top + firstRow > 0) {
        jpeg_skip_scanlines(&cinfo, static_cast<JDIMENSION>(box.top + firstRow));
    }
    return true;
}

// One decode under way, read row by row as libvips asks for the rows in
// order (vips_sequential in front of it makes sure of that).
struct RowStream {
    FileSource source;
    jpeg_decompress_struct cinfo{};
    ErrorTrap trap;
    bool created = false;
    JpegDecodePlan plan;
    Size storedSize;
    JDIMENSION firstColumn = 0;
    int nextRow = 0;  // of the box
    std::vector<JSAMPLE> line;
    GMutex lock{};

    RowStream() { g_mutex_init(&lock); }
    RowStream(const RowStream&) = delete;
    RowStream& operator=(const RowStream&) = delete;
    ~RowStream() {
        if (created) {
            jpeg_destroy_decompress(&cinfo);
        }
        if (source.fd >= 0) {
            close(source.fd);
        }
        g_mutex_clear(&lock);
    }
};

// StartRows with libjpeg's errors caught: false when one jumped out or a
// warning came. No local here changes after the jump is set.
bool StartGuarded(RowStream& stream) {
    if (setjmp(stream.trap.jump) != 0) {
        return false;
    }
    jpeg_create_decompress(&stream.cinfo);
    stream.created = true;
    stream.cinfo.src = &stream.source.manager;
    return StartRows(stream.cinfo, stream.plan, stream.storedSize, 0, stream.firstColumn) &&
           !stream.trap.warned;
}

// Moves the decode to the box's row `row`. libvips reads the rows in order
// through vips_sequential, whose cache can still drop rows a slow thread
// needs again (it happened under the sanitizers' load): a row behind the
// decoder's starts the decode again from the file, a row ahead is skipped
// to. Errors jump out, as in StartRows.
bool SeekRow(RowStream& stream, int row) {
    if (row < stream.nextRow) {
        jpeg_abort_decompress(&stream.cinfo);
        stream.source.offset = 0;
        stream.source.manager.bytes_in_buffer = 0;
        if (!StartRows(stream.cinfo, stream.plan, stream.storedSize, row, stream.firstColumn)) {
            return false;
        }
    } else if (row > stream.nextRow) {
        jpeg_skip_scanlines(&stream.cinfo, static_cast<JDIMENSION>(row - stream.nextRow));
    }
    stream.nextRow = row;
    return !stream.trap.warned;
}

// The box's `count` rows from `top` into `out` (rows of `stride` bytes):
// false when libjpeg failed or warned.
bool ReadGuarded(RowStream& stream, int top, int count, VipsPel* out, std::size_t stride) {
    if (setjmp(stream.trap.jump) != 0 || !SeekRow(stream, top)) {
        return false;
    }
    const int components = stream.cinfo.output_components;
    const std::size_t skip =
        static_cast<std::size_t>(stream.plan.decoded.left - static_cast<int>(stream.firstColumn)) *
        components;
    const std::size_t bytes = static_cast<std::size_t>(stream.plan.decoded.width) * components;
    for (int row = 0; row < count; ++row) {
        JSAMPROW line = stream.line.data();
        if (jpeg_read_scanlines(&stream.cinfo, &line, 1) != 1 || stream.trap.warned) {
            return false;
        }
        std::memcpy(out + static_cast<std::size_t>(row) * stride, line + skip, bytes);
        ++stream.nextRow;
    }
    return true;
}

// libvips' generate function: whole rows of the box, top to bottom.
int GenerateRows(VipsRegion* region, void* /*sequence*/, void* a, void* /*b*/, gboolean* /*stop*/) {
    auto* stream = static_cast<RowStream*>(a);
    const VipsRect& area = region->valid;
    g_mutex_lock(&stream->lock);
    const bool read = area.left == 0 && area.width == stream->plan.decoded.width &&
                      ReadGuarded(*stream, area.top, area.height,
                                  VIPS_REGION_ADDR(region, 0, area.top), VIPS_REGION_LSKIP(region));
    g_mutex_unlock(&stream->lock);
    if (!read) {
        vips_error("VipsJpeg", "%s", "the planned decode of the cut failed");
        return -1;
    }
    return 0;
}

void FreeStream(VipsImage* /*image*/, void* stream) {
    delete static_cast<RowStream*>(stream);
}

// The stream's rows as a libvips picture, read when asked for.
std::optional<vips::VImage> StreamedImage(std::unique_ptr<RowStream> stream) {
    const int components = stream->cinfo.output_components;
    const PixelBox& box = stream->plan.decoded;
    VipsImage* raw = vips_image_new();
    vips_image_init_fields(
        raw, box.width, box.height, components, VIPS_FORMAT_UCHAR, VIPS_CODING_NONE,
        components == 1 ? VIPS_INTERPRETATION_B_W : VIPS_INTERPRETATION_sRGB, 1.0, 1.0);
    if (vips_image_pipelinev(raw, VIPS_DEMAND_STYLE_THINSTRIP, nullptr) != 0) {
        g_object_unref(raw);
        return std::nullopt;
    }
    RowStream* owned = stream.release();
    g_signal_connect(raw, "postclose", G_CALLBACK(FreeStream), owned);
    if (vips_image_generate(raw, nullptr, GenerateRows, nullptr, owned, nullptr) != 0) {
        g_object_unref(raw);
        return std::nullopt;
    }
    vips::VImage generated(raw);
    // Rows in order, a few at a time, whatever order the pipeline's threads
    // ask in.
    return generated.sequential(vips::VImage::option()->set("tile_height", 16));
}

}  // namespace

std::optional<vips::VImage> Decode(const std::string& path, Size storedSize,
                                   const JpegDecodePlan& plan) {
    auto stream = std::make_unique<RowStream>();
    stream->source.fd = filehandles::OpenForReading(path);
    if (stream->source.fd < 0) {
        return std::nullopt;
    }
    stream->plan = plan;
    stream->storedSize = storedSize;
    FileSource& source = stream->source;
    source.manager.init_source = Nothing;
    source.manager.fill_input_buffer = FillInput;
    source.manager.skip_input_data = SkipInput;
    source.manager.resync_to_restart = jpeg_resync_to_restart;
    source.manager.term_source = Nothing;
    stream->cinfo.err = jpeg_std_error(&stream->trap.manager);
    stream->trap.manager.error_exit = OnError;
    stream->trap.manager.emit_message = OnMessage;
    if (!StartGuarded(*stream)) {
        return std::nullopt;
    }
    // The decoder's block grid can move the left edge back by up to one
    // block of 16 scaled pixels: the line has room for it.
    const std::size_t width = static_cast<std::size_t>(stream->cinfo.output_width);
    stream->line.resize(width * stream->cinfo.output_components);
    return StreamedImage(std::move(stream));
}

}  // namespace vellumo::jpegregion
