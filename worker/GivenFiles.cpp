#include "worker/GivenFiles.h"

#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace vellumo {

namespace {

constexpr unsigned char kSource = 1;
constexpr unsigned char kOutput = 2;

}  // namespace

bool SendGivenFiles(int socket, const GivenFiles& files) {
    int fds[2];
    int count = 0;
    unsigned char which = 0;
    if (files.source >= 0) {
        fds[count++] = files.source;
        which |= kSource;
    }
    if (files.output >= 0) {
        fds[count++] = files.output;
        which |= kOutput;
    }
    iovec part{&which, 1};
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    alignas(cmsghdr) char control[CMSG_SPACE(sizeof fds)] = {};
    if (count > 0) {
        message.msg_control = control;
        message.msg_controllen = CMSG_SPACE(sizeof(int) * static_cast<std::size_t>(count));
        cmsghdr* header = CMSG_FIRSTHDR(&message);
        header->cmsg_level = SOL_SOCKET;
        header->cmsg_type = SCM_RIGHTS;
        header->cmsg_len = CMSG_LEN(sizeof(int) * static_cast<std::size_t>(count));
        std::memcpy(CMSG_DATA(header), fds, sizeof(int) * static_cast<std::size_t>(count));
    }
    for (;;) {
        const ssize_t sent = sendmsg(socket, &message, MSG_NOSIGNAL);
        if (sent < 0 && errno == EINTR) {
            continue;
        }
        return sent == 1;
    }
}

bool ReceiveGivenFiles(int socket, GivenFiles& files) {
    files = {};
    unsigned char which = 0;
    iovec part{&which, 1};
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    alignas(cmsghdr) char control[CMSG_SPACE(sizeof(int) * 2)] = {};
    message.msg_control = control;
    message.msg_controllen = sizeof control;
    ssize_t got = -1;
    do {
        got = recvmsg(socket, &message, MSG_CMSG_CLOEXEC);
    } while (got < 0 && errno == EINTR);
    if (got != 1) {
        return false;
    }
    int fds[2] = {-1, -1};
    int count = 0;
    for (cmsghdr* header = CMSG_FIRSTHDR(&message); header != nullptr;
         header = CMSG_NXTHDR(&message, header)) {
        if (header->cmsg_level == SOL_SOCKET && header->cmsg_type == SCM_RIGHTS) {
            count = static_cast<int>((header->cmsg_len - CMSG_LEN(0)) / sizeof(int));
            std::memcpy(fds, CMSG_DATA(header), sizeof(int) * static_cast<std::size_t>(count));
        }
    }
    const int expected = ((which & kSource) != 0) + ((which & kOutput) != 0);
    if (count != expected || (message.msg_flags & MSG_CTRUNC) != 0) {
        for (int i = 0; i < count; ++i) {
            close(fds[i]);
        }
        return false;
    }
    int next = 0;
    if ((which & kSource) != 0) {
        files.source = fds[next++];
    }
    if ((which & kOutput) != 0) {
        files.output = fds[next++];
    }
    return true;
}

void CloseGivenFiles(GivenFiles& files) {
    if (files.source >= 0) {
        close(files.source);
    }
    if (files.output >= 0) {
        close(files.output);
    }
    files = {};
}

}  // namespace vellumo
