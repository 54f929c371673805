#pragma once

// Reading written files back with independent tools: exiftool for metadata,
// ImageMagick for what a file really is, and coreutils for file dates.

#include <map>
#include <string>
#include <vector>

namespace vellumo::test {

// The value exiftool prints for `tag` ("Model", "GPSLatitude",
// "IFD1:ThumbnailImage"), with numbers as numbers when `numeric`; empty when
// the file has no such tag.
std::string ExifToolValue(const std::string& path, const std::string& tag, bool numeric = false);

// ExifToolValue for several tags at once (one run of exiftool), by tag name;
// a tag the file does not have is missing from the map.
std::map<std::string, std::string> ExifToolValues(const std::string& path,
                                                  const std::vector<std::string>& tags,
                                                  bool numeric = false);

// Every tag exiftool finds for `selection` (as "-GPS:all -XMP:all"), one
// "[Group] Tag: value" line per tag; empty when there are none.
std::vector<std::string> ExifToolTags(const std::string& path, const std::string& selection);

// The bytes exiftool extracts for a binary tag ("ICC_Profile").
std::string ExifToolBinary(const std::string& path, const std::string& tag);

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
