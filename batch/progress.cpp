#include "batch/progress.h"

#include <algorithm>
#include <utility>

namespace orbisgrid {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds firstAfter(1000);
constexpr milliseconds nextAfter(200);

constexpr const char* erased = "\r\x1b[K"; // to the line's beginning, and all of it away

std::uint64_t rounded(double value) {
    return static_cast<std::uint64_t>(value + 0.5); // NOLINT(bugprone-incorrect-roundings)
}

std::string timeText(std::uint64_t seconds) {
    if (seconds < 100)
        return std::to_string(seconds) + " s";
    return std::to_string((seconds + 30) / 60) + " min";
}

} // namespace

std::string grouped(std::uint64_t number) {
    std::string text = std::to_string(number);
    for (std::size_t at = text.size(); at > 3;) {
        at -= 3;
        text.insert(at, 1, ',');
    }
    return text;
}

Progress::Progress(Show show, Clock clock)
    : m_show(std::move(show))
    , m_clock(std::move(clock))
    , m_start(m_clock())
    , m_due(m_start + firstAfter) {}

void Progress::update(const WorkDone& done) {
    if (!m_show)
        return;
    const auto now = m_clock();
    if (now < m_due)
        return;
    m_due = now + nextAfter;
    m_show(erased + lineOf(done, std::chrono::duration<double>(now - m_start).count()));
    m_isShown = true;
}

void Progress::erase() {
    if (m_isShown)
        m_show(erased);
    m_isShown = false;
}

std::string Progress::lineOf(const WorkDone& done, double seconds) const {
    const auto lines = static_cast<double>(done.lines);
    std::string line = grouped(done.lines) + (done.lines == 1 ? " line, " : " lines, ") +
                       grouped(rounded(lines / seconds)) + " a second";
    if (m_total && *m_total > 0 && done.bytes > 0) {
        const double share =
            std::min(1.0, static_cast<double>(done.bytes) / static_cast<double>(*m_total));
        const double left = seconds * (1 - share) / share;
        line.insert(0, std::to_string(static_cast<int>(100 * share)) + " %, ");
        line += ", " + timeText(rounded(left)) + " left";
    }
    return line;
}

} // namespace orbisgrid
