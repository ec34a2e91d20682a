#include "records/record_window.h"

#include <algorithm>
#include <span>

namespace orbisgrid {

namespace {

/// Bytes at a time, at first: a short list needs no more memory than that ...
constexpr std::size_t firstBlock = std::size_t{1} << 12U;

/// ... and in the end: with more, a file is not read quicker.
constexpr std::size_t lastBlock = std::size_t{1} << 17U;

} // namespace

std::optional<Reading> RecordWindow::fetch() {
    if (bytes().size() > longestRecord)
        return Reading::tooLong;
    makeRoom();
    const auto count = m_source.read(std::span(m_buffer).subspan(m_end));
    if (!count)
        return Reading::unreadable;
    m_end += *count;
    m_isWhole = *count == 0;
    return std::nullopt;
}

std::optional<Reading> RecordWindow::fetchUntil(std::size_t count) {
    std::optional<Reading> failure;
    while (!failure && !m_isWhole && bytes().size() < count)
        failure = fetch();
    return failure;
}

void RecordWindow::makeRoom() {
    std::copy(m_buffer.begin() + static_cast<std::ptrdiff_t>(m_begin),
              m_buffer.begin() + static_cast<std::ptrdiff_t>(m_end), m_buffer.begin());
    m_end -= m_begin;
    m_begin = 0;
    m_block = std::clamp(m_block * 2, firstBlock, lastBlock);
    if (m_buffer.size() < m_end + m_block)
        m_buffer.resize(std::max(m_end + m_block, m_end * 2));
}

void RecordWindow::take(std::size_t count) {
    const std::string_view taken = bytes().substr(0, count);
    // By searching: line feeds are rare, or there is one, at the end.
    for (std::size_t at = taken.find('\n'); at < taken.size(); at = taken.find('\n', at + 1))
        ++m_line;
    m_begin += count;
    m_isAtStart = false;
}

std::size_t RecordWindow::markLength() const {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    return m_isAtStart && bytes().starts_with(mark) ? mark.size() : 0;
}

} // namespace orbisgrid
