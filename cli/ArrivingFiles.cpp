#include "cli/ArrivingFiles.h"

#include <sys/stat.h>

#include <algorithm>

#include "batch/InputFolders.h"

namespace vellumo::cli {

namespace {

// Two looks at least this far apart see a settled file.
constexpr auto kSettleTime = std::chrono::seconds(1);

}  // namespace

void ArrivingFiles::Found(const std::string& path, Clock::time_point now) {
    const auto [at, added] = files_.try_emplace(path);
    if (added) {
        at->second.lastLook = now - kSettleTime;  // looked at on the next turn
    }
}

void ArrivingFiles::Changing(const std::string& path) {
    files_[path].state = State::Writing;
}

void ArrivingFiles::Complete(const std::string& path) {
    files_[path].state = State::Complete;
}

void ArrivingFiles::Gone(const std::string& path) {
    files_.erase(path);
}

std::vector<std::string> ArrivingFiles::TakeComplete(Clock::time_point now) {
    std::vector<std::string> complete;
    for (auto at = files_.begin(); at != files_.end();) {
        File& file = at->second;
        if (file.state == State::Settling && now - file.lastLook >= kSettleTime) {
            struct stat facts {};
            if (stat(at->first.c_str(), &facts) != 0) {
                at = files_.erase(at);  // gone before it settled
                continue;
            }
            const long long modifiedNs =
                facts.st_mtim.tv_sec * 1000000000LL + facts.st_mtim.tv_nsec;
            if (facts.st_size == file.size && modifiedNs == file.modifiedNs) {
                file.state = State::Complete;
            }
            file.size = facts.st_size;
            file.modifiedNs = modifiedNs;
            file.lastLook = now;
        }
        if (file.state == State::Complete) {
            complete.push_back(at->first);
            at = files_.erase(at);
        } else {
            ++at;
        }
    }
    std::sort(complete.begin(), complete.end(), ReadingOrderLess);
    return complete;
}

}  // namespace vellumo::cli
