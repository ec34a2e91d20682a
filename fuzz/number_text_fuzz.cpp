#include "core/number_text.h"
#include "fuzz/oracle.h"

#include <cmath>
#include <cstdlib>
#include <string>

namespace orbisgrid::fuzz {

namespace {

/// The grammar, one regular step after the other: blanks, one sign, digits, one point, digits.
/// Result: the number's characters in `number`, and how far the text was read.
std::size_t readByGrammar(const Text& text, std::string& number) {
    std::size_t at = 0;
    const auto digits = [&] {
        std::size_t count = 0;
        for (; at < text.size() && u'0' <= text[at] && text[at] <= u'9'; ++at, ++count)
            number += static_cast<char>(text[at]);
        return count;
    };
    while (at < text.size() && text[at] == u' ')
        ++at;
    if (at < text.size() && (text[at] == u'-' || text[at] == u'+')) {
        if (text[at] == u'-')
            number += '-';
        ++at;
    }
    std::size_t count = digits();
    if (at < text.size() && text[at] == u'.') {
        number += '.';
        ++at;
        count += digits();
    }
    if (count == 0)
        number.clear();
    return at;
}

void compareReading(const Text& text) {
    std::string number;
    const std::size_t end = readByGrammar(text, number);
    const double expected = number.empty() ? 0 : std::strtod(number.c_str(), nullptr);
    const double value = leadingNumber(text);
    require(value == expected, "leadingNumber");
    require(value != 0 || !std::signbit(value), "no negative zero");
    const bool isStrict = !number.empty() && text.find_first_not_of(u' ', end) == Text::npos;
    const auto strict = strictNumber(text);
    require(strict.has_value() == isStrict, "strictNumber's grammar");
    require(!strict || *strict == expected, "strictNumber's value");
}

bool isPlain(const Text& text) {
    const std::size_t start = text.starts_with(u'-') ? 1 : 0;
    const std::size_t point = text.find(u'.');
    return text.find_first_not_of(u"0123456789.", start) == Text::npos && text.size() > start &&
           text[start] != u'.' &&
           text.find(u'.', point == Text::npos ? point : point + 1) == Text::npos &&
           (point == Text::npos || (text.back() != u'0' && text.back() != u'.'));
}

/// Writing and reading again keeps as many digits as were written.
void writeAndRead(double value) {
    const Text text = plainText(value);
    require(isPlain(text), "plain form");
    require(std::fabs(leadingNumber(text) - value) <= std::fabs(value) * 5.1e-15, "15 digits");
    const Text seven = plainTextOfSeven(value);
    require(isPlain(seven), "plain form of seven digits");
    require(std::fabs(leadingNumber(seven) - value) <= std::fabs(value) * 5.1e-7, "7 digits");
    require(printText(value) == (text.starts_with(u'-') ? text : u' ' + text), "print form");
    const auto single = static_cast<float>(value);
    if (std::isfinite(single))
        require(plainText(single) == plainTextOfSeven(static_cast<double>(single)), "single");
}

void compareMasks(double value) {
    const double magnitude = std::fabs(value);
    if (magnitude > 1e9)
        return;
    const double five = leadingNumber(fiveDecimalMask(magnitude));
    // Half of the last decimal, and the distance between two doubles for what is read back.
    const double furthest = 0.000005 + magnitude * 2.3e-16;
    require(std::fabs(five - magnitude) <= furthest, "five decimals");
    require(leadingNumber(wholeMask(value, 3)) == std::round(value), "whole mask");
}

} // namespace

} // namespace orbisgrid::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orbisgrid;
    const Text text = fromUtf8(fuzz::bytesOf(data, size));
    fuzz::compareReading(text);
    const double value = leadingNumber(text);
    if (std::isfinite(value)) {
        fuzz::writeAndRead(value);
        fuzz::compareMasks(value);
    }
    return 0;
}
