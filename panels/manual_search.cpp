#include "panels/manual_search.h"

#include <algorithm>
#include <functional>

namespace orbisgrid {

namespace {

constexpr char16_t byteOrderMark = 0xFEFF;

} // namespace

Text manualText(std::string_view fileBytes) {
    const Text content = fromFileBytes(fileBytes);
    TextView rest = content;
    if (rest.starts_with(byteOrderMark))
        rest.remove_prefix(1);
    Text manual;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find_first_of(u"\r\n"), rest.size());
        manual += rest.substr(0, end);
        manual += lineEnd;
        rest.remove_prefix(end);
        if (rest.starts_with(lineEnd))
            rest.remove_prefix(lineEnd.size());
        else if (!rest.empty())
            rest.remove_prefix(1);
    }
    return manual;
}

ManualSearch::ManualSearch(TextView manual)
    : m_upperManual(upperCase(manual)) {}

ManualFind ManualSearch::DoTheSearch(TextView answer) {
    m_found = false;
    m_searchString = answer;
    if (m_searchString.empty()) {
        m_searchPos = 0;
        m_nextStart = 0;
        return {};
    }
    if (m_searchString != m_lastSearch) {
        m_searchPos = 0;
        m_nextStart = 0;
    }
    m_searchString = upperCase(m_searchString);
    m_lastSearch = m_searchString;
    m_searchPos = positionFrom(std::max<std::size_t>(m_searchPos, 1));

    ManualFind find{ManualFind::Outcome::nothingFound, m_searchPos, m_searchString.size()};
    if (m_searchPos != 0) {
        m_found = true;
        find.outcome = ManualFind::Outcome::found;
    } else {
        m_nextStart = 0;
        m_searchString.clear();
        find.length = 0;
    }
    lookAhead();
    return find;
}

void ManualSearch::lookAhead() {
    // After a find without a match this looks for the empty text, which is at once at 1: the next
    // find begins at the top all the same.
    m_nextStart = m_searchPos + 1;
    m_searchPos = positionFrom(m_nextStart);
}

std::size_t ManualSearch::positionFrom(std::size_t start) const {
    // Boyer-Moore, because a plain search takes length times length where a long find text nearly
    // matches everywhere: minutes in a manual of 10 MB.
    const auto from = m_upperManual.begin() + static_cast<std::ptrdiff_t>(start - 1);
    const auto match =
        std::search(from, m_upperManual.end(),
                    std::boyer_moore_searcher(m_searchString.begin(), m_searchString.end()));
    if (match == m_upperManual.end() && !m_searchString.empty())
        return 0;
    return static_cast<std::size_t>(match - m_upperManual.begin()) + 1;
}

} // namespace orbisgrid
