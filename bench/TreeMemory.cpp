// Runs a command and reports the peak memory of its whole process tree (the
// command and every process it starts, such as vellumo-cli's workers), which
// /usr/bin/time cannot: its figure is the largest single process.
//
//   vellumo_tree_memory OUTFILE COMMAND [ARGS...]
//
// Samples every 5 ms the proportional set size (PSS: shared library pages
// split among the processes that map them) of each process of the tree and
// writes "SECONDS PEAK_KB" to OUTFILE; exits with the command's status.

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <thread>

namespace {

// Parent of every process now running.
std::map<pid_t, pid_t> Parents() {
    std::map<pid_t, pid_t> parents;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const std::string name = entry.path().filename();
        if (name.find_first_not_of("0123456789") != std::string::npos) {
            continue;
        }
        std::ifstream stat(entry.path() / "stat");
        std::string line;
        if (!std::getline(stat, line)) {
            continue;
        }
        // "pid (comm) state ppid ...": comm may hold spaces and parentheses.
        const auto close = line.rfind(')');
        if (close == std::string::npos) {
            continue;
        }
        std::istringstream rest(line.substr(close + 2));
        char state = 0;
        pid_t parent = 0;
        rest >> state >> parent;
        parents[static_cast<pid_t>(std::stol(name))] = parent;
    }
    return parents;
}

long PssKilobytes(pid_t pid) {
    std::ifstream rollup("/proc/" + std::to_string(pid) + "/smaps_rollup");
    std::string key;
    long value = 0;
    while (rollup >> key) {
        if (key == "Pss:") {
            rollup >> value;
            return value;
        }
        rollup.ignore(1 << 16, '\n');
    }
    return 0;
}

long TreeKilobytes(pid_t root) {
    const std::map<pid_t, pid_t> parents = Parents();
    std::set<pid_t> tree{root};
    for (bool grew = true; grew;) {
        grew = false;
        for (const auto& [pid, parent] : parents) {
            if (tree.count(parent) && tree.insert(pid).second) {
                grew = true;
            }
        }
    }
    long total = 0;
    for (const pid_t pid : tree) {
        total += PssKilobytes(pid);
    }
    return total;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: vellumo_tree_memory OUTFILE COMMAND [ARGS...]\n");
        return 2;
    }
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execvp(argv[2], argv + 2);
        std::perror(argv[2]);
        _exit(127);
    }
    long peak = 0;
    int status = 0;
    for (;;) {
        const pid_t done = waitpid(child, &status, WNOHANG);
        if (done == child) {
            break;
        }
        const long now = TreeKilobytes(child);
        peak = now > peak ? now : peak;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::ofstream(argv[1]) << seconds << ' ' << peak << '\n';
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}
