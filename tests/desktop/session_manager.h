#pragma once

#include <memory>
#include <string>

namespace orbisgrid::test {

/// A session manager of the test's own, speaking the protocol that X desktops end their sessions
/// with (XSMP). For one program. To be used from one thread, one at a time.
class SessionManager {
public:
    /// Listens from now on. Throws if it cannot.
    SessionManager();
    ~SessionManager();
    SessionManager(const SessionManager&) = delete;
    SessionManager& operator=(const SessionManager&) = delete;
    SessionManager(SessionManager&&) = delete;
    SessionManager& operator=(SessionManager&&) = delete;

    /// What SESSION_MANAGER names it by.
    const std::string& address() const;

    /// Waits up to a minute for the program to register and to answer the protocol's first request.
    bool waitForProgram();

    /// Says that the session is about to end. Result: whether the program says within a minute that
    /// it has saved.
    bool announceEnd();

    /// A property that the program has set, as "type value value ..." with the bytes of a number as
    /// decimals; empty where it has set none of that name.
    std::string property(const std::string& name) const;

    /// The session goes on after all.
    void callOff();

    /// Ends the program. Result: whether it leaves within a minute.
    bool end();

    struct State; ///< of its own: the library's header has macros that others stumble over

private:
    std::unique_ptr<State> m_state;
};

} // namespace orbisgrid::test
