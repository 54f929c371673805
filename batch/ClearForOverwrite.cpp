#include "batch/ClearForOverwrite.h"

#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace vellumo {

std::string ClearForOverwrite(const std::string& path) {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::file_status status = fs::symlink_status(path, error);
    if (error || !fs::exists(status)) {
        return {};
    }
    if (fs::is_directory(status)) {
        if (!fs::remove(path, error) || error) {
            return "could not remove " + path + ": " +
                   (error ? error.message() : std::string("not removed"));
        }
        return {};
    }
    fs::path folder = fs::path(path).parent_path();
    if (folder.empty()) {
        folder = ".";
    }
    if (::access(folder.c_str(), W_OK | X_OK) != 0) {
        return "could not remove " + path + ": " + std::generic_category().message(errno);
    }
    return {};
}

}  // namespace vellumo
