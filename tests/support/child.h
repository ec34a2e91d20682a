#pragma once

#include <functional>
#include <string>

namespace orbisgrid::test {

/// Runs `work` in a forked child. Result: what it returned (0 to 255), or 1000 and the signal's
/// number when a signal ended it. What `work` changes stays in the child.
int inChild(const std::function<int()>& work);

/// The same without the rights of root: as the user "nobody" where the test runs as root.
int inChildWithoutRights(const std::function<int()>& work);

/// Runs `work` in a child and kills it at one system call after the other, each time afresh:
/// `before` makes the start, `after` gets the number of the call and looks at what is left.
/// Result: the number of kills; 0 where the system does not let processes be traced.
int killAtEachSystemCall(const std::function<void()>& before, const std::function<void()>& work,
                         const std::function<void(int)>& after);

/// What a shell command left.
struct ShellResult {
    int status = -1;    ///< exit status
    std::string output; ///< standard output
    double seconds = 0; ///< until the end of its standard output and of the command
};

/// Runs a command line with /bin/sh, which must end by itself.
ShellResult shell(const std::string& command);

} // namespace orbisgrid::test
