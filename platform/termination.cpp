#include "platform/termination.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

namespace orbisgrid {

namespace {

// A global that changes, as there is one in app/window/application_start: a signal handler is
// called with a number and nothing else, so the pipe that it writes to must stand where it can find
// it.
std::atomic<int> pipeOfTheHandler{-1};
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler must not wait");

extern "C" void passSignalToPipe(int) {
    const int formerError = errno;
    const char anything = 0;
    // A full pipe is as good: the event loop has been told.
    [[maybe_unused]] const ssize_t written = ::write(pipeOfTheHandler.load(), &anything, 1);
    errno = formerError;
}

} // namespace

TerminationSignals::TerminationSignals() {
    if (::pipe2(m_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    pipeOfTheHandler = m_pipe[1];

    struct sigaction action = {};

    action.sa_handler = passSignalToPipe;
    action.sa_flags = SA_RESTART;
    ::sigemptyset(&action.sa_mask);
    for (std::size_t i = 0; i < signals.size(); ++i) {
        ::sigaction(signals.at(i), nullptr, &m_former.at(i));
        if (m_former.at(i).sa_handler != SIG_IGN)
            ::sigaction(signals.at(i), &action, nullptr);
    }
}

TerminationSignals::~TerminationSignals() {
    if (descriptor() < 0)
        return;
    for (std::size_t i = 0; i < signals.size(); ++i)
        ::sigaction(signals.at(i), &m_former.at(i), nullptr);
    pipeOfTheHandler = -1;
    ::close(m_pipe[0]);
    ::close(m_pipe[1]);
}

void TerminationSignals::take() const {
    std::array<char, 16> taken{};
    while (::read(descriptor(), taken.data(), taken.size()) > 0) {
    }
}

} // namespace orbisgrid
