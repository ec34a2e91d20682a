#include "fuzz/oracle.h"
#include "panels/manual_display.h"
#include "panels/manual_search.h"

namespace orbisgrid::fuzz {

namespace {

/// Every place compared character by character; positions from 1, 0 for none.
std::size_t naivePosition(const Text& manual, const Text& what, std::size_t start) {
    for (std::size_t at = start; at + what.size() <= manual.size() + 1; ++at) {
        bool isHere = true;
        for (std::size_t i = 0; isHere && i < what.size(); ++i)
            isHere = upperCase(manual[at - 1 + i]) == what[i];
        if (isHere)
            return at;
    }
    return 0;
}

/// The find as it is told to a person: a new text starts at the top, the same goes on.
class NaiveSearch {
public:
    explicit NaiveSearch(Text manual)
        : m_manual(std::move(manual)) {}

    std::size_t find(const Text& answer) {
        if (answer.empty())
            return m_next = 0;
        if (answer != m_last || m_next == 0)
            m_next = 1;
        m_last = upperCase(answer);
        const std::size_t found = naivePosition(m_manual, m_last, m_next);
        m_next = found == 0 ? 1 : naivePosition(m_manual, m_last, found + 1);
        return found;
    }

private:
    Text m_manual;
    Text m_last;
    std::size_t m_next = 0;
};

void compareFinds(const Text& manual, const std::vector<Text>& answers) {
    ManualSearch search(manual);
    NaiveSearch naive(manual);
    for (const Text& answer : answers) {
        const ManualFind find = search.DoTheSearch(answer);
        const std::size_t expected = naive.find(answer);
        const bool isFound = find.outcome == ManualFind::Outcome::found;
        require(isFound == (expected != 0), "found or not");
        require(!isFound || find.position == expected, "position");
        require((find.outcome == ManualFind::Outcome::cancelled) == answer.empty(), "cancelled");
    }
}

/// Each character of the manual but LF stands in the box at its place.
void compareDisplay(const Text& manual) {
    const ManualDisplay display(manual);
    for (std::size_t position = 1; position <= manual.size(); ++position) {
        const char16_t character = manual[position - 1];
        if (character == u'\n')
            continue;
        const std::size_t place = display.place(position);
        require(place < display.text().size(), "inside the box");
        require(display.text()[place] == (character == u'\r' ? u'\n' : character), "its character");
    }
}

} // namespace

} // namespace orbisgrid::fuzz

/// The first lines are what is typed, up to an empty one; behind it stands the manual.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orbisgrid;
    const std::string_view bytes = fuzz::bytesOf(data, size);
    const std::size_t border = std::min(bytes.find("\n\n"), bytes.size());
    const std::vector<Text> answers = fuzz::linesOf(data, border);
    const Text manual = manualText(bytes.substr(std::min(border + 2, bytes.size())));
    fuzz::require(manual.empty() || manual.ends_with(lineEnd), "last line's end");
    fuzz::compareFinds(manual, answers);
    fuzz::compareDisplay(manual);
    return 0;
}
