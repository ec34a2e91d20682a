#include "batch/angle_pair.h"

#include "core/number_text.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

namespace orbisgrid {

namespace {

/// A part of a text of angles.
struct Part {
    enum class Kind { number, degreeMark, minuteMark, secondMark, letter, sign, separator };

    Kind kind = Kind::number;
    char16_t character{}; ///< of a letter in capitals, of a sign
    double value{};
    bool isWhole = false; ///< a number without decimals
};

using Kind = Part::Kind;
using Parts = std::span<const Part>;

constexpr TextView digits = u"0123456789";

bool isBlank(char16_t character) {
    return character == u' ' || character == u'\t' || character == 0xA0;
}

/// Splits a text into its parts.
class Splitter {
public:
    Splitter(TextView text, Comma comma)
        : m_text(text)
        , m_comma(comma) {}

    /// Nothing where a character belongs to no part.
    std::optional<std::vector<Part>> split() {
        while (m_at < m_text.size()) {
            if (isBlank(m_text[m_at]))
                ++m_at;
            else if (!takeNumber() && !takeSign())
                return std::nullopt;
        }
        return std::move(m_parts);
    }

private:
    /// `at` is within the text or its end. A comma is a point between two digits of one number and
    /// nowhere else.
    bool isPoint(std::size_t at) const {
        const TextView rest = m_text.substr(at);
        if (rest.starts_with(u'.'))
            return true;
        return m_comma == Comma::point && rest.starts_with(u',') && at > m_at &&
               rest.find_first_of(digits, 1) == 1;
    }

    std::size_t behindDigits(std::size_t at) const {
        return std::min(m_text.size(), m_text.find_first_not_of(digits, at));
    }

    bool takeNumber() {
        const std::size_t whole = behindDigits(m_at);
        const std::size_t end = isPoint(whole) ? behindDigits(whole + 1) : whole;
        const auto number = strictNumber(replaced(m_text.substr(m_at, end - m_at), {u',', u'.'}));
        if (end == m_at || !number)
            return false;
        m_parts.push_back({Kind::number, {}, *number, end == whole});
        m_at = end;
        return true;
    }

    void add(Kind kind, char16_t character = {}) {
        m_parts.push_back({kind, character, {}, false});
        ++m_at;
    }

    bool takeSign() {
        switch (const char16_t character = upperCase(m_text[m_at])) {
        case u'N':
        case u'S':
        case u'E':
        case u'W':
            add(Kind::letter, character);
            return true;
        case u'+':
            add(Kind::sign, character);
            return true;
        case u'-':
        case u'−':
            add(Kind::sign, u'-');
            return true;
        case u'°':
        case u'º':
            add(Kind::degreeMark);
            return true;
        case u'\'':
            if (m_text.substr(m_at).starts_with(u"''")) {
                ++m_at;
                add(Kind::secondMark);
                return true;
            }
            [[fallthrough]];
        case u'′':
        case u'’':
            add(Kind::minuteMark);
            return true;
        case u'"':
        case u'″':
        case u'”':
            add(Kind::secondMark);
            return true;
        case u',':
        case u';':
            add(Kind::separator);
            return true;
        default:
            return false;
        }
    }

    TextView m_text;
    Comma m_comma;
    std::size_t m_at = 0;
    std::vector<Part> m_parts;
};

/// One of the two angles.
struct Angle {
    double degrees = 0;
    std::size_t numbers = 0;
    char16_t letter = 0; ///< none: 0
};

/// Reads the parts of one angle.
class AngleReader {
public:
    explicit AngleReader(Parts parts)
        : m_parts(parts) {}

    std::optional<Angle> read() {
        Angle angle;
        if (const Part* letter = take(Kind::letter))
            angle.letter = letter->character;
        const Part* sign = take(Kind::sign);
        double unit = 1;
        for (const Kind mark : {Kind::degreeMark, Kind::minuteMark, Kind::secondMark}) {
            const Part* number = take(Kind::number);
            if (number == nullptr)
                break;
            if (!m_isLastWhole || (unit == 60 && number->value >= 60) ||
                (unit == 3600 && number->value > 60))
                return std::nullopt;
            angle.degrees += number->value / unit;
            ++angle.numbers;
            m_isLastWhole = number->isWhole;
            take(mark);
            unit *= 60;
        }
        if (angle.letter == 0) {
            if (const Part* letter = take(Kind::letter))
                angle.letter = letter->character;
        }
        if (angle.numbers == 0 || !m_parts.empty() || (sign != nullptr && angle.letter != 0))
            return std::nullopt;
        if ((sign != nullptr && sign->character == u'-') || angle.letter == u'S' ||
            angle.letter == u'W')
            angle.degrees = 0 - angle.degrees; // of 0 it is 0 and never -0
        return angle;
    }

private:
    const Part* take(Kind kind) {
        if (m_parts.empty() || m_parts.front().kind != kind)
            return nullptr;
        const Part* part = &m_parts.front();
        m_parts = m_parts.subspan(1);
        return part;
    }

