#include "imaging/FileErrors.h"

#include <cctype>
#include <cerrno>
#include <system_error>

namespace vellumo {

std::string ReasonFromErrno(int error) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
            return "the folder does not exist";
        case EACCES:
        case EPERM:
            return "permission denied";
        case ENOSPC:
        case EDQUOT:
            return "no space left on device";
        case EROFS:
            return "the disk is read-only";
        case EISDIR:
            return "a folder has that name";
        case EFBIG:
            return "the file is too large";
        case ENAMETOOLONG:
            return "the file name is too long";
        default:
            break;
    }
    std::string text = std::system_category().message(error);
    if (!text.empty()) {
        text[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(text[0])));
    }
    return text;
}

std::string ReasonFromSystemErrorText(const std::string& text) {
    for (const int error : {ENOSPC, EDQUOT, EFBIG, EACCES, EPERM, EROFS, EIO}) {
        if (text.find(std::system_category().message(error)) != std::string::npos) {
            return ReasonFromErrno(error);
        }
    }
    return {};
}

}  // namespace vellumo
