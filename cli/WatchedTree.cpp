#include "cli/WatchedTree.h"

#include <filesystem>
#include <iostream>
#include <system_error>

#include "imaging/Formats.h"

namespace vellumo::cli {

namespace fs = std::filesystem;

WatchedTree::WatchedTree(FolderWatch watch, std::string root, std::string excluded, bool recursive)
    : watch_(std::move(watch)),
      root_(std::move(root)),
      excluded_(std::move(excluded)),
      recursive_(recursive) {}

bool WatchedTree::Start(ArrivingFiles& files, std::string& reason) {
    return Look(root_, files, reason);
}

bool WatchedTree::Wanted(const std::string& path) const {
    const std::string name = fs::path(path).filename().string();
    return !name.empty() && name[0] != '.' && path != excluded_;
}

// Watches the folder first, then lists it: a file arriving in between is
// both listed and told of, and ArrivingFiles keeps it once.
bool WatchedTree::Look(const std::string& folder, ArrivingFiles& files, std::string& reason) {
    if (!watch_.Add(folder, reason)) {
        return reason.empty();  // watched already: reached again through a link
    }
    return List(folder, files, reason);
}

bool WatchedTree::List(const std::string& folder, ArrivingFiles& files, std::string& reason) {
    std::error_code error;
    fs::directory_iterator entries(folder, error);
    if (error) {
        reason = error.message();
        return false;
    }
    const auto now = ArrivingFiles::Clock::now();
    for (; entries != fs::directory_iterator(); entries.increment(error)) {
        const std::string path = entries->path().string();
        if (!Wanted(path)) {
            continue;
        }
        std::error_code kindError;
        if (entries->is_directory(kindError)) {
            std::string why;
            if (recursive_ && !Look(path, files, why)) {
                std::cerr << "vellumo-cli: watch: cannot watch the folder " << path << ": " << why
                          << std::endl;
            }
        } else if (InputExtensionOfPath(path) != nullptr) {
            files.Found(path, now);
        }
    }
    return true;
}

bool WatchedTree::Follow(ArrivingFiles& files) {
    using Kind = FolderEvent::Kind;
    for (const FolderEvent& event : watch_.Take()) {
        if (event.kind == Kind::WatchedGone) {
            return false;
        }
        if (event.kind == Kind::Overflow) {
            // Every watched folder is listed again; what settled is found.
            for (const std::string& folder : watch_.Folders()) {
                std::string ignored;
                List(folder, files, ignored);
            }
            continue;
        }
        if (!Wanted(event.path)) {
            continue;
        }
        std::string why;
        if (event.kind == Kind::FolderAppeared) {
            if (recursive_ && !Look(event.path, files, why) && !why.empty()) {
                std::cerr << "vellumo-cli: watch: cannot watch the folder " << event.path << ": "
                          << why << std::endl;
            }
            continue;
        }
        if (InputExtensionOfPath(event.path) == nullptr) {
            continue;
        }
        switch (event.kind) {
            case Kind::FileComplete:
                files.Complete(event.path);
                break;
            case Kind::FileChanging:
                files.Changing(event.path);
                break;
            default:
                files.Gone(event.path);
                break;
        }
    }
    return true;
}

}  // namespace vellumo::cli
