#pragma once

// Inside the core only: what a photo says about itself that an output's
// name may be made of: when it was taken and with what camera. Read with
// Exiv2 from the file, so only where decoding is allowed (the worker
// process): the file may be hostile.

#include <optional>
#include <string>

namespace vellumo {

// A moment as a camera records it: a local date and time of day, no zone.
struct CalendarTime {
    int year = 1970;
    int month = 1;  // 1 to 12
    int day = 1;    // 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0;

    friend bool operator==(const CalendarTime&, const CalendarTime&) = default;
};

struct PhotoFacts {
    // Exif DateTimeOriginal, else the file's modification time in local
    // time; nothing when neither can be read.
    std::optional<CalendarTime> taken;
    // Exif Model, trimmed; empty when the file names none.
    std::string camera;

    friend bool operator==(const PhotoFacts&, const PhotoFacts&) = default;
};

// The facts of the file at `path`. Never throws: damaged metadata reads as
// absent.
PhotoFacts ReadPhotoFacts(const std::string& path);

// "2024:05:17 14:03:09", as Exif writes dates; nothing for anything else
// (a blank date, "0000:00:00 00:00:00", fields out of range).
std::optional<CalendarTime> ExifCalendarTime(const std::string& text);

}  // namespace vellumo
