#pragma once

// What happens in a tree of folders, told by the kernel: plain inotify,
// through a small class of its own. GLib's GFileMonitor (glib is linked
// through libvips) was the other choice; it wants a GMainLoop turning, and
// it reports a file's end of writing only as a "changes done" hint that it
// may also send on a timer while the writer still holds the file open.
// inotify's IN_CLOSE_WRITE is the writer's close itself, IN_MOVED_TO a file
// renamed in whole; Vellumo runs only on Linux (its workers' sandbox is
// Landlock and seccomp), so nothing is lost by using it directly.

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

struct inotify_event;

namespace vellumo::cli {

struct FolderEvent {
    enum class Kind {
        FileComplete,    // closed after writing, or moved in whole
        FileChanging,    // made or written to, still open
        FileGone,        // deleted or moved away
        FolderAppeared,  // a subfolder made or moved in
        WatchedGone,     // the folder given itself was deleted or moved away
        Overflow,        // events were lost: look at every folder again
    };
    Kind kind = Kind::FileComplete;
    std::string path;  // the file or folder (empty for Overflow)
};

class FolderWatch {
  public:
    // Nothing, with `reason` set, when inotify cannot be had.
    static std::optional<FolderWatch> Open(std::string& reason);

    FolderWatch(FolderWatch&& other) noexcept;
    FolderWatch& operator=(FolderWatch&& other) noexcept;
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;
    ~FolderWatch();

    // Watches `folder` (not its subfolders: add each). The first folder
    // added is the one whose own removal is WatchedGone. False when the
    // folder is watched already (a link back to one above: `reason` empty)
    // or cannot be (`reason` says why).
    bool Add(const std::string& folder, std::string& reason);

    // For poll(): readable when events wait.
    int Descriptor() const { return fd_; }

    // The folders watched now.
    std::vector<std::string> Folders() const;

    // The events waiting now, in order; none when none wait.
    std::vector<FolderEvent> Take();

  private:
    explicit FolderWatch(int fd) : fd_(fd) {}
    void Translate(const ::inotify_event& event, std::vector<FolderEvent>& events);

    int fd_ = -1;
    int rootWatch_ = -1;
    std::unordered_map<int, std::string> folders_;  // by watch descriptor
};

}  // namespace vellumo::cli
