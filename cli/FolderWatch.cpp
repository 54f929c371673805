#include "cli/FolderWatch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace vellumo::cli {

namespace {

constexpr std::uint32_t kMask = IN_CLOSE_WRITE | IN_MOVED_TO | IN_CREATE | IN_MODIFY | IN_DELETE |
                                IN_MOVED_FROM | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;

}  // namespace

std::optional<FolderWatch> FolderWatch::Open(std::string& reason) {
    const int fd = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (fd < 0) {
        reason = std::strerror(errno);
        return std::nullopt;
    }
    return FolderWatch(fd);
}

FolderWatch::FolderWatch(FolderWatch&& other) noexcept
    : fd_(other.fd_), rootWatch_(other.rootWatch_), folders_(std::move(other.folders_)) {
    other.fd_ = -1;
}

FolderWatch& FolderWatch::operator=(FolderWatch&& other) noexcept {
    if (this != &other) {
        if (fd_ >= 0) {
            close(fd_);
        }
        fd_ = other.fd_;
        rootWatch_ = other.rootWatch_;
        folders_ = std::move(other.folders_);
        other.fd_ = -1;
    }
    return *this;
}

FolderWatch::~FolderWatch() {
    if (fd_ >= 0) {
        close(fd_);
    }
}

bool FolderWatch::Add(const std::string& folder, std::string& reason) {
    reason.clear();
    const int wd = inotify_add_watch(fd_, folder.c_str(), kMask);
    if (wd < 0) {
        reason = std::strerror(errno);
        if (errno == ENOSPC) {
            reason += " (raise fs.inotify.max_user_watches)";
        }
        return false;
    }
    // The same folder reached again (through a link) gives the same watch.
    if (!folders_.emplace(wd, folder).second) {
        return false;
    }
    if (rootWatch_ < 0) {
        rootWatch_ = wd;
    }
    return true;
}

std::vector<std::string> FolderWatch::Folders() const {
    std::vector<std::string> folders;
    for (const auto& watched : folders_) {
        folders.push_back(watched.second);
    }
    return folders;
}

std::vector<FolderEvent> FolderWatch::Take() {
    std::vector<FolderEvent> events;
    alignas(::inotify_event) char buffer[64 * 1024];
    for (;;) {
        const ssize_t length = read(fd_, buffer, sizeof buffer);
        if (length <= 0) {
            break;  // EAGAIN: nothing more waits
        }
        for (ssize_t at = 0; at < length;) {
            const auto* event = reinterpret_cast<const ::inotify_event*>(buffer + at);
            Translate(*event, events);
            at += static_cast<ssize_t>(sizeof(::inotify_event) + event->len);
        }
    }
    return events;
}

void FolderWatch::Translate(const ::inotify_event& event, std::vector<FolderEvent>& events) {
    using Kind = FolderEvent::Kind;
    if ((event.mask & IN_Q_OVERFLOW) != 0) {
        events.push_back({Kind::Overflow, {}});
        return;
    }
    const auto folder = folders_.find(event.wd);
    if (folder == folders_.end()) {
        return;
    }
    if ((event.mask & (IN_DELETE_SELF | IN_MOVE_SELF)) != 0 && event.wd == rootWatch_) {
        events.push_back({Kind::WatchedGone, folder->second});
        return;
    }
    if ((event.mask & IN_IGNORED) != 0) {
        folders_.erase(folder);  // a subfolder removed: its watch is gone
        return;
    }
    if (event.len == 0) {
        return;
    }
    const std::string path = folder->second + "/" + event.name;
    if ((event.mask & IN_ISDIR) != 0) {
        if ((event.mask & (IN_CREATE | IN_MOVED_TO)) != 0) {
            events.push_back({Kind::FolderAppeared, path});
        }
    } else if ((event.mask & (IN_CLOSE_WRITE | IN_MOVED_TO)) != 0) {
        events.push_back({Kind::FileComplete, path});
    } else if ((event.mask & (IN_CREATE | IN_MODIFY)) != 0) {
        events.push_back({Kind::FileChanging, path});
    } else if ((event.mask & (IN_DELETE | IN_MOVED_FROM)) != 0) {
        events.push_back({Kind::FileGone, path});
    }
}

}  // namespace vellumo::cli
