#include "tests/support/WorkerWatch.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

namespace vellumo::test {

namespace {

namespace fs = std::filesystem;

// The parent of `pid` (field 4 of /proc/PID/stat), or 0.
pid_t ParentOf(pid_t pid) {
    std::ifstream stat("/proc/" + std::to_string(pid) + "/stat");
    std::string text((std::istreambuf_iterator<char>(stat)), std::istreambuf_iterator<char>());
    const auto end = text.rfind(')');
    if (end == std::string::npos) {
        return 0;
    }
    char state = 0;
    long parent = 0;
    std::sscanf(text.c_str() + end + 1, " %c %ld", &state, &parent);
    return static_cast<pid_t>(parent);
}

bool Descends(pid_t pid, pid_t ancestor) {
    for (int depth = 0; depth < 8 && pid > 1; ++depth) {
        pid = ParentOf(pid);
        if (pid == ancestor) {
            return true;
        }
    }
    return false;
}

bool WritesOutput(pid_t pid) {
    std::error_code error;
    const fs::path fds = "/proc/" + std::to_string(pid) + "/fd";
    for (const auto& entry : fs::directory_iterator(fds, error)) {
        const fs::path target = fs::read_symlink(entry.path(), error);
        const std::string name = target.filename().string();
        if (error || name.rfind(".vellumo-", 0) != 0 || target.extension() != ".tmp") {
            continue;
        }
        struct stat status {};
        if (stat(entry.path().c_str(), &status) == 0 && status.st_size > 0) {
            return true;
        }
    }
    return false;
}

bool RunsWorker(pid_t pid) {
    std::ifstream comm("/proc/" + std::to_string(pid) + "/comm");
    std::string name;
    std::getline(comm, name);
    return name == "vellumo-worker";
}

// The descendants of `ancestor` for which `wanted` holds, in /proc's order.
template <typename Wanted>
std::vector<pid_t> Descendants(pid_t ancestor, Wanted wanted) {
    std::vector<pid_t> found;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator("/proc", error)) {
        const std::string name = entry.path().filename().string();
        if (name.find_first_not_of("0123456789") != std::string::npos) {
            continue;
        }
        const pid_t pid = static_cast<pid_t>(std::stol(name));
        if (Descends(pid, ancestor) && wanted(pid)) {
            found.push_back(pid);
        }
    }
    return found;
}

}  // namespace

std::vector<pid_t> WorkersWriting(pid_t ancestor) {
    return Descendants(ancestor == 0 ? getpid() : ancestor, WritesOutput);
}

std::vector<pid_t> Workers() {
    std::vector<pid_t> workers = Descendants(getpid(), RunsWorker);
    std::sort(workers.begin(), workers.end());
    return workers;
}

}  // namespace vellumo::test
