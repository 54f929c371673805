#pragma once

// The output folder, checked and made before a job writes into it.

#include <string>

#include "imaging/SaveResult.h"

namespace vellumo {

enum class FolderState {
    Exists,      // a folder (or a link to one)
    Missing,     // nothing there yet: it can be made
    NotAFolder,  // a file, or something else that is no folder, is in the way
};

FolderState OutputFolderState(const std::string& folder);

// "The folder /x does not exist. Create it?"
std::string CreateFolderQuestion(const std::string& folder);
// "The output folder /x is a file, not a folder."
std::string NotAFolderNotice(const std::string& folder);

// Makes the folder with every missing parent; the reason when it cannot
// ("permission denied", "/a/b is a file, not a folder").
SaveResult CreateOutputFolder(const std::string& folder);

}  // namespace vellumo
