#include "worker/SandboxProbe.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/ptrace.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <nlohmann/json.hpp>

namespace vellumo::sandboxprobe {

namespace {

using Json = nlohmann::json;

std::string Result(bool worked, int error) {
    if (worked) {
        return "ok";
    }
    const char* name = strerrorname_np(error);
    return name ? name : std::to_string(error);
}

// A file's first byte, or a folder's list.
std::string TryRead(const std::string& path) {
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const int error = errno;
    if (fd < 0) {
        return Result(false, error);
    }
    struct stat status {};
    fstat(fd, &status);
    char bytes[4096];
    const bool worked = S_ISDIR(status.st_mode)
                            ? syscall(SYS_getdents64, fd, bytes, sizeof bytes) >= 0
                            : read(fd, bytes, 1) >= 0;
    const int readError = errno;
    close(fd);
    return Result(worked, readError);
}

std::string TryWrite(const std::string& path) {
    const int fd = open(path.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
    const int error = errno;
    const bool worked = fd >= 0 && write(fd, "!", 1) == 1;
    if (fd >= 0)
        close(fd);
    return Result(worked, error);
}

std::string TryCreate(const std::string& path) {
    const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    const int error = errno;
    if (fd >= 0)
        close(fd);
    return Result(fd >= 0, error);
}

std::string TryRemove(const std::string& path) {
    const bool worked = unlink(path.c_str()) == 0;
    return Result(worked, errno);
}

// A socket, then a connection to the engine's listening port on 127.0.0.1.
void TryNetwork(int port, Json& results) {
    const int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    results["socket"] = Result(fd >= 0, errno);
    if (fd < 0) {
        results["connect"] = "no socket";
        return;
    }
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const bool connected =
        connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    results["connect"] = Result(connected, errno);
    close(fd);
}

// Starts `program` in a child (execve would replace the worker itself):
// "ok" when the program ran and ended well.
std::string TryExecute(const std::string& program) {
    int report[2];
    if (pipe2(report, O_CLOEXEC) != 0) {
        return Result(false, errno);
    }
    const pid_t child = fork();
    if (child == 0) {
        char* const argv[] = {const_cast<char*>(program.c_str()), nullptr};
        char* const environment[] = {nullptr};
        execve(program.c_str(), argv, environment);
        const int error = errno;
        (void)!write(report[1], &error, sizeof error);
        _exit(127);
    }
    close(report[1]);
    int error = 0;
    const bool failed = child < 0 || read(report[0], &error, sizeof error) == sizeof error;
    close(report[0]);
    int status = 0;
    if (child > 0)
        waitpid(child, &status, 0);
    if (child < 0)
        error = errno;
    return Result(!failed && WIFEXITED(status) && WEXITSTATUS(status) == 0, error);
}

// Attaches to the engine as a debugger would, and lets it go again.
std::string TryTrace(pid_t engine) {
    if (ptrace(PTRACE_SEIZE, engine, nullptr, nullptr) != 0) {
        return Result(false, errno);
    }
    ptrace(PTRACE_INTERRUPT, engine, nullptr, nullptr);
    int status = 0;
    waitpid(engine, &status, __WALL);
    ptrace(PTRACE_DETACH, engine, nullptr, nullptr);
    return "ok";
}

Json Probe(const Json& request) {
    Json results = Json::object();
    for (const auto& path : request.value("read", Json::array())) {
        results["read " + path.get<std::string>()] = TryRead(path.get<std::string>());
    }
    for (const auto& path : request.value("write", Json::array())) {
        results["write " + path.get<std::string>()] = TryWrite(path.get<std::string>());
    }
    if (request.contains("create"))
        results["create"] = TryCreate(request["create"].get<std::string>());
    if (request.contains("remove"))
        results["remove"] = TryRemove(request["remove"].get<std::string>());
    if (request.contains("tcpPort"))
        TryNetwork(request["tcpPort"].get<int>(), results);
    if (request.contains("program"))
        results["execve"] = TryExecute(request["program"].get<std::string>());
    // Signal 0 asks whether a signal could be sent, sending none.
    results["signal engine"] = Result(kill(getppid(), 0) == 0, errno);
    results["trace engine"] = TryTrace(getppid());
    return results;
}

}  // namespace

bool IsProbe(const workerprotocol::Message& frame) {
    const Json json = Json::parse(frame.json, nullptr, false);
    return json.is_object() && json.value("type", "") == "probe";
}

workerprotocol::Message Run(const workerprotocol::Message& frame) {
    const Json request = Json::parse(frame.json, nullptr, false);
    const Json reply = {{"type", "probe-results"}, {"results", Probe(request)}};
    return {reply.dump(), {}};
}

}  // namespace vellumo::sandboxprobe
