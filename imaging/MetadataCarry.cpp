#include "imaging/MetadataCarry.h"

#include <cstdint>
#include <cstdio>
#include <exception>
#include <string_view>
#include <vector>

#include "imaging/AtomicFile.h"
#include "imaging/ExivRuntime.h"
#include "imaging/FileBytes.h"
#include "imaging/FileDates.h"

namespace vellumo::metadatacarry {

namespace {

struct SourceMetadata {
    Exiv2::ExifData exif;
    Exiv2::IptcData iptc;
    Exiv2::XmpData xmp;
};

// Tags of the first image's directory that describe how the source's own
// pixels are stored, or hold what travels another way (the colour profile
// stays with the saved pixels; IPTC and XMP are copied as themselves).
bool IsStorageTag(std::uint16_t tag) {
    switch (tag) {
        case 0x00fe:  // NewSubfileType
        case 0x00ff:  // SubfileType
        case 0x0100:  // ImageWidth
        case 0x0101:  // ImageLength
        case 0x0102:  // BitsPerSample
        case 0x0103:  // Compression
        case 0x0106:  // PhotometricInterpretation
        case 0x010a:  // FillOrder
        case 0x0111:  // StripOffsets
        case 0x0115:  // SamplesPerPixel
        case 0x0116:  // RowsPerStrip
        case 0x0117:  // StripByteCounts
        case 0x011c:  // PlanarConfiguration
        case 0x013d:  // Predictor
        case 0x0140:  // ColorMap
        case 0x0142:  // TileWidth
        case 0x0143:  // TileLength
        case 0x0144:  // TileOffsets
        case 0x0145:  // TileByteCounts
        case 0x014a:  // SubIFDs
        case 0x0152:  // ExtraSamples
        case 0x0153:  // SampleFormat
        case 0x015b:  // JPEGTables
        case 0x0201:  // JPEGInterchangeFormat
        case 0x0202:  // JPEGInterchangeFormatLength
        case 0x0212:  // YCbCrSubSampling
        case 0x02bc:  // XMLPacket
        case 0x83bb:  // IPTCNAA
        case 0x8649:  // ImageResources
        case 0x8773:  // InterColorProfile
            return true;
        default:
            return false;
    }
}

bool StartsWith(std::string_view text, std::string_view prefix) {
    return text.substr(0, prefix.size()) == prefix;
}

// The embedded thumbnail (which shows the uncropped picture), further
// pages and reduced images, and the offsets of images appended to the
// source file do not describe the saved picture.
bool IsLeftBehind(const Exiv2::Exifdatum& datum) {
    const std::string group = datum.groupName();
    if (group == "Thumbnail" || group == "MpfInfo" || StartsWith(group, "SubThumb") ||
        StartsWith(group, "SubImage")) {
        return true;
    }
    if (group.size() == 6 && StartsWith(group, "Image") && group[5] >= '2' && group[5] <= '9') {
        return true;
    }
    return group == "Image" && IsStorageTag(datum.tag());
}

// The pixels were turned upright when loaded and the picture was cropped:
// the orientation becomes "top-left" and the pixel dimensions become the
// saved file's. All else travels as it was.
Exiv2::ExifData CarriedExif(const Exiv2::ExifData& source, long width, long height) {
    Exiv2::ExifData exif;
    for (const Exiv2::Exifdatum& datum : source) {
        if (!IsLeftBehind(datum)) {
            exif.add(datum);
        }
    }
    if (exif.empty()) {
        return exif;
    }
    const auto orientation = exif.findKey(Exiv2::ExifKey("Exif.Image.Orientation"));
    if (orientation != exif.end()) {
        orientation->setValue(std::to_string(1));
    }
    exif["Exif.Photo.PixelXDimension"] = static_cast<std::uint32_t>(width);
    exif["Exif.Photo.PixelYDimension"] = static_cast<std::uint32_t>(height);
    return exif;
}

void SetIfPresent(Exiv2::XmpData& xmp, const char* key, long value) {
    const auto found = xmp.findKey(Exiv2::XmpKey(key));
    if (found != xmp.end()) {
        found->setValue(std::to_string(value));
    }
}

// The namespaces that describe a gain map stored after the primary picture
// (an Ultra HDR or Apple HDR photo): the saved file has no gain map, and a
// description of one would send a viewer looking for bytes that are not
// there.
bool DescribesGainMap(const Exiv2::Xmpdatum& datum) {
    static const char* const kNamespaces[] = {
        "http://ns.adobe.com/hdr-gain-map/1.0/",
        "http://ns.google.com/photos/1.0/container/",
        "http://ns.google.com/photos/1.0/container/item/",
        "http://ns.apple.com/HDRGainMap/1.0/",
    };
    std::string ns;
    try {
        ns = Exiv2::XmpProperties::ns(datum.groupName());
    } catch (const Exiv2::AnyError&) {
        return false;
    }
    for (const char* gainMap : kNamespaces) {
        if (ns == gainMap) {
            return true;
        }
    }
    return false;
}

Exiv2::XmpData CarriedXmp(const Exiv2::XmpData& source, long width, long height) {
    Exiv2::XmpData xmp;
    for (const Exiv2::Xmpdatum& datum : source) {
        if (!DescribesGainMap(datum)) {
            xmp.add(datum);
        }
    }
    SetIfPresent(xmp, "Xmp.tiff.Orientation", 1);
    SetIfPresent(xmp, "Xmp.tiff.ImageWidth", width);
    SetIfPresent(xmp, "Xmp.tiff.ImageLength", height);
    SetIfPresent(xmp, "Xmp.exif.PixelXDimension", width);
    SetIfPresent(xmp, "Xmp.exif.PixelYDimension", height);
    return xmp;
}

}  // namespace

std::optional<EncoderMetadata> ForEncoder(const std::string& originalImagePath, long width,
                                          long height) {
    exivruntime::EnsureStarted();
    try {
        exivruntime::SourceBytes bytes;
        const std::unique_ptr<Exiv2::Image> original =
            exivruntime::OpenFile(originalImagePath, bytes);
        original->readMetadata();
        EncoderMetadata metadata;
        const Exiv2::ExifData exif = CarriedExif(original->exifData(), width, height);
        if (!exif.empty()) {
            Exiv2::Blob blob;
            Exiv2::ExifParser::encode(blob, Exiv2::littleEndian, exif);
            static constexpr unsigned char kHeader[] = {'E', 'x', 'i', 'f', 0, 0};
            metadata.exif.assign(std::begin(kHeader), std::end(kHeader));
            metadata.exif.insert(metadata.exif.end(), blob.begin(), blob.end());
        }
        const Exiv2::XmpData xmp = CarriedXmp(original->xmpData(), width, height);
        if (!xmp.empty() && Exiv2::XmpParser::encode(metadata.xmp, xmp) != 0) {
            metadata.xmp.clear();
        }
        return metadata;
    } catch (const std::exception&) {
        // As in Carry: any damage means the metadata cannot be used.
        return std::nullopt;
    }
}

MetadataResult Carry(const std::string& originalImagePath, const std::string& croppedImagePath,
                     const DateOfSource& dateOfSource) {
    exivruntime::EnsureStarted();
    // Exiv2 reports most damage as Exiv2::Error, but offsets that overflow
    // in a damaged file as std::overflow_error and the like: every one of
    // them means the file cannot be used here.
    SourceMetadata source;
    try {
        exivruntime::SourceBytes bytes;
        const std::unique_ptr<Exiv2::Image> original =
            exivruntime::OpenFile(originalImagePath, bytes);
        original->readMetadata();
        source = {original->exifData(), original->iptcData(), original->xmpData()};
    } catch (const std::exception& error) {
        return MetadataResult::NotCarried(std::string("the source's metadata cannot be read (") +
                                          error.what() + ")");
    }

    std::string unreadable;
    const auto saved = ReadFileBytes(croppedImagePath, unreadable);
    if (!saved) {
        return MetadataResult::NotCarried("the saved file cannot be read (" + unreadable + ")");
    }
    std::unique_ptr<Exiv2::Image> cropped;
    long width = 0;
    long height = 0;
    try {
        cropped = exivruntime::Open(
            Exiv2::ImageFactory::open(saved->data(), static_cast<long>(saved->size())));
        cropped->readMetadata();
        width = static_cast<long>(cropped->pixelWidth());
        height = static_cast<long>(cropped->pixelHeight());
    } catch (const std::exception& error) {
        return MetadataResult::NotCarried(std::string("the saved file cannot be read (") +
                                          error.what() + ")");
    }

    const auto date = dateOfSource();

    // The saved file keeps its own format; GIF and BMP carry none of this.
    if ((Exiv2::ImageFactory::checkMode(cropped->imageType(), Exiv2::mdExif) & Exiv2::amWrite) ==
        0) {
        return MetadataResult::NotCarried("the saved file's format carries no metadata");
    }
    std::vector<unsigned char> rewritten;
    try {
        cropped->setExifData(CarriedExif(source.exif, width, height));
        cropped->setIptcData(source.iptc);
        cropped->setXmpData(CarriedXmp(source.xmp, width, height));
        cropped->writeMetadata();
        rewritten = exivruntime::BytesOf(*cropped);
    } catch (const std::exception& error) {
        return MetadataResult::NotCarried(std::string("the metadata cannot be written (") +
                                          error.what() + ")");
    }
    const SaveResult replaced =
        atomicfile::ReplaceWithBytes(croppedImagePath, rewritten.data(), rewritten.size());
    if (!replaced.saved) {
        return MetadataResult::NotCarried("the saved file cannot be rewritten (" + replaced.reason +
                                          ")");
    }
    if (!filedates::SetCreationDate(croppedImagePath, date)) {
        return MetadataResult::DateNotSet("the creation date cannot be set");
    }
    return MetadataResult::Carried();
}

}  // namespace vellumo::metadatacarry