    Parts m_parts;
    bool m_isLastWhole = true;
};

std::size_t count(Parts parts, Kind kind) {
    return static_cast<std::size_t>(std::count_if(
        parts.begin(), parts.end(), [kind](const Part& part) { return part.kind == kind; }));
}

/// The place of the `number`th part of a kind, counted from 0; there are more than `number`.
std::size_t placeOf(Parts parts, Kind kind, std::size_t number) {
    std::size_t at = 0;
    for (;; ++at) {
        if (parts[at].kind == kind && number-- == 0)
            return at;
    }
}

/// Where the number that ends before `at` begins, its sign included.
std::size_t withSign(Parts parts, std::size_t at) {
    return at > 0 && parts[at - 1].kind == Kind::sign ? at - 1 : at;
}

/// Where the second angle begins; nothing where that cannot be told.
std::optional<std::size_t> border(Parts parts) {
    const std::size_t letters = count(parts, Kind::letter);
    if (letters == 2) {
        const std::size_t second = placeOf(parts, Kind::letter, 1);
        return parts.front().kind == Kind::letter ? second : placeOf(parts, Kind::letter, 0) + 1;
    }
    if (letters != 0)
        return std::nullopt;
    if (count(parts, Kind::separator) == 1)
        return placeOf(parts, Kind::separator, 0);
    if (count(parts, Kind::degreeMark) == 2) {
        const std::size_t mark = placeOf(parts, Kind::degreeMark, 1);
        return withSign(parts, std::max<std::size_t>(mark, 1) - 1);
    }
    const std::size_t numbers = count(parts, Kind::number);
    if (numbers == 0 || numbers % 2 != 0)
        return std::nullopt;
    return withSign(parts, placeOf(parts, Kind::number, numbers / 2));
}

/// Whether each separator stands between two other parts.
bool areSeparatorsBetween(Parts parts) {
    bool isBetween = false; // whether one may stand here
    for (const Part& part : parts) {
        if (part.kind == Kind::separator && !isBetween)
            return false;
        isBetween = part.kind != Kind::separator;
    }
    return isBetween;
}

/// With letters a separator can only stand where the second angle begins.
bool isBorderClear(Parts parts, std::size_t middle) {
    if (count(parts, Kind::letter) == 0 || count(parts, Kind::separator) == 0)
        return true;
    const bool isThere =
        parts[middle].kind == Kind::separator || parts[middle - 1].kind == Kind::separator;
    return isThere && count(parts, Kind::separator) == 1;
}

bool isAmong(char16_t letter, TextView letters) {
    return letter == 0 || letters.find(letter) != TextView::npos;
}

} // namespace

std::optional<AnglePair> readAnglePair(TextView text, Comma comma) {
    auto parts = Splitter(text, comma).split();
    if (!parts || !areSeparatorsBetween(*parts))
        return std::nullopt;
    const auto middle = border(*parts);
    if (!middle || !isBorderClear(*parts, *middle))
        return std::nullopt;
    // A separator has done its work.
    const auto isSeparator = [](const Part& part) { return part.kind == Kind::separator; };
    const auto second = parts->begin() + static_cast<std::ptrdiff_t>(*middle);
    std::vector<Part> first(parts->begin(), second);
    std::vector<Part> rest(second, parts->end());
    std::erase_if(first, isSeparator);
    std::erase_if(rest, isSeparator);
    const auto latitude = AngleReader(first).read();
    const auto longitude = AngleReader(rest).read();
    if (!latitude || !longitude || !isAmong(latitude->letter, u"NS") ||
        !isAmong(longitude->letter, u"EW"))
        return std::nullopt;
    return AnglePair{{latitude->degrees, longitude->degrees},
                     latitude->numbers + longitude->numbers == 2};
}

} // namespace orbisgrid
