#include "ProcessTree.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <map>
#include <set>
#include <string>
#include <thread>

using namespace std::chrono_literals;

namespace {

constexpr auto kPoliteTime = 1000ms;
constexpr auto kWholeTime = 2300ms;
constexpr auto kPollInterval = 5ms;

// -1 for a process that is gone.
int ParentOf(const char *pid) {
    const std::string name = std::string("/proc/") + pid + "/stat";
    const int file = open(name.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return -1;
    char text[512];
    const ssize_t size = read(file, text, sizeof text - 1);
    close(file);
    if (size <= 0) return -1;
    text[size] = 0;
    // The program's name in parentheses can hold anything; behind it come the state and the parent.
    const char *rest = std::strrchr(text, ')');
    char state;
    int parent;
    return rest && std::sscanf(rest + 1, " %c %d", &state, &parent) == 2 ? parent : -1;
}

}  // namespace

std::vector<int> Descendants() {
    std::multimap<int, int> children;
    if (DIR *proc = opendir("/proc")) {
        while (const dirent *entry = readdir(proc)) {
            int pid = 0;
            const char *end = entry->d_name + std::strlen(entry->d_name);
            if (std::from_chars(entry->d_name, end, pid).ptr != end) continue;
            if (const int parent = ParentOf(entry->d_name); parent > 0) children.emplace(parent, pid);
        }
        closedir(proc);
    }

    std::vector<int> tree;
    const auto addChildren = [&](int parent) {
        const auto [first, last] = children.equal_range(parent);
        for (auto child = first; child != last; ++child) tree.push_back(child->second);
        children.erase(first, last);  // a number used again during the walk must not make a circle
    };
    addChildren(getpid());
    for (size_t i = 0; i < tree.size(); ++i) addChildren(tree[i]);
    return tree;
}

CProcessTree::CProcessTree() {
    prctl(PR_SET_CHILD_SUBREAPER, 1);
}

bool CProcessTree::Reap() {
    for (;;) {
        int status = 0;
        const int pid = waitpid(-1, &status, WNOHANG);
        if (pid <= 0) return pid == 0;
        if (pid == main_) exitCode_ = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    }
}

bool CProcessTree::WaitForNone(Clock::time_point limit) {
    while (Reap()) {
        if (Clock::now() >= limit) return false;
        std::this_thread::sleep_for(kPollInterval);
    }
    return true;
}

void CProcessTree::KillAll(Clock::time_point limit) {
    std::set<int> frozen;
    for (bool found = true; found && Clock::now() < limit;) {
        found = false;
        for (const int pid : Descendants()) {
            if (!frozen.insert(pid).second) continue;
            kill(pid, SIGSTOP);
            found = true;
        }
    }
    for (const int pid : frozen) kill(pid, SIGKILL);
}

bool CProcessTree::End() {
    const auto start = Clock::now();
    for (const int pid : Descendants()) {
        kill(pid, SIGTERM);
        kill(pid, SIGCONT);  // a stopped process can't answer
    }
    if (WaitForNone(start + kPoliteTime)) return true;

    const auto limit = start + kWholeTime;
    while (Clock::now() < limit) {
        KillAll(limit);
        if (WaitForNone(std::min(limit, Clock::now() + 50ms))) return true;
    }
    return !Reap();
}
