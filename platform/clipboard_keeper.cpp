#include "platform/clipboard_keeper.h"

#include "platform/clipboard_route.h"
#include "platform/environment.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <string_view>
#include <tuple>
#include <vector>

namespace orbisgrid {

namespace {

constexpr const char* roleVariable = "ORBISGRID_ROLE";
constexpr std::string_view keeperRole = "clipboard-keeper";

/// A file in memory that reads as `text` from its start: as standard input of a child it neither
/// blocks us nor raises a signal, whatever the child does with it.
FileDescriptor fileInMemory(std::string_view text) {
    FileDescriptor file(::memfd_create("clipboard", MFD_CLOEXEC));
    while (file && !text.empty()) {
        const ssize_t written = ::write(file.get(), text.data(), text.size());
        if (written <= 0)
            return {};
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    ::lseek(file.get(), 0, SEEK_SET);
    return file;
}

/// Exit status of a child; -1 where a signal ended it.
int exitStatus(pid_t child) {
    int status = 0;
    while (::waitpid(child, &status, 0) < 0) {
        if (errno != EINTR)
            return -1;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// The keeper ------------------------------------------------------------------------------------

/// Lets go of everything that the caller has open but `answer`, which becomes descriptor 3.
void letGoOfTheCaller(int answer) {
    constexpr int kept = 3;
    // First out of the way: a caller that closed its standard input has given the pipe number 0.
    const int aside = ::fcntl(answer, F_DUPFD_CLOEXEC, 10);
    const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        ::dup2(nothing, standard);
    ::dup3(aside, kept, O_CLOEXEC);
    ::close_range(kept + 1, ~0U, 0);
    // A folder of the caller's could not be unmounted.
    [[maybe_unused]] const int result = ::chdir("/");
    std::ignore = ::signal(SIGPIPE, SIG_IGN); // the caller may have gone before the answer
}

void say(char answer) {
    constexpr int pipe = 3;
    [[maybe_unused]] const ssize_t written = ::write(pipe, &answer, 1);
    ::close(pipe);
}

constexpr char isTaken = 1;

void keepSelection(const std::string& utf8) {
    ClipboardSelection selection(utf8);
    if (!selection.take())
        return;
    say(isTaken);
    selection.serve();
}

/// wl-copy ends when the compositor has the text; what keeps it then is a child of its own.
void runWaylandTool(const std::string& utf8) {
    const FileDescriptor input = fileInMemory(utf8);
    const pid_t tool = ::fork();
    if (tool == 0) {
        ::dup2(input.get(), STDIN_FILENO);
        ::execlp("wl-copy", "wl-copy", "-t", "text/plain", nullptr);
        ::_exit(127);
    }
    if (tool > 0 && exitStatus(tool) == 0)
        say(isTaken);
}

/// In the forked child. A second fork would spare the caller a zombie, but takes a third of a
/// millisecond that every job would wait for, and the caller is about to end.
[[noreturn]] void becomeKeeper(ClipboardRoute route, const std::string& utf8, int answer) {
    ::setsid();
    letGoOfTheCaller(answer);
    if (route == ClipboardRoute::waylandTool)
        runWaylandTool(utf8);
    else
        keepSelection(utf8);
    ::_exit(0);
}

} // namespace

ClipboardHandover ClipboardHandover::start(const std::string& utf8) {
    ClipboardHandover handover;
    const ClipboardRoute route = clipboardRoute();
    std::array<int, 2> pipe{-1, -1};
    if (route == ClipboardRoute::none || ::pipe2(pipe.data(), O_CLOEXEC) != 0)
        return handover;
    handover.m_answer = FileDescriptor(pipe[0]);
    const FileDescriptor answer(pipe[1]);
    if (::fork() == 0)
        becomeKeeper(route, utf8, answer.get());
    return handover;
}

bool ClipboardHandover::wait(std::chrono::milliseconds longest) {
    if (!m_answer)
        return false;
    pollfd answer{m_answer.get(), POLLIN, 0};
    while (::poll(&answer, 1, static_cast<int>(longest.count())) < 0) {
        if (errno != EINTR)
            return false;
    }
    char byte = 0;
    // The end of the pipe without a byte is an answer too: the keeper has given up.
    return (answer.revents & POLLIN) != 0 && ::read(m_answer.get(), &byte, 1) == 1 &&
           byte == isTaken;
}

// The role --------------------------------------------------------------------------------------

bool isClipboardKeeperRole() {
    return environmentVariable(roleVariable) == keeperRole;
}

int runClipboardKeeper() {
    const FileDescriptor input(STDIN_FILENO);
    const std::optional<std::string> text = readToEnd(input);
    return text && ClipboardHandover::start(*text).wait() ? 0 : 1;
}

// NOLINTNEXTLINE(bugprone-easily-swappable-parameters): who keeps, and what
bool startClipboardKeeper(const std::string& executable, const std::string& utf8) {
    const FileDescriptor input = fileInMemory(utf8);
    if (!input)
        return false;
    std::string path = executable;
    std::string role = std::string(roleVariable) + '=' + std::string(keeperRole);
    const std::array<char*, 2> arguments{path.data(), nullptr};
    std::vector<char*> environment{role.data()}; // in front: the first of a name counts
    for (char** variable = environ; *variable != nullptr; ++variable)
        environment.push_back(*variable);
    environment.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, input.get(), STDIN_FILENO);
    pid_t keeper = -1;
    const int error = ::posix_spawn(&keeper, path.c_str(), &actions, nullptr, arguments.data(),
                                    environment.data());
    ::posix_spawn_file_actions_destroy(&actions);
    return error == 0 && exitStatus(keeper) == 0;
}

} // namespace orbisgrid
