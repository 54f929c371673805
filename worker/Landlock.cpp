#include "worker/Landlock.h"

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>

namespace vellumo::landlock {

namespace {

// The distribution's headers may know fewer rights than the running kernel
// (Debian 12's know ABI 2): what later ABIs add is declared here, and the
// larger attribute is passed only to a kernel that has it.
constexpr std::uint64_t kReadFile = 1ull << 2;
constexpr std::uint64_t kReadDir = 1ull << 3;
constexpr std::uint64_t kRightsOfAbi1 = (1ull << 13) - 1;  // EXECUTE .. MAKE_SYM
constexpr std::uint64_t kRefer = 1ull << 13;               // ABI 2
constexpr std::uint64_t kTruncate = 1ull << 14;            // ABI 3
constexpr std::uint64_t kIoctlDev = 1ull << 15;            // ABI 5
constexpr std::uint64_t kBindTcp = 1ull << 0;              // ABI 4, network
constexpr std::uint64_t kConnectTcp = 1ull << 1;           // ABI 4, network
constexpr std::uint64_t kScopeAbstractUnix = 1ull << 0;    // ABI 6
constexpr std::uint64_t kScopeSignal = 1ull << 1;          // ABI 6
constexpr std::uint32_t kVersionFlag = 1u << 0;            // CREATE_RULESET_VERSION
constexpr std::uint32_t kRuleBeneath = 1;                  // RULE_PATH_BENEATH

struct RulesetAttr {
    std::uint64_t handledFs;
    std::uint64_t handledNet;  // ABI 4
    std::uint64_t scoped;      // ABI 6
};

struct __attribute__((packed)) BeneathAttr {
    std::uint64_t allowed;
    std::int32_t parentFd;
};

std::uint64_t FileSystemRights(int abi) {
    std::uint64_t rights = kRightsOfAbi1;
    if (abi >= 2)
        rights |= kRefer;
    if (abi >= 3)
        rights |= kTruncate;
    if (abi >= 5)
        rights |= kIoctlDev;
    return rights;
}

// Read-only below `path` (or of the file `path`): false only on a failure
// other than the path's absence (a folder this system does not have).
bool AllowReading(int ruleset, const char* path) {
    const int fd = open(path, O_PATH | O_CLOEXEC);
    if (fd < 0) {
        return true;
    }
    struct stat status {};
    fstat(fd, &status);
    BeneathAttr rule{S_ISDIR(status.st_mode) ? kReadFile | kReadDir : kReadFile, fd};
    const long added = syscall(SYS_landlock_add_rule, ruleset, kRuleBeneath, &rule, 0);
    close(fd);
    return added == 0;
}

// What the decoders read once the worker is locked down: shared libraries
// and libvips' modules (/usr, /lib*), ImageMagick's and fontconfig's
// configuration, the dynamic loader's cache and the time zone (from /etc,
// those only), colour profiles (/usr/share/color), the number of processors
// (/sys's cpu folder), randomness (/dev/urandom), and /proc/self, where the
// sanitizers' runtimes read their own mappings. Nothing of anyone's files.
constexpr const char* kReadable[] = {"/usr",
                                     "/lib",
                                     "/lib64",
                                     "/etc/ImageMagick-6",
                                     "/etc/ImageMagick-7",
                                     "/etc/fonts",
                                     "/etc/ld.so.cache",
                                     "/etc/localtime",
                                     "/proc/self",
                                     "/sys/devices/system/cpu",
                                     "/dev/urandom",
                                     "/dev/null"};

std::string Describe(int abi) {
    std::string text = "ABI " + std::to_string(abi) +
                       ": reading only below /usr, /lib, ImageMagick's and fontconfig's /etc "
                       "folders, /proc/self; nothing writable";
    text += abi >= 4 ? "; no TCP bind or connect" : "; TCP not restricted (ABI < 4)";
    text += abi >= 6 ? "; abstract sockets and signals scoped to the worker"
                     : "; signals not scoped (ABI < 6)";
    return text;
}

}  // namespace

SandboxLayer Restrict() {
    SandboxLayer layer{"landlock", false, {}};
    const long abi = syscall(SYS_landlock_create_ruleset, nullptr, 0, kVersionFlag);
    if (abi < 1) {
        layer.detail = errno == ENOSYS       ? "the kernel has no Landlock (Linux 5.13 or later)"
                       : errno == EOPNOTSUPP ? "Landlock is turned off in this kernel"
                                             : std::string("Landlock: ") + std::strerror(errno);
        return layer;
    }
    RulesetAttr attr{FileSystemRights(static_cast<int>(abi)), 0, 0};
    std::size_t size = sizeof attr.handledFs;
    if (abi >= 4) {
        attr.handledNet = kBindTcp | kConnectTcp;
        size += sizeof attr.handledNet;
    }
    if (abi >= 6) {
        attr.scoped = kScopeAbstractUnix | kScopeSignal;
        size += sizeof attr.scoped;
    }
    const int ruleset = static_cast<int>(syscall(SYS_landlock_create_ruleset, &attr, size, 0));
    if (ruleset < 0) {
        layer.detail = std::string("no ruleset: ") + std::strerror(errno);
        return layer;
    }
    bool rules = true;
    for (const char* path : kReadable) {
        rules = AllowReading(ruleset, path) && rules;
    }
    const long restricted = rules ? syscall(SYS_landlock_restrict_self, ruleset, 0) : -1;
    const int error = errno;
    close(ruleset);
    if (restricted != 0) {
        layer.detail = rules ? std::string("not applied: ") + std::strerror(error)
                             : std::string("a rule could not be added");
        return layer;
    }
    layer.active = true;
    layer.detail = Describe(static_cast<int>(abi));
    return layer;
}

}  // namespace vellumo::landlock
