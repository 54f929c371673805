#pragma once

// The image formats Vellumo reads and writes, one row each. Everything that
// offers, names, recognises or writes a format (the window's lists and
// icons, the open panel, the command line, output paths, the encoder) reads
// these tables: a new format is a row here and its encoder.

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "imaging/FileKind.h"
#include "imaging/OutputCodec.h"

namespace vellumo {

// A format an output can be written in, as the format list names them: three
// names write JPEG files, two JPEG 2000, two TIFF. The list's order is this
// enumeration's.
enum class OutputFormat {
    Jpg,
    Jpeg,
    Jpe,
    Jp2,
    Jpx,
    Png,
    Tiff,
    Tif,
    Gif,
    Bmp,
    WebP,
    Avif,
    Heic,
    Jxl
};

// An entry of the output format list; the lower-cased title is the output
// file's extension.
struct OutputFormatInfo {
    OutputFormat format;
    std::string_view title;      // "JPG"
    OutputCodec codec;           // the encoder
    bool takesQuality;           // the quality slider applies
    bool carriesMetadata;        // Exif, IPTC and XMP can be written into it
    bool keepsAlpha;             // transparency survives
    std::string_view bitDepths;  // what the encoder writes, per sample
};

inline constexpr std::array<OutputFormatInfo, 14> kOutputFormats = {{
    {OutputFormat::Jpg, "JPG", OutputCodec::Jpeg, true, true, false, "8"},
    {OutputFormat::Jpeg, "JPEG", OutputCodec::Jpeg, true, true, false, "8"},
    {OutputFormat::Jpe, "JPE", OutputCodec::Jpeg, true, true, false, "8"},
    {OutputFormat::Jp2, "JP2", OutputCodec::Jpeg2000, true, true, true, "8, 16"},
    {OutputFormat::Jpx, "JPX", OutputCodec::Jpeg2000, true, true, true, "8, 16"},
    {OutputFormat::Png, "PNG", OutputCodec::Png, false, true, true, "8, 16"},
    {OutputFormat::Tiff, "TIFF", OutputCodec::Tiff, false, true, true, "8, 16"},
    {OutputFormat::Tif, "TIF", OutputCodec::Tiff, false, true, true, "8, 16"},
    {OutputFormat::Gif, "GIF", OutputCodec::Gif, false, false, true, "8 (palette)"},
    {OutputFormat::Bmp, "BMP", OutputCodec::Bmp, false, false, true, "8"},
    // The formats of phones and the web, after the first ten. Exif and XMP
    // are written into WebP files afterwards, into AVIF and HEIC files by
    // their encoder; into JPEG XL only the colour profile, so far.
    {OutputFormat::WebP, "WEBP", OutputCodec::WebP, true, true, true, "8"},
    {OutputFormat::Avif, "AVIF", OutputCodec::Avif, true, true, true, "8, 12"},
    {OutputFormat::Heic, "HEIC", OutputCodec::Heic, true, true, true, "8"},
    {OutputFormat::Jxl, "JXL", OutputCodec::JpegXl, true, false, true, "8, 16"},
}};

// An extension the image list accepts, in the list's own order, with the
// kind of file it names and the icon its rows show.
struct InputExtensionInfo {
    std::string_view extension;  // lower case, no dot
    FileKind kind;
    std::string_view icon;  // the file-kind icon resource
};

inline constexpr std::array<InputExtensionInfo, 15> kInputExtensions = {{
    {"jpg", FileKind::Jpeg, "JPG"},
    {"jpeg", FileKind::Jpeg, "JPG"},
    {"jpe", FileKind::Jpeg, "JPG"},
    {"jp2", FileKind::Jpeg2000, "JP2"},
    {"jpx", FileKind::Jpeg2000, "JP2"},
    {"png", FileKind::Png, "PNG"},
    {"gif", FileKind::Gif, "GIF"},
    {"tif", FileKind::Tiff, "TIF"},
    {"tiff", FileKind::Tiff, "TIF"},
    {"bmp", FileKind::Bmp, "BMP"},
    // The kinds of phones and the web, after the first ten.
    {"heic", FileKind::Heif, "HEIC"},
    {"heif", FileKind::Heif, "HEIC"},
    {"avif", FileKind::Heif, "AVIF"},
    {"webp", FileKind::WebP, "WEBP"},
    {"jxl", FileKind::JpegXl, "JXL"},
}};

// The row of output format `format`.
const OutputFormatInfo& InfoOf(OutputFormat format);

// The output format titled `title` in any case ("png" gives Png); nothing
// when there is none.
std::optional<OutputFormat> OutputFormatNamed(std::string_view title);

// The output file extension of `format`: its title in lower case ("png").
std::string OutputFormatExtension(OutputFormat format);

// The format at `position` of the list (kOutputFormats, as the window's box
// shows it), and back; nothing for a position outside the list.
std::optional<OutputFormat> OutputFormatAtPosition(long position);
long PositionOfOutputFormat(OutputFormat format);

// The titles, joined by `separator`: "JPG JPEG ... BMP".
std::string OutputFormatTitles(std::string_view separator);

// The accepted extension that `path` ends in, in any case ("a.JPEG"), or
// nullptr.
const InputExtensionInfo* InputExtensionOfPath(std::string_view path);

// The accepted extensions, joined by `separator`.
std::string InputExtensionList(std::string_view separator);

}  // namespace vellumo
