#include "tests/support/child.h"

#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <stdexcept>

namespace orbisgrid::test {

namespace {

/// Of what waitpid or pclose says.
int resultOf(int status) {
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
}

pid_t forked(const std::function<int()>& work) {
    std::fflush(nullptr); // or the child would print what waits in the buffers once more
    const pid_t child = ::fork();
    if (child < 0)
        throw std::runtime_error("cannot fork");
    if (child == 0)
        ::_exit(work());
    return child;
}

/// Lets a traced child run over `calls` stops (each call has two) and kills it there.
/// Result: whether it was still running then.
bool isKilledAt(pid_t child, int calls) {
    int status = 0;
    if (::waitpid(child, &status, 0) != child || !WIFSTOPPED(status))
        return false;
    for (int i = 0; i < calls; ++i) {
        ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        ::waitpid(child, &status, 0);
        if (!WIFSTOPPED(status))
            return false;
    }
    ::kill(child, SIGKILL);
    ::waitpid(child, &status, 0);
    return true;
}

} // namespace

int inChild(const std::function<int()>& work) {
    int status = 0;
    ::waitpid(forked(work), &status, 0);
    return resultOf(status);
}

int inChildWithoutRights(const std::function<int()>& work) {
    return inChild([&] { return dropRights() ? work() : 255; });
}

bool dropRights() {
    return ::geteuid() != 0 || (::setgid(nobody) == 0 && ::setuid(nobody) == 0);
}

int killAtEachSystemCall(const std::function<void()>& before, const std::function<void()>& work,
                         const std::function<void(int)>& after) {
    for (int calls = 1;; ++calls) {
        before();
        const pid_t child = forked([&] {
            if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0)
                ::raise(SIGSTOP);
            work();
            return 0;
        });
        if (!isKilledAt(child, calls))
            return calls - 1;
        after(calls);
    }
}

pid_t startChild(const std::function<void()>& become) {
    return forked([&] {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        become();
        return 127;
    });
}

void becomeCommand(const std::string& command) {
    ::execl("/bin/sh", "sh", "-c", ("exec " + command).c_str(), nullptr);
}

int waitForChild(pid_t& child) {
    int status = 0;
    if (child <= 0 || !waitUntil([&] { return ::waitpid(child, &status, WNOHANG) == child; }, 60))
        return -1;
    child = -1;
    return resultOf(status);
}

void endChild(pid_t& child, int signal) {
    if (child <= 0)
        return;
    ::kill(child, signal);
    ::waitpid(child, nullptr, 0);
    child = -1;
}

bool waitUntil(const std::function<bool()>& condition, int seconds) {
    for (int i = 0; i < seconds * 50; ++i) {
        if (condition())
            return true;
        ::usleep(20000);
    }
    return false;
}

ShellResult shell(const std::string& command) {
    const auto start = std::chrono::steady_clock::now();
    std::fflush(nullptr);
    FILE* pipe = ::popen(command.c_str(), "r"); // NOLINT(cert-env33-c): commands of the tests' own
    if (pipe == nullptr)
        throw std::runtime_error("cannot run " + command);
    ShellResult result;
    std::array<char, 4096> buffer{};
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe))
        result.output.append(buffer.data(), count);
    result.status = resultOf(::pclose(pipe));
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    result.seconds = time.count();
    return result;
}

} // namespace orbisgrid::test
