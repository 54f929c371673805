#include "imaging/WebpFacts.h"

#include <webp/demux.h>

#include <cstring>
#include <exiv2/exiv2.hpp>
#include <memory>

#include "imaging/ExivRuntime.h"

namespace vellumo {

namespace {

struct DemuxDelete {
    void operator()(WebPDemuxer* demux) const { WebPDemuxDelete(demux); }
};
using Demux = std::unique_ptr<WebPDemuxer, DemuxDelete>;

// The chunk `fourcc`'s bytes; empty when there is none.
std::vector<unsigned char> Chunk(WebPDemuxer* demux, const char* fourcc) {
    WebPChunkIterator chunk;
    std::vector<unsigned char> bytes;
    if (WebPDemuxGetChunk(demux, fourcc, 1, &chunk) != 0) {
        bytes.assign(chunk.chunk.bytes, chunk.chunk.bytes + chunk.chunk.size);
        WebPDemuxReleaseChunkIterator(&chunk);
    }
    return bytes;
}

// The orientation an Exif block records, 1 when none or it cannot be read.
// Some writers put the "Exif\0\0" of a JPEG's APP1 segment before its TIFF
// header.
int OrientationOf(const std::vector<unsigned char>& exif) {
    const std::size_t skip =
        exif.size() > 6 && std::memcmp(exif.data(), "Exif\0\0", 6) == 0 ? 6 : 0;
    if (exif.size() <= skip) {
        return 1;
    }
    exivruntime::EnsureStarted();
    try {
        Exiv2::ExifData data;
        Exiv2::ExifParser::decode(data, exif.data() + skip,
                                  static_cast<uint32_t>(exif.size() - skip));
        const auto found = data.findKey(Exiv2::ExifKey("Exif.Image.Orientation"));
        if (found == data.end() || found->count() < 1) {
            return 1;
        }
        const long orientation = found->toLong();
        return orientation >= 1 && orientation <= 8 ? static_cast<int>(orientation) : 1;
    } catch (const Exiv2::AnyError&) {
        return 1;
    }
}

}  // namespace

std::optional<WebpFacts> ReadWebpFacts(const std::vector<unsigned char>& bytes) {
    const WebPData data{bytes.data(), bytes.size()};
    const Demux demux(WebPDemux(&data));
    if (!demux) {
        return std::nullopt;
    }
    WebpFacts facts;
    facts.stored = {static_cast<double>(WebPDemuxGetI(demux.get(), WEBP_FF_CANVAS_WIDTH)),
                    static_cast<double>(WebPDemuxGetI(demux.get(), WEBP_FF_CANVAS_HEIGHT))};
    facts.frames = static_cast<int>(WebPDemuxGetI(demux.get(), WEBP_FF_FRAME_COUNT));
    const uint32_t flags = WebPDemuxGetI(demux.get(), WEBP_FF_FORMAT_FLAGS);
    if ((flags & ICCP_FLAG) != 0) {
        facts.iccProfile = Chunk(demux.get(), "ICCP");
    }
    if ((flags & EXIF_FLAG) != 0) {
        facts.orientation = OrientationOf(Chunk(demux.get(), "EXIF"));
    }
    return facts;
}

}  // namespace vellumo
