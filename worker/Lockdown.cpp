#include "worker/Lockdown.h"

#include <dirent.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "worker/Landlock.h"
#include "worker/SeccompFilter.h"

namespace vellumo {

namespace {

// Enough for the socket, the files of one request and what a decoder
// opens of its own (libraries, configuration).
constexpr rlim_t kDescriptors = 64;
// The worker writes one file: the output the engine made for it (and, for a
// named pipe in the list, its copy in memory). The limit lets through the
// largest output an image under the pixel limit can give (1,000 megapixels
// of 16-bit RGBA, uncompressed: 8 GB) and stops a runaway decoder filling
// the disk through it.
constexpr rlim_t kFileSize = 16ull * 1024 * 1024 * 1024;

SandboxLayer NoNewPrivileges() {
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) {
        return {"no-new-privileges", false, std::strerror(errno)};
    }
    return {"no-new-privileges", true, "set-user-id programs give no privileges"};
}

SandboxLayer CloseDescriptors(int socket) {
    // Gathered first: closing while reading the folder would close its own.
    std::vector<int> open;
    if (DIR* folder = opendir("/proc/self/fd")) {
        while (const dirent* entry = readdir(folder)) {
            if (entry->d_name[0] != '.') {
                open.push_back(std::atoi(entry->d_name));
            }
        }
        closedir(folder);
    } else {
        return {"descriptors", false, std::string("/proc/self/fd: ") + std::strerror(errno)};
    }
    for (const int fd : open) {
        if (fd > STDERR_FILENO && fd != socket) {
            close(fd);  // the folder's own descriptor is gone already: EBADF
        }
    }
    return {"descriptors", true,
            "all closed but the engine's socket (standard streams are /dev/null)"};
}

SandboxLayer EmptyEnvironment() {
    if (clearenv() != 0) {
        return {"environment", false, "could not be cleared"};
    }
    return {"environment", true, "empty"};
}

SandboxLayer Limits(std::uint64_t addressSpace) {
    const rlimit noCore{0, 0};
    const rlimit descriptors{kDescriptors, kDescriptors};
    const rlimit fileSize{kFileSize, kFileSize};
    bool set = setrlimit(RLIMIT_CORE, &noCore) == 0 &&
               setrlimit(RLIMIT_NOFILE, &descriptors) == 0 &&
               setrlimit(RLIMIT_FSIZE, &fileSize) == 0;
    if (addressSpace > 0) {
        const rlimit space{addressSpace, addressSpace};
        set = setrlimit(RLIMIT_AS, &space) == 0 && set;
    }
    if (!set) {
        return {"limits", false, std::strerror(errno)};
    }
    return {"limits", true,
            "no core files, " + std::to_string(kDescriptors) + " descriptors, files up to " +
                std::to_string(kFileSize >> 30) + " GB, address space " +
                (addressSpace > 0 ? std::to_string(addressSpace >> 20) + " MB"
                                  : std::string("not limited (sanitizer build)"))};
}

SandboxLayer LeftOut(const std::string& name) {
    return {name, false, "left out on request (VELLUMO_SANDBOX_SKIP)"};
}

}  // namespace

SandboxStatus LockDown(const LockdownChoices& choices) {
    const auto layer = [&](const std::string& name, auto&& make) {
        return choices.skip.count(name) != 0 ? LeftOut(name) : make();
    };
    SandboxStatus status;
    status.push_back(layer("no-new-privileges", [] { return NoNewPrivileges(); }));
    status.push_back(layer("descriptors", [&] { return CloseDescriptors(choices.socket); }));
    status.push_back(layer("environment", [] { return EmptyEnvironment(); }));
    status.push_back(layer("limits", [&] { return Limits(choices.addressSpace); }));
    const bool noNewPrivileges = status.front().active;
    const auto needsNoNewPrivileges = [&](const std::string& name, auto&& make) {
        if (!noNewPrivileges && choices.skip.count(name) == 0) {
            return SandboxLayer{name, false, "needs no-new-privileges, which is missing"};
        }
        return layer(name, make);
    };
    status.push_back(needsNoNewPrivileges("landlock", [] { return landlock::Restrict(); }));
    status.push_back(needsNoNewPrivileges("seccomp", [] { return seccompfilter::Install(); }));
    return status;
}

}  // namespace vellumo
