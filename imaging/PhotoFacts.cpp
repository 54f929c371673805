#include "imaging/PhotoFacts.h"

#include <sys/stat.h>
#include <time.h>

#include <cstdio>
#include <exception>
#include <vector>

#include "imaging/ExivRuntime.h"

namespace vellumo {

namespace {

std::string Trimmed(std::string text) {
    const auto blank = [](char c) { return c == ' ' || c == '\0' || c == '\t'; };
    while (!text.empty() && blank(text.back())) {
        text.pop_back();
    }
    std::size_t start = 0;
    while (start < text.size() && blank(text[start])) {
        ++start;
    }
    return text.substr(start);
}

std::optional<CalendarTime> ModificationTime(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        return std::nullopt;
    }
    struct tm local {};
    const time_t seconds = status.st_mtim.tv_sec;
    if (::localtime_r(&seconds, &local) == nullptr) {
        return std::nullopt;
    }
    return CalendarTime{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                        local.tm_hour,        local.tm_min,     local.tm_sec};
}

std::string ExifText(const Exiv2::ExifData& exif, const char* key) {
    const auto found = exif.findKey(Exiv2::ExifKey(key));
    return found == exif.end() ? std::string() : Trimmed(found->toString());
}

}  // namespace

std::optional<CalendarTime> ExifCalendarTime(const std::string& text) {
    CalendarTime time;
    char end = 0;
    if (std::sscanf(text.c_str(), "%4d:%2d:%2d %2d:%2d:%2d%c", &time.year, &time.month, &time.day,
                    &time.hour, &time.minute, &time.second, &end) != 6) {
        return std::nullopt;
    }
    const bool valid = time.year >= 1 && time.month >= 1 && time.month <= 12 && time.day >= 1 &&
                       time.day <= 31 && time.hour >= 0 && time.hour <= 23 && time.minute >= 0 &&
                       time.minute <= 59 && time.second >= 0 && time.second <= 60;
    return valid ? std::optional(time) : std::nullopt;
}

PhotoFacts ReadPhotoFacts(const std::string& path) {
    PhotoFacts facts;
    exivruntime::EnsureStarted();
    // Exiv2 reports damage as Exiv2::Error and overflowing offsets as
    // standard exceptions: either way the file names nothing.
    try {
        // The worker reads its source by the descriptor's name, which Exiv2
        // would open anew (refused by its sandbox): OpenFile maps it.
        exivruntime::SourceBytes bytes;
        const std::unique_ptr<Exiv2::Image> image = exivruntime::OpenFile(path, bytes);
        image->readMetadata();
        const Exiv2::ExifData& exif = image->exifData();
        facts.taken = ExifCalendarTime(ExifText(exif, "Exif.Photo.DateTimeOriginal"));
        facts.camera = ExifText(exif, "Exif.Image.Model");
    } catch (const std::exception&) {
        facts = {};
    }
    if (!facts.taken) {
        facts.taken = ModificationTime(path);
    }
    return facts;
}

}  // namespace vellumo
