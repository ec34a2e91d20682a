#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <functional>

namespace orbisgrid {

/// Turns the signals that ask a program to end (SIGTERM, SIGINT, SIGHUP) into a call on the thread
/// that runs the event loop. One of them at a time; it lives as long as the window runs, and gives
/// the signals their former meaning back at its end. A signal that the caller of the program has
/// set to be ignored (nohup, a job in the background) stays ignored.
class Termination : public QObject {
public:
    /// `onRequest` is called from the event loop, once for each time that signals have come in.
    explicit Termination(std::function<void()> onRequest, QObject* parent = nullptr);
    ~Termination() override;
    Termination(const Termination&) = delete;
    Termination& operator=(const Termination&) = delete;
    Termination(Termination&&) = delete;
    Termination& operator=(Termination&&) = delete;

    /// The signals, in the order in which `m_former` keeps what they meant.
    static constexpr std::array signals{SIGTERM, SIGINT, SIGHUP};

private:
    void passOn();

    std::function<void()> m_onRequest;
    std::array<int, 2> m_pipe{-1, -1};
    std::array<struct sigaction, signals.size()> m_former{};
    QSocketNotifier* m_notifier = nullptr;
};

} // namespace orbisgrid
