#pragma once

// Reading written files back with independent tools: exiftool for metadata,
// ImageMagick for what a file really is, and coreutils for file dates.

#include <string>
#include <vector>

namespace vellumo::test {

// The value exiftool prints for `tag` ("Model", "GPSLatitude",
// "IFD1:ThumbnailImage"), with numbers as numbers when `numeric`; empty when
// the file has no such tag.
std::string ExifToolValue(const std::string& path, const std::string& tag, bool numeric = false);

// Every tag exiftool finds in the groups Exif, GPS, IPTC and XMP, one
// "Group:Tag=value" per entry; empty when there are none.
std::vector<std::string> ExifToolMetadataTags(const std::string& path);

// ImageMagick's name for the file's format ("JPEG", "JP2", "PNG", "TIFF",
// "GIF", "BMP", "BMP3").
std::string MagickFormat(const std::string& path);

// The JPEG quality ImageMagick estimates from the quantisation tables.
int MagickJpegQuality(const std::string& path);

// The file's birth time and modification time in whole seconds since 1970,
// as `stat` reads them; birth is 0 when the file system records none.
struct StatTimes {
    long long birth = 0;
    long long modification = 0;
};
StatTimes StatSeconds(const std::string& path);

// The whole file.
std::string ReadFile(const std::string& path);

}  // namespace vellumo::test
