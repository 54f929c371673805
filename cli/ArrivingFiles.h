#pragma once

// The files of a watched folder on their way to being cropped: each is
// handed over once it is complete. A file the kernel saw being written is
// complete when its writer closes it (or when it is renamed in whole); one
// found already there (when the watch starts, in a folder moved in, after
// lost events) when its size and modification time are the same at two
// looks a second apart, since nobody told of its writing.

#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace vellumo::cli {

class ArrivingFiles {
  public:
    using Clock = std::chrono::steady_clock;

    // Found by a look at its folder: complete once its size stays.
    void Found(const std::string& path, Clock::time_point now);
    // Being written: complete only when closed.
    void Changing(const std::string& path);
    // Closed after writing, or moved in whole.
    void Complete(const std::string& path);
    // Deleted or moved away: nothing to hand over.
    void Gone(const std::string& path);

    // The files complete by `now`, in reading order, each handed over once
    // (until it is written again).
    std::vector<std::string> TakeComplete(Clock::time_point now);

    bool Waiting() const { return !files_.empty(); }

  private:
    enum class State { Settling, Writing, Complete };
    struct File {
        State state = State::Settling;
        long long size = -1;
        long long modifiedNs = -1;
        Clock::time_point lastLook;
    };
    std::map<std::string, File> files_;
};

}  // namespace vellumo::cli
