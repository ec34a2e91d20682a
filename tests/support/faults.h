#pragma once

#include <functional>
#include <string>

namespace orbisgrid::test {

/// How one system call goes wrong.
enum class Fault {
    noSpace,      ///< ENOSPC
    inputOutput,  ///< EIO
    noRights,     ///< EACCES
    interrupted,  ///< EINTR
    halfTheBytes, ///< a write writes half of what it was given, without an error
};

inline constexpr Fault everyFault[]{Fault::noSpace, Fault::inputOutput, Fault::noRights,
                                    Fault::interrupted, Fault::halfTheBytes};

const char* nameOf(Fault fault);

/// What one run with a fault did.
struct FaultyRun {
    int call = 0;     ///< which call on files or folders went wrong, from 1
    std::string name; ///< what it was, for messages
    int result = 0;   ///< what `work` returned, or 1000 and the number of a signal
};

/// Runs `work` in a child once for each of its system calls on files and folders and lets that one
/// call go wrong: `before` makes the start, `after` looks at what is left. Calls for memory,
/// signals and the process are left alone; half of the bytes concerns writes only. Result: the
/// number of faults; 0 where the system does not let processes be traced this way.
int failAtEachFileCall(Fault fault, const std::function<void()>& before,
                       const std::function<int()>& work,
                       const std::function<void(const FaultyRun&)>& after);

} // namespace orbisgrid::test
