#include "platform/programs.h"

#include "platform/environment.h"
#include "platform/file_descriptor.h"
#include "platform/paths.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <tuple>

namespace orbisgrid {

namespace {

bool isProgram(const std::string& path) {
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           ::access(path.c_str(), X_OK) == 0;
}

/// In the forked child, where only what is safe in a signal handler may be called: other threads
/// may have held locks when it was forked. The grandchild is the program; it writes a byte to
/// `failure` where it could not be started, and the pipe closes without one where it could.
[[noreturn]] void becomeParentOf(const char* path, char* const* arguments, int failure) {
    ::setsid();
    const pid_t program = ::fork();
    if (program != 0)
        ::_exit(program < 0 ? 1 : 0);
    std::ignore = ::signal(SIGPIPE, SIG_DFL);
    ::execv(path, arguments);
    const char anything = 0;
    [[maybe_unused]] const ssize_t written = ::write(failure, &anything, 1);
    ::_exit(127);
}

/// Result: whether the child ended well. It has forked the program by then. A program that was
/// started with SIGCHLD ignored is not told how its children end: the pipe alone says it then.
bool waitFor(pid_t child) {
    int status = 0;
    while (::waitpid(child, &status, 0) < 0) {
        if (errno != EINTR)
            return errno == ECHILD;
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

bool isClosedWithoutAWord(const FileDescriptor& pipe) {
    char byte = 0;
    ssize_t count = 0;
    do {
        count = ::read(pipe.get(), &byte, 1);
    } while (count < 0 && errno == EINTR);
    return count == 0;
}

} // namespace

std::string findProgram(std::string_view name) {
    const std::string path = environmentVariable("PATH");
    std::string_view rest = path;
    while (!rest.empty()) {
        const std::string_view folder = rest.substr(0, rest.find(':'));
        rest.remove_prefix(std::min(rest.size(), folder.size() + 1));
        if (folder.empty())
            continue;
        std::string file = absolutePath(std::string(folder)) + '/' + std::string(name);
        if (isProgram(file))
            return file;
    }
    return {};
}

bool startProgram(const std::string& path, const std::vector<std::string>& arguments) {
    std::vector<std::string> texts{path};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);

    std::array<int, 2> pipe{-1, -1};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0)
        return false;
    const FileDescriptor answer(pipe[0]);
    FileDescriptor failure(pipe[1]);
    const pid_t child = ::fork();
    if (child == 0)
        becomeParentOf(path.c_str(), pointers.data(), failure.get());
    failure.close();
    return child > 0 && waitFor(child) && isClosedWithoutAWord(answer);
}

} // namespace orbisgrid
