#include "batch/OutputFolder.h"

#include <filesystem>
#include <system_error>

#include "imaging/FileErrors.h"

namespace vellumo {

namespace fs = std::filesystem;

FolderState OutputFolderState(const std::string& folder) {
    std::error_code error;
    const fs::file_status status = fs::status(folder, error);
    if (fs::is_directory(status)) {
        return FolderState::Exists;
    }
    if (status.type() == fs::file_type::not_found) {
        return FolderState::Missing;
    }
    return FolderState::NotAFolder;
}

std::string CreateFolderQuestion(const std::string& folder) {
    return "The folder " + folder + " does not exist. Create it?";
}

std::string NotAFolderNotice(const std::string& folder) {
    return "The output folder " + folder + " is a file, not a folder.";
}

SaveResult CreateOutputFolder(const std::string& folder) {
    // The nearest part of the path that exists must be a folder.
    fs::path existing = fs::path(folder).lexically_normal();
    std::error_code error;
    while (!existing.empty() && !fs::exists(fs::symlink_status(existing, error))) {
        existing = existing.parent_path();
    }
    if (!existing.empty() && !fs::is_directory(existing, error)) {
        return SaveResult::Failed(existing.string() + " is a file, not a folder");
    }
    fs::create_directories(folder, error);
    if (error && !fs::is_directory(folder)) {
        return SaveResult::Failed(ReasonFromErrno(error.value()));
    }
    return SaveResult::Saved();
}

}  // namespace vellumo
