#include "tests/support/child.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <stdexcept>
#include <tuple>

namespace orbisgrid::test {

namespace {

using Clock = std::chrono::steady_clock;

/// Of what waitpid says.
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
    if (!WIFSTOPPED(nextStatusOf(child)))
        return false;
    for (int i = 0; i < calls; ++i) {
        ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        if (!WIFSTOPPED(nextStatusOf(child)))
            return false;
    }
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    return true;
}

/// While it lives, a system call that waits is interrupted after `seconds`, and each second from
/// then on. To ask again and again instead would double the time of a child that is traced: it
/// stops thousands of times.
class AlarmClock {
public:
    explicit AlarmClock(int seconds) {
        struct sigaction action = {};
        action.sa_handler = [](int) {};
        ::sigaction(SIGALRM, &action, &m_before);
        set({{1, 0}, {std::max(seconds, 1), 0}});
    }

    AlarmClock(const AlarmClock&) = delete;
    AlarmClock& operator=(const AlarmClock&) = delete;

    ~AlarmClock() {
        set({});
        ::sigaction(SIGALRM, &m_before, nullptr);
    }

private:
    static void set(itimerval time) { ::setitimer(ITIMER_REAL, &time, nullptr); }

    struct sigaction m_before = {};
};

/// A shell and the end of the pipe that its standard output goes into.
struct StartedShell {
    pid_t process = -1;
    int output = -1;
};

/// In a process group of its own, so that what it leaves behind can be killed with it.
StartedShell startShell(const std::string& command) {
    std::array<int, 2> pipe{-1, -1};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("cannot make a pipe");
    const pid_t process = startChild([&] {
        ::setpgid(0, 0);
        ::dup2(::open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO);
        ::dup2(pipe[1], STDOUT_FILENO);
        ::execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
    });
    ::setpgid(process, process); // whichever comes first: the group is there from now on
    ::close(pipe[1]);
    return {process, pipe[0]};
}

/// Puts all that comes through a pipe behind `text`. Result: whether it came to its end by then.
bool readToItsEnd(int pipe, Clock::time_point then, std::string& text) {
    std::array<char, 4096> buffer{};
    for (;;) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(then - Clock::now());
        pollfd waiting{pipe, POLLIN, 0};
        if (left.count() <= 0)
            return false;
        if (::poll(&waiting, 1, static_cast<int>(left.count())) <= 0)
            continue;
        const ssize_t count = ::read(pipe, buffer.data(), buffer.size());
        if (count <= 0)
            return true;
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
}

[[noreturn]] void giveUp(pid_t shell, int seconds, const std::string& command) {
    const bool hasEnded = ::waitpid(shell, nullptr, WNOHANG) == shell;
    ::kill(-shell, SIGKILL);
    if (!hasEnded)
        ::waitpid(shell, nullptr, 0);
    throw std::runtime_error(std::string("waited for ")
                                 .append(std::to_string(seconds))
                                 .append(hasEnded ? " seconds for whoever holds the output of: "
                                                  : " seconds for the end of: ")
                                 .append(command));
}

} // namespace

int nextStatusOf(pid_t child, int seconds) {
    const auto end = Clock::now() + std::chrono::seconds(seconds);
    const AlarmClock alarm(seconds);
    int status = 0;
    while (::waitpid(child, &status, 0) != child) {
        if (Clock::now() < end && errno == EINTR)
            continue;
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        throw std::runtime_error("waited for " + std::to_string(seconds) +
                                 " seconds for a child of the test");
    }
    return status;
}

int inChild(const std::function<int()>& work) {
    return resultOf(nextStatusOf(forked(work)));
}

int inChildWithoutRights(const std::function<int()>& work) {
    return inChild([&] { return dropRights() ? work() : 255; });
}

bool dropRights() {
    return ::geteuid() != 0 || (::setgid(nobody) == 0 && ::setuid(nobody) == 0);
}

void limitFileSize(std::size_t bytes) {
    std::ignore = ::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, bytes};
    ::setrlimit(RLIMIT_FSIZE, &limit);
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

void endChild(pid_t& child, int signal, int seconds) {
    if (child <= 0)
        return;
    ::kill(child, signal);
    if (!waitUntil([&] { return ::waitpid(child, nullptr, WNOHANG) != 0; }, seconds)) {
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
    }
    child = -1;
}

bool waitUntil(const std::function<bool()>& condition, int seconds) {
    const auto end = Clock::now() + std::chrono::seconds(seconds);
    while (!condition()) {
        if (Clock::now() > end)
            return false;
        ::usleep(20000);
    }
    return true;
}

ShellResult shell(const std::string& command, int seconds) {
    const auto start = Clock::now();
    const auto latest = start + std::chrono::seconds(seconds);
    const StartedShell started = startShell(command);
    ShellResult result;
    const bool isWhole = readToItsEnd(started.output, latest, result.output);
    ::close(started.output);
    if (!isWhole)
        giveUp(started.process, seconds, command);
    // One that has closed its output may run on.
    const auto left = std::chrono::ceil<std::chrono::seconds>(latest - Clock::now());
    try {
        result.status = resultOf(nextStatusOf(started.process, static_cast<int>(left.count())));
    } catch (const std::runtime_error&) {
        giveUp(started.process, seconds, command);
    }
    result.seconds = std::chrono::duration<double>(Clock::now() - start).count();
    return result;
}

} // namespace orbisgrid::test
