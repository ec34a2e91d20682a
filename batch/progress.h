#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace orbisgrid {

/// A whole number with a comma between each three digits: "1,234,567".
[[nodiscard]] std::string grouped(std::uint64_t number);

/// How far the work is.
struct WorkDone {
    std::uint64_t bytes{};
    std::uint64_t lines{};
};

/// The line of progress on a terminal. It appears when the work has taken a second, changes five
/// times a second at most, and is erased before anything else is written there.
class Progress {
public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;
    using Show = std::function<void(const std::string&)>;

    /// `show` puts bytes on the terminal. Without it there never is a line.
    Progress(Show show, Clock clock);

    /// All the bytes there are; nothing where that is not known.
    void setTotal(std::optional<std::uint64_t> bytes) { m_total = bytes; }

    void update(const WorkDone& done);
    void erase();

private:
    std::string lineOf(const WorkDone& done, double seconds) const;

    Show m_show;
    Clock m_clock;
    std::optional<std::uint64_t> m_total;
    std::chrono::steady_clock::time_point m_start;
    std::chrono::steady_clock::time_point m_due;
    bool m_isShown = false;
};

} // namespace orbisgrid
