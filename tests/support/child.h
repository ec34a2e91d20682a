#pragma once

#include <sys/types.h>

#include <cstddef>
#include <functional>
#include <string>

namespace orbisgrid::test {

/// Seconds after which a process counts as one that hangs. Nothing here waits for longer.
inline constexpr int longestWait = 120;

/// Runs `work` in a forked child. Result: what it returned (0 to 255), or 1000 and the signal's
/// number when a signal ended it. What `work` changes stays in the child. One that hangs is killed;
/// then it throws.
int inChild(const std::function<int()>& work);

/// The same without the rights of root: as the user "nobody" where the test runs as root.
int inChildWithoutRights(const std::function<int()>& work);

/// The user without rights.
inline constexpr uid_t nobody = 65534;

/// In a child: gives up the rights of root for those of the user "nobody", where it has them.
/// Result: false where it has them still.
bool dropRights();

/// In a child: from here on no file of this process grows beyond `bytes`, which is what a full disk
/// does. A write beyond it fails with EFBIG.
void limitFileSize(std::size_t bytes);

/// Runs `work` in a child and kills it at one system call after the other, each time afresh:
/// `before` makes the start, `after` gets the number of the call and looks at what is left.
/// Result: the number of kills; 0 where the system does not let processes be traced.
int killAtEachSystemCall(const std::function<void()>& before, const std::function<void()>& work,
                         const std::function<void(int)>& after);

/// Starts a child that ends when the test does, however that ends. `become` runs in the child and
/// puts a program in its place (exec); should it return, the child ends with status 127. To be
/// called from a thread that outlives the child. Result: the process; throws if there is none.
pid_t startChild(const std::function<void()>& become);

/// `become` for a command line of /bin/sh, in the place of the shell.
void becomeCommand(const std::string& command);

/// Waits for what a child reports next: its end or, where it is traced, a stop. Result: as waitpid
/// says it. Kills the child and throws where nothing comes within `seconds`.
int nextStatusOf(pid_t child, int seconds = longestWait);

/// Waits for a child that was started so. Result: its exit status, 1000 and the signal's number
/// after a signal; then `child` is -1. The result is -1 where there is none or it still runs after
/// a minute.
int waitForChild(pid_t& child);

/// Sends a child a signal and waits for it; `child` is -1 afterwards. None is none to end, and one
/// that the signal has not ended within `seconds` is killed.
void endChild(pid_t& child, int signal, int seconds = 20);

/// Asks until `condition` holds, with pauses of 20 ms, for `seconds`; a last question that was put
/// by then is waited for. Result: whether it held.
bool waitUntil(const std::function<bool()>& condition, int seconds);

/// What a shell command left.
struct ShellResult {
    int status = -1;    ///< exit status
    std::string output; ///< standard output
    double seconds = 0; ///< until the end of its standard output and of the command
};

/// Runs a command line with /bin/sh, with nothing on its standard input. It ends when the command
/// has ended and nobody holds its standard output any more. Where that takes more than `seconds`,
/// it kills what the command has started and throws; the text says what it waited for.
ShellResult shell(const std::string& command, int seconds = longestWait);

} // namespace orbisgrid::test
