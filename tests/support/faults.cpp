#include "tests/support/faults.h"

#include "tests/support/child.h"

#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <map>
#include <optional>
#include <stdexcept>

namespace orbisgrid::test {

namespace {

#ifdef __x86_64__

using Registers = user_regs_struct;
using Number = decltype(Registers::orig_rax);

/// System calls on files and folders, by number.
const std::map<Number, std::string>& fileCalls() {
    static const std::map<Number, std::string> names{
        {SYS_open, "open"},           {SYS_openat, "openat"},
        {SYS_creat, "creat"},         {SYS_close, "close"},
        {SYS_read, "read"},           {SYS_pread64, "pread"},
        {SYS_write, "write"},         {SYS_pwrite64, "pwrite"},
        {SYS_writev, "writev"},       {SYS_lseek, "lseek"},
        {SYS_stat, "stat"},           {SYS_lstat, "lstat"},
        {SYS_fstat, "fstat"},         {SYS_newfstatat, "newfstatat"},
        {SYS_statx, "statx"},         {SYS_access, "access"},
        {SYS_faccessat, "faccessat"}, {SYS_faccessat2, "faccessat2"},
        {SYS_readlink, "readlink"},   {SYS_readlinkat, "readlinkat"},
        {SYS_rename, "rename"},       {SYS_renameat, "renameat"},
        {SYS_renameat2, "renameat2"}, {SYS_unlink, "unlink"},
        {SYS_unlinkat, "unlinkat"},   {SYS_mkdir, "mkdir"},
        {SYS_mkdirat, "mkdirat"},     {SYS_rmdir, "rmdir"},
        {SYS_link, "link"},           {SYS_linkat, "linkat"},
        {SYS_symlink, "symlink"},     {SYS_ftruncate, "ftruncate"},
        {SYS_truncate, "truncate"},   {SYS_fallocate, "fallocate"},
        {SYS_fsync, "fsync"},         {SYS_fdatasync, "fdatasync"},
        {SYS_chmod, "chmod"},         {SYS_fchmod, "fchmod"},
        {SYS_fchmodat, "fchmodat"},   {SYS_fchown, "fchown"},
        {SYS_chown, "chown"},         {SYS_getdents64, "getdents"},
        {SYS_fcntl, "fcntl"},         {SYS_flock, "flock"},
        {SYS_utimensat, "utimensat"}, {SYS_statfs, "statfs"},
        {SYS_fstatfs, "fstatfs"},     {SYS_ioctl, "ioctl"},
    };
    return names;
}

bool isWrite(Number call) {
    return call == SYS_write || call == SYS_pwrite64;
}

/// Whether this call can fail in this way.
bool concerns(Fault fault, Number call) {
#ifdef __SANITIZE_ADDRESS__
    if (call == SYS_write) // the sanitizer's own, to see whether memory is there; a save has none
        return false;
#endif
    if (fault == Fault::halfTheBytes)
        return isWrite(call);
    return fileCalls().contains(call);
}

int errorOf(Fault fault) {
    switch (fault) {
    case Fault::noSpace:
        return ENOSPC;
    case Fault::inputOutput:
        return EIO;
    case Fault::noRights:
        return EACCES;
    default:
        return EINTR;
    }
}

/// A traced child that is let run from one stop to the next.
class Traced {
public:
    explicit Traced(const std::function<int()>& work) {
        std::fflush(nullptr);
        m_pid = ::fork();
        if (m_pid < 0)
            throw std::runtime_error("cannot fork");
        if (m_pid == 0) {
            if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0)
                ::raise(SIGSTOP);
            ::_exit(work());
        }
        m_status = nextStatusOf(m_pid);
        m_isTraced = WIFSTOPPED(m_status);
    }

    bool isTraced() const { return m_isTraced; }

    bool runs() const { return WIFSTOPPED(m_status); }

    /// To the next entry into or return from a system call.
    void toNextStop() { go(PTRACE_SYSCALL); }

    void toItsEnd() {
        while (runs())
            go(PTRACE_CONT);
    }

    int result() const {
        return WIFEXITED(m_status) ? WEXITSTATUS(m_status) : 1000 + WTERMSIG(m_status);
    }

    Registers registers() const {
        Registers registers{};
        ::ptrace(PTRACE_GETREGS, m_pid, nullptr, &registers);
        return registers;
    }

    void setRegisters(Registers registers) const {
        ::ptrace(PTRACE_SETREGS, m_pid, nullptr, &registers);
    }

private:
    void go(__ptrace_request how) {
        // A stop for a signal hands the signal on; a stop at a system call shows as SIGTRAP.
        const int signal =
            runs() && WSTOPSIG(m_status) != SIGTRAP && m_isStarted ? WSTOPSIG(m_status) : 0;
        m_isStarted = true;
        ::ptrace(how, m_pid, nullptr, signal);
        m_status = nextStatusOf(m_pid);
    }

    pid_t m_pid = -1;
    int m_status = 0;
    bool m_isTraced = false;
    bool m_isStarted = false;
};

/// The child stands at the entry of the call: makes it go wrong and lets it return.
void inject(Traced& child, Fault fault) {
    Registers registers = child.registers();
    if (fault == Fault::halfTheBytes) {
        registers.rdx = (registers.rdx + 1) / 2;
        child.setRegisters(registers);
        return;
    }
    registers.orig_rax = static_cast<Number>(-1); // no such call: nothing happens
    child.setRegisters(registers);
    child.toNextStop();
    registers = child.registers();
    registers.rax = static_cast<Number>(-errorOf(fault));
    child.setRegisters(registers);
}

/// Lets the call with number `wanted` among those that the fault concerns go wrong. Result: nothing
/// where there are fewer.
std::optional<FaultyRun> runWithFault(Fault fault, int wanted, const std::function<int()>& work) {
    Traced child(work);
    std::optional<FaultyRun> run;
    int seen = 0;
    for (bool isEntry = true; child.isTraced() && !run; isEntry = !isEntry) {
        child.toNextStop();
        if (!child.runs())
            break;
        const Number call = child.registers().orig_rax;
        if (!isEntry || !concerns(fault, call) || ++seen != wanted)
            continue;
        run = FaultyRun{wanted, fileCalls().at(call), 0};
        inject(child, fault);
    }
    child.toItsEnd();
    if (run)
        run->result = child.result();
    return run;
}

#else

std::optional<FaultyRun> runWithFault(Fault, int, const std::function<int()>&) {
    return std::nullopt;
}

#endif

} // namespace

const char* nameOf(Fault fault) {
    switch (fault) {
    case Fault::noSpace:
        return "ENOSPC";
    case Fault::inputOutput:
        return "EIO";
    case Fault::noRights:
        return "EACCES";
    case Fault::interrupted:
        return "EINTR";
    default:
        return "half of the bytes";
    }
}

int failAtEachFileCall(Fault fault, const std::function<void()>& before,
                       const std::function<int()>& work,
                       const std::function<void(const FaultyRun&)>& after) {
    for (int call = 1;; ++call) {
        before();
        const auto run = runWithFault(fault, call, work);
        if (!run)
            return call - 1;
        after(*run);
    }
}

} // namespace orbisgrid::test
