#include "batch/InputFolders.h"

#include <sys/stat.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

#include "imaging/Formats.h"

namespace vellumo {

namespace fs = std::filesystem;

namespace {

// A folder by device and inode: the same folder however it is reached.
using FolderId = std::pair<dev_t, ino_t>;

class FolderWalk {
  public:
    FolderWalk(WalkedInputs& out, bool recursive) : out_(out), recursive_(recursive) {}

    void Walk(const fs::path& folder) {
        struct stat status {};
        if (::stat(folder.c_str(), &status) != 0) {
            return;
        }
        const FolderId id{status.st_dev, status.st_ino};
        // Only the folders above this one count: a folder reached twice by
        // two links side by side is walked twice, as the person linked it.
        if (!above_.insert(id).second) {
            ++out_.loopsSkipped;
            return;
        }
        std::vector<std::string> files;
        std::vector<std::string> folders;
        if (List(folder, files, folders)) {
            for (const std::string& file : files) {
                out_.images.push_back((folder / file).string());
            }
            for (const std::string& sub : folders) {
                Walk(folder / sub);
            }
        }
        above_.erase(id);
    }

  private:
    bool List(const fs::path& folder, std::vector<std::string>& files,
              std::vector<std::string>& folders) {
        std::error_code error;
        fs::directory_iterator it(folder, error);
        for (; !error && it != fs::directory_iterator(); it.increment(error)) {
            const std::string name = it->path().filename().string();
            if (name.starts_with('.')) {
                ++out_.hiddenSkipped;
                continue;
            }
            std::error_code kindError;
            if (it->is_directory(kindError)) {
                if (recursive_) {
                    folders.push_back(name);
                }
            } else if (InputExtensionOfPath(name) != nullptr) {
                files.push_back(name);
            } else {
                ++out_.nonImagesSkipped;
            }
        }
        if (error) {
            out_.unread.push_back({folder.string(), error.message()});
            return false;
        }
        std::sort(files.begin(), files.end(), ReadingOrderLess);
        std::sort(folders.begin(), folders.end(), ReadingOrderLess);
        return true;
    }

    WalkedInputs& out_;
    bool recursive_;
    std::set<FolderId> above_;
};

// The run of digits starting at `at`, without its leading zeros.
std::string_view DigitsAt(std::string_view text, std::size_t at, std::size_t& end) {
    end = at;
    while (end < text.size() && std::isdigit(static_cast<unsigned char>(text[end])) != 0) {
        ++end;
    }
    std::string_view digits = text.substr(at, end - at);
    while (digits.size() > 1 && digits.front() == '0') {
        digits.remove_prefix(1);
    }
    return digits;
}

fs::path Absolute(const std::string& path) {
    std::error_code error;
    fs::path absolute = fs::absolute(path, error);
    return (error ? fs::path(path) : absolute).lexically_normal();
}

// True when `folder` (absolute, normal) holds `path` somewhere below it.
bool Holds(const fs::path& folder, const fs::path& path) {
    const fs::path relative = path.lexically_relative(folder);
    return !relative.empty() && *relative.begin() != "..";
}

}  // namespace

bool ReadingOrderLess(const std::string& a, const std::string& b) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        const bool digitA = std::isdigit(static_cast<unsigned char>(a[i])) != 0;
        const bool digitB = std::isdigit(static_cast<unsigned char>(b[j])) != 0;
        if (digitA && digitB) {
            std::size_t endA = 0;
            std::size_t endB = 0;
            const std::string_view numberA = DigitsAt(a, i, endA);
            const std::string_view numberB = DigitsAt(b, j, endB);
            if (numberA.size() != numberB.size()) {
                return numberA.size() < numberB.size();
            }
            if (numberA != numberB) {
                return numberA < numberB;
            }
            i = endA;
            j = endB;
            continue;
        }
        if (a[i] != b[j]) {
            return static_cast<unsigned char>(a[i]) < static_cast<unsigned char>(b[j]);
        }
        ++i;
        ++j;
    }
    // Equal by value ("01" and "1"): by the text, so that the order is total.
    return a.size() - i != b.size() - j ? a.size() - i < b.size() - j : a < b;
}

WalkedInputs WalkInputs(const std::vector<std::string>& paths, bool recursive) {
    WalkedInputs out;
    std::vector<std::string> folders;
    for (const std::string& path : paths) {
        std::error_code error;
        if (fs::is_directory(path, error)) {
            folders.push_back(path);
        } else {
            out.images.push_back(path);
        }
    }
    for (const std::string& folder : folders) {
        out.roots.push_back(folder);
        FolderWalk walk(out, recursive);
        walk.Walk(fs::path(folder));
    }
    return out;
}

std::string SharedFolder(const std::vector<std::string>& images) {
    if (images.empty()) {
        return {};
    }
    fs::path shared = Absolute(images.front()).parent_path();
    for (const std::string& image : images) {
        const fs::path absolute = Absolute(image);
        while (!shared.empty() && shared != shared.root_path() && !Holds(shared, absolute)) {
            shared = shared.parent_path();
        }
    }
    return shared.string();
}

std::string FolderBelowRoots(const std::string& image, const std::vector<std::string>& roots) {
    const fs::path absolute = Absolute(image);
    fs::path deepest;
    for (const std::string& root : roots) {
        const fs::path folder = Absolute(root);
        if (Holds(folder, absolute) && std::distance(folder.begin(), folder.end()) >
                                           std::distance(deepest.begin(), deepest.end())) {
            deepest = folder;
        }
    }
    if (deepest.empty()) {
        return {};
    }
    const fs::path below = absolute.parent_path().lexically_relative(deepest);
    return below == "." ? std::string() : below.string();
}

}  // namespace vellumo
