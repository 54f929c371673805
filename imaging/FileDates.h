#pragma once

// Inside the core only: a file's creation date, read and carried over.

#include <chrono>
#include <optional>
#include <string>

namespace vellumo::filedates {

using TimePoint = std::chrono::system_clock::time_point;

// When the file was made: its birth time where the file system records one,
// else its last modification time. Nothing when the file's attributes
// cannot be read (it does not exist, or its folder cannot be searched).
std::optional<TimePoint> CreationDate(const std::string& path);

// Gives the file `date` as its creation date, to the nanosecond where the
// file system keeps that much. On macOS that is its birth time. Linux file
// systems let no one set a birth time, so there the modification time
// carries the date, which is what file managers show and sort by. False
// when the date could not be set.
bool SetCreationDate(const std::string& path, TimePoint date);

}  // namespace vellumo::filedates
