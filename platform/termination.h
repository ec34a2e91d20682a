#pragma once

#include <array>
#include <csignal>

namespace orbisgrid {

/// Turns the signals that ask a program to end (SIGTERM, SIGINT, SIGHUP) into something to read, so
/// that an event loop can wait for them beside everything else. One of them at a time; it lives as
/// long as the window runs, and gives the signals their former meaning back at its end. A signal
/// that the caller of the program has set to be ignored (nohup, a job in the background) stays
/// ignored.
class TerminationSignals {
public:
    TerminationSignals();
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;
    TerminationSignals(TerminationSignals&&) = delete;
    TerminationSignals& operator=(TerminationSignals&&) = delete;

    /// Becomes readable when signals have come in; -1 where none could be had: the signals then
    /// keep their former meaning and end the program at once.
    int descriptor() const { return m_pipe[0]; }

    /// Takes note of all that have come in, however many: the descriptor waits for the next one.
    void take() const;

    /// The signals, in the order in which `m_former` keeps what they meant.
    static constexpr std::array signals{SIGTERM, SIGINT, SIGHUP};

private:
    std::array<int, 2> m_pipe{-1, -1};
    std::array<struct sigaction, signals.size()> m_former{};
};

} // namespace orbisgrid
