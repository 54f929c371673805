#include "imaging/FileDates.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <time.h>

#include <cerrno>

#if defined(__APPLE__)
#include <sys/attr.h>
#include <unistd.h>
#elif !defined(__linux__)
#error "Creation dates are read and set for Linux and macOS only"
#endif

namespace vellumo::filedates {

namespace {

TimePoint FromPosixTime(long long seconds, long long nanoseconds) {
    return TimePoint(std::chrono::duration_cast<TimePoint::duration>(
        std::chrono::seconds(seconds) + std::chrono::nanoseconds(nanoseconds)));
}

timespec ToPosixTime(TimePoint date) {
    const auto since =
        std::chrono::duration_cast<std::chrono::nanoseconds>(date.time_since_epoch());
    // Floor, so that dates before 1970 keep 0 <= tv_nsec < 1e9.
    const auto seconds = std::chrono::floor<std::chrono::seconds>(since);
    timespec result{};
    result.tv_sec = static_cast<time_t>(seconds.count());
    result.tv_nsec = static_cast<long>((since - seconds).count());
    return result;
}

}  // namespace

#if defined(__linux__)

std::optional<TimePoint> CreationDate(const std::string& path) {
    struct statx info {};
    if (statx(AT_FDCWD, path.c_str(), AT_STATX_SYNC_AS_STAT, STATX_BTIME | STATX_MTIME, &info) ==
        0) {
        if ((info.stx_mask & STATX_BTIME) != 0) {
            return FromPosixTime(info.stx_btime.tv_sec, info.stx_btime.tv_nsec);
        }
        return FromPosixTime(info.stx_mtime.tv_sec, info.stx_mtime.tv_nsec);
    }
    if (errno != ENOSYS) {
        return std::nullopt;
    }
    // A kernel without statx: no birth times at all.
    struct stat plain {};
    if (stat(path.c_str(), &plain) != 0) {
        return std::nullopt;
    }
    return FromPosixTime(plain.st_mtim.tv_sec, plain.st_mtim.tv_nsec);
}

bool SetCreationDate(const std::string& path, TimePoint date) {
    const timespec times[2] = {{0, UTIME_OMIT}, ToPosixTime(date)};
    return utimensat(AT_FDCWD, path.c_str(), times, 0) == 0;
}

#elif defined(__APPLE__)

std::optional<TimePoint> CreationDate(const std::string& path) {
    struct stat info {};
    if (stat(path.c_str(), &info) != 0) {
        return std::nullopt;
    }
    return FromPosixTime(info.st_birthtimespec.tv_sec, info.st_birthtimespec.tv_nsec);
}

bool SetCreationDate(const std::string& path, TimePoint date) {
    attrlist attributes{};
    attributes.bitmapcount = ATTR_BIT_MAP_COUNT;
    attributes.commonattr = ATTR_CMN_CRTIME;
    timespec birth = ToPosixTime(date);
    return setattrlist(path.c_str(), &attributes, &birth, sizeof birth, 0) == 0;
}

#endif

}  // namespace vellumo::filedates
