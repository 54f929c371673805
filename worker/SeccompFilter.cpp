#include "worker/SeccompFilter.h"

#include <errno.h>
#include <linux/sched.h>
#include <seccomp.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cstring>
#include <memory>

namespace vellumo::seccompfilter {

// A blocklist, not an allowlist. An allowlist names every call the dozen
// decoders, glibc, GLib, libvips' threads and the sanitizers' runtimes make
// on every architecture and every version of them; image loaders sandboxed
// that way (GNOME's glycin) broke again and again with new glibc and kernel
// versions and on other architectures, and moved to a blocklist. Here the
// calls that let a taken-over decoder reach beyond the worker are refused:
// the network, starting programs, other processes' memory and signals,
// namespaces and mounts, the kernel's key store, BPF and perf, io_uring
// (whose operations would pass by this filter) and terminal injection.
// Files are Landlock's: a descriptor the worker was given stays usable,
// opening any other name is refused there. Calls of another architecture
// (a 32-bit int 0x80 on x86-64) kill the process, libseccomp's default.

namespace {

using Filter = std::unique_ptr<void, decltype(&seccomp_release)>;

constexpr int kRefused = EPERM;

// The calls refused whatever their arguments. A name this libseccomp or
// architecture does not know is left out (the call does not exist there).
constexpr const char* kRefusedCalls[] = {
    // No network: the engine's socket is open already and is all there is.
    "socket", "socketpair", "connect", "bind", "listen", "accept", "accept4",
    // No program started.
    "execve", "execveat",
// No reading or writing another process, no stealing its descriptors.
// (An AddressSanitizer build's leak checker attaches to the worker's
// own threads with ptrace: there Landlock alone keeps ptrace within the
// worker.)
#if !defined(__SANITIZE_ADDRESS__)
    "ptrace",
#endif
    "process_vm_readv", "process_vm_writev", "pidfd_getfd", "pidfd_send_signal", "kcmp",
    // No namespaces, mounts or root changes (a way around Landlock).
    "mount", "umount2", "pivot_root", "chroot", "unshare", "setns", "fsopen", "fsmount", "fsconfig",
    "move_mount", "open_tree", "mount_setattr",
    // No kernel keys, BPF programs, performance counters, user-space page
    // fault handling: kernel attack surface no decoder needs.
    "keyctl", "add_key", "request_key", "bpf", "perf_event_open", "userfaultfd",
    // io_uring runs socket, connect and open operations without passing
    // through this filter.
    "io_uring_setup", "io_uring_enter", "io_uring_register",
    // Nothing loaded into the kernel, no reboots, no swapping.
    "init_module", "finit_module", "delete_module", "kexec_load", "kexec_file_load", "reboot",
    "swapon", "swapoff", "acct", "quotactl", "open_by_handle_at", "name_to_handle_at"};

// The namespace flags of clone: a new namespace is a step towards
// privileges the worker must not have.
constexpr unsigned long kNamespaceFlags[] = {CLONE_NEWNS,    CLONE_NEWUSER, CLONE_NEWPID,
                                             CLONE_NEWNET,   CLONE_NEWIPC,  CLONE_NEWUTS,
                                             CLONE_NEWCGROUP};

int Refuse(scmp_filter_ctx filter, const char* name, int error = kRefused) {
    const int call = seccomp_syscall_resolve_name(name);
    if (call == __NR_SCMP_ERROR) {
        return 0;
    }
    return seccomp_rule_add(filter, SCMP_ACT_ERRNO(error), call, 0);
}

// An argument comparison; libseccomp's SCMP_A0... macros build these as C99
// compound literals, which C++ does not have.
scmp_arg_cmp Arg(unsigned int arg, scmp_compare op, scmp_datum_t a, scmp_datum_t b = 0) {
    return scmp_arg_cmp{arg, op, a, b};
}

int AddRules(scmp_filter_ctx filter) {
    int failed = 0;
    for (const char* name : kRefusedCalls) {
        failed |= Refuse(filter, name);
    }
    // clone3 passes its flags in memory a filter cannot read: ENOSYS makes
    // glibc fall back to clone, whose flags it can (EPERM would make thread
    // creation fail outright).
    failed |= Refuse(filter, "clone3", ENOSYS);
    for (const unsigned long flag : kNamespaceFlags) {
        failed |= seccomp_rule_add(filter, SCMP_ACT_ERRNO(kRefused), SCMP_SYS(clone), 1,
                                   Arg(0, SCMP_CMP_MASKED_EQ, flag, flag));
    }
    // Terminal injection: pushing characters into a terminal's input, or
    // the Linux console's selection.
    for (const unsigned long request :
         {static_cast<unsigned long>(TIOCSTI), static_cast<unsigned long>(TIOCLINUX)}) {
        failed |= seccomp_rule_add(filter, SCMP_ACT_ERRNO(kRefused), SCMP_SYS(ioctl), 1,
                                   Arg(1, SCMP_CMP_MASKED_EQ, 0xffffffffu, request));
    }
    // Signals only to the worker itself (glibc's abort and raise, a
    // sanitizer's report): never to the engine or anyone else.
    const scmp_datum_t self = static_cast<scmp_datum_t>(getpid());
    failed |= seccomp_rule_add(filter, SCMP_ACT_ERRNO(kRefused), SCMP_SYS(kill), 1,
                               Arg(0, SCMP_CMP_NE, self));
    failed |= seccomp_rule_add(filter, SCMP_ACT_ERRNO(kRefused), SCMP_SYS(tgkill), 1,
                               Arg(0, SCMP_CMP_NE, self));
    failed |= seccomp_rule_add(filter, SCMP_ACT_ERRNO(kRefused), SCMP_SYS(rt_sigqueueinfo), 1,
                               Arg(0, SCMP_CMP_NE, self));
    failed |= seccomp_rule_add(filter, SCMP_ACT_ERRNO(kRefused), SCMP_SYS(rt_tgsigqueueinfo), 1,
                               Arg(0, SCMP_CMP_NE, self));
    failed |= Refuse(filter, "tkill");
    return failed;
}

}  // namespace

SandboxLayer Install() {
    SandboxLayer layer{"seccomp", false, {}};
    Filter filter(seccomp_init(SCMP_ACT_ALLOW), &seccomp_release);
    if (!filter) {
        layer.detail = "libseccomp could not make a filter";
        return layer;
    }
    // Every thread, also one started before (none should be).
    seccomp_attr_set(filter.get(), SCMP_FLTATR_CTL_TSYNC, 1);
    if (AddRules(filter.get()) != 0) {
        layer.detail = "a rule could not be added";
        return layer;
    }
    if (const int loaded = seccomp_load(filter.get()); loaded != 0) {
        layer.detail = std::string("not loaded: ") + std::strerror(-loaded);
        return layer;
    }
    layer.active = true;
    layer.detail =
        "blocklist: no socket, connect, bind, listen, accept, execve, ptrace, process_vm_*, "
        "mount, unshare, setns, keyctl, bpf, perf_event_open, io_uring, namespace clones, "
        "TIOCSTI/TIOCLINUX, signals to other processes; clone3 answers ENOSYS";
    return layer;
}

}  // namespace vellumo::seccompfilter
