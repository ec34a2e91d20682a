#include "panels/manual_display.h"

#include <algorithm>

namespace orbisgrid {

namespace {

constexpr std::size_t longestLine = 2000;

bool isLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

std::size_t countUpTo(const std::vector<std::size_t>& ascending, std::size_t position) {
    return static_cast<std::size_t>(std::ranges::upper_bound(ascending, position) -
                                    ascending.begin());
}

} // namespace

ManualDisplay::ManualDisplay(TextView manual) {
    m_text.reserve(manual.size());
    std::size_t column = 0;
    for (std::size_t i = 0; i < manual.size(); ++i) {
        if (manual[i] == u'\r') {
            m_lineEnds.push_back(i + 1);
            continue;
        }
        if (manual[i] == u'\n') {
            column = 0;
        } else if (column >= longestLine && !isLowSurrogate(manual[i])) {
            m_cuts.push_back(i + 1);
            m_text += u'\n';
            column = 1;
        } else {
            ++column;
        }
        m_text += manual[i];
    }
}

std::size_t ManualDisplay::place(std::size_t position) const {
    return position - 1 - countUpTo(m_lineEnds, position - 1) + countUpTo(m_cuts, position);
}

} // namespace orbisgrid
