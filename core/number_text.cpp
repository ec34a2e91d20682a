#include "core/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>

namespace orbisgrid {

namespace {

bool isDigit(char16_t character) {
    return character >= u'0' && character <= u'9';
}

/// A number at the start of a text: what it is worth and what stands behind it.
struct ScannedNumber {
    double value{};
    bool hasDigits = false;
    TextView rest;
};

/// Digits and one point, read character by character.
struct ScannedDigits {
    std::uint64_t significand = 0; ///< the digits as a whole number; cut where they are too many
    std::size_t digits = 0;        ///< how many there are ...
    std::size_t decimals = 0;      ///< ... and of these behind the point
    std::size_t length = 0;        ///< characters, the point included
};

/// Powers of ten that a double holds exactly.
constexpr std::array<double, 16> powersOfTen{1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                             1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// As many digits make a whole number that a double holds exactly.
constexpr std::size_t exactDigits = powersOfTen.size() - 1;

ScannedDigits scanDigits(TextView text) {
    ScannedDigits scanned;
    bool hasPoint = false;
    for (const char16_t character : text) {
        if (isDigit(character)) {
            scanned.significand = scanned.significand * 10 + (character - u'0');
            ++scanned.digits;
            scanned.decimals += hasPoint ? 1 : 0;
        } else if (character == u'.' && !hasPoint) {
            hasPoint = true;
        } else {
            break;
        }
        ++scanned.length;
    }
    return scanned;
}

double outOfRange(std::string_view digits) {
    // Only a number with a digit other than 0 before the point is too large; the others are too
    // small to tell from 0.
    const std::string_view whole = digits.substr(0, digits.find('.'));
    return whole.find_first_not_of('0') == std::string_view::npos
               ? 0
               : std::numeric_limits<double>::infinity();
}

double valueOfMany(TextView text) {
    const std::string digits(text.begin(), text.end());
    double value{};
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value,
                                              std::chars_format::fixed);
    return error == std::errc::result_out_of_range ? outOfRange(digits) : value;
}

/// The nearest double. Two exact numbers and one division round only once.
double valueOf(TextView text, const ScannedDigits& scanned) {
    if (scanned.digits > exactDigits)
        return valueOfMany(text.substr(0, scanned.length));
    return static_cast<double>(scanned.significand) / powersOfTen[scanned.decimals];
}

ScannedNumber scanNumber(TextView text) {
    text = withoutLeadingBlanks(text);
    const bool isNegative = text.starts_with(u'-');
    if (isNegative || text.starts_with(u'+'))
        text.remove_prefix(1);
    const ScannedDigits scanned = scanDigits(text);
    const TextView rest = text.substr(scanned.length);
    if (scanned.digits == 0)
        return {0, false, rest};
    const double magnitude = valueOf(text, scanned);
    // 0 stays 0 behind a minus sign: a negative zero would turn up as "-0" or choose a hemisphere.
    return {isNegative && magnitude != 0 ? -magnitude : magnitude, true, rest};
}

template <typename Integer>
std::optional<Integer> nearestInteger(double value) {
    const double nearest = std::nearbyint(value); // the default rounding mode: halves to even
    if (!(nearest >= std::numeric_limits<Integer>::min() &&
          nearest <= std::numeric_limits<Integer>::max()))
        return std::nullopt;
    return static_cast<Integer>(nearest);
}

/// A magnitude that is not 0 as a whole number times a power of ten.
struct Decimal {
    std::uint64_t whole{};
    int exponent{};
};

/// `magnitude` with `count` significant digits: the exact value rounded, halves to even.
Decimal rounded(double magnitude, int count) {
    std::array<char, 24> ascii{}; // d.dddddddddddddde-308
    char* const end = std::to_chars(ascii.data(), ascii.data() + ascii.size(), magnitude,
                                    std::chars_format::scientific, count - 1)
                          .ptr;
    char* const mark = std::find(ascii.data(), end, 'e');
    Decimal decimal;
    // Without its point the mantissa is a whole number.
    std::copy(ascii.data() + 2, mark, ascii.data() + 1);
    std::from_chars(ascii.data(), mark - 1, decimal.whole);
    std::from_chars(mark + 2, end, decimal.exponent);
    if (mark[1] == '-')
        decimal.exponent = -decimal.exponent;
    decimal.exponent -= count - 1;
    return decimal;
}

/// The same where one multiplication finds it; nothing where it needs the exact value.
std::optional<Decimal> quicklyRounded(double magnitude, int count) {
    if (magnitude < powersOfTen[static_cast<std::size_t>(count)]) {
        const auto whole = static_cast<std::int64_t>(magnitude);
        if (static_cast<double>(whole) == magnitude)
            return Decimal{static_cast<std::uint64_t>(whole), 0};
    }
    constexpr int mostCertain = 7; // of more digits the product below would not be certain
    if (count > mostCertain || magnitude < 1e-3 || magnitude >= 1e3)
        return std::nullopt;
    int decimals = count - 3;
    for (const double limit : {100.0, 10.0, 1.0, 0.1, 0.01})
        decimals += magnitude < limit ? 1 : 0;
    const double scaled = magnitude * powersOfTen[static_cast<std::size_t>(decimals)];
    // NOLINTNEXTLINE(bugprone-incorrect-roundings): halves are left to the slow way
    const auto nearest = static_cast<std::int64_t>(scaled + 0.5);
    // Both factors are exact and the product is below 1e7, so it is off by less than 1e-9.
    constexpr double certain = 0.5 - 1e-6;
    if (std::fabs(scaled - static_cast<double>(nearest)) > certain)
        return std::nullopt;
    return Decimal{static_cast<std::uint64_t>(nearest), -decimals};
}

std::size_t digitsOf(std::uint64_t whole) {
    std::size_t count = 1;
    // A product is quicker than a quotient, and none overflows: 15 digits are the most there are.
    for (std::uint64_t power = 10; whole >= power; power *= 10)
        ++count;
    return count;
}

/// Lays out a plain decimal: no exponent, no trailing zeros behind the point, a digit before it. A
/// whole number gets leading zeros up to `minimumDigits`.
template <typename String>
void append(String& text, Decimal decimal, std::size_t minimumDigits) {
    using Character = typename String::value_type;
    while (decimal.exponent < 0 && decimal.whole % 10 == 0) {
        decimal.whole /= 10;
        ++decimal.exponent;
    }
    const auto zeros = static_cast<std::size_t>(std::max(decimal.exponent, 0));
    const auto decimals = static_cast<std::size_t>(std::max(-decimal.exponent, 0));
    const std::size_t digits = std::max({digitsOf(decimal.whole), decimals + 1, minimumDigits});
    const std::size_t first = text.size();
    const std::size_t point = first + digits - decimals;
    text.resize(first + digits + (decimals > 0 ? 1 : 0), Character{'.'});
    const auto fill = [&](std::size_t from, std::size_t end, std::uint64_t& whole) {
        for (std::size_t i = end; i-- > from; whole /= 10)
            text[i] = static_cast<Character>(u'0' + whole % 10);
    };
    if (decimals > 0)
        fill(point + 1, text.size(), decimal.whole);
    fill(first, point, decimal.whole);
    text.append(zeros, Character{'0'});
}

struct NumberForm {
    int significantDigits;
    bool hasBlank = false; ///< one in front of values that are not negative
    std::size_t minimumDigits = 1;
};

constexpr int singleDigits = 7;
constexpr int doubleDigits = 15;

/// Puts the text behind what stands in `text`: a text of the program, or bytes of a file.
template <typename String>
void appendNumber(String& text, double value, const NumberForm& form) {
    using Character = typename String::value_type;
    if (form.hasBlank && !(value < 0 && std::isfinite(value)))
        text += Character{' '};
    if (value == 0) {
        text.append(form.minimumDigits, Character{'0'});
    } else if (!std::isfinite(value)) {
        for (const char letter : std::string_view(std::isnan(value) ? "nan" : "inf"))
            text += static_cast<Character>(letter);
    } else {
        if (value < 0)
            text += Character{'-'};
        const double magnitude = std::fabs(value);
        const auto quick = quicklyRounded(magnitude, form.significantDigits);
        append(text, quick ? *quick : rounded(magnitude, form.significantDigits),
               form.minimumDigits);
    }
}

Text numberText(double value, const NumberForm& form) {
    Text text; // returned by every path, so the compiler builds it in the caller's place
    appendNumber(text, value, form);
    return text;
}

/// Adds one unit to the last place of a decimal text such as "49.99999".
void addUnitInLastPlace(std::string& decimal) {
    for (std::size_t i = decimal.size(); i-- > 0;) {
        if (decimal[i] == '.')
            continue;
        if (decimal[i] != '9') {
            ++decimal[i];
            return;
        }
        decimal[i] = '0';
    }
    decimal.insert(decimal.begin(), '1');
}

} // namespace

double leadingNumber(TextView text) {
    return scanNumber(text).value;
}

std::optional<double> strictNumber(TextView text) {
    const ScannedNumber number = scanNumber(text);
    if (!number.hasDigits || !trimmed(number.rest).empty())
        return std::nullopt;
    return number.value;
}

std::optional<std::int32_t> nearestInt32(double value) {
    return nearestInteger<std::int32_t>(value);
}

std::optional<std::int16_t> nearestInt16(double value) {
    return nearestInteger<std::int16_t>(value);
}

Text plainText(float value) {
    return numberText(value, {singleDigits});
}

Text plainText(double value) {
    return numberText(value, {doubleDigits});
}

Text plainTextOfSeven(double value) {
    return numberText(value, {singleDigits});
}

void appendPlainText(std::string& bytes, float value) {
    appendNumber(bytes, value, {singleDigits});
}

void appendPlainText(std::string& bytes, double value) {
    appendNumber(bytes, value, {doubleDigits});
}

void appendPlainTextOfSeven(std::string& bytes, double value) {
    appendNumber(bytes, value, {singleDigits});
}

Text printText(float value) {
    return numberText(value, {singleDigits, true});
}

Text printText(double value) {
    return numberText(value, {doubleDigits, true});
}

double wholeMaskValue(double value) {
    return std::round(value);
}

Text wholeMask(double value, std::size_t minimumDigits) {
    return numberText(wholeMaskValue(value), {doubleDigits, false, minimumDigits});
}

Text fiveDecimalMask(double value) {
    if (!std::isfinite(value))
        return plainText(value);
    // Twenty more decimals than shown: enough to see on which side of a half the value lies.
    constexpr int shown = 5;
    constexpr int looked = shown + 20;
    std::array<char, 400> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                            std::fabs(value), std::chars_format::fixed, looked);
    std::string decimal(buffer.data(), end);
    const bool roundsUp = decimal[decimal.size() - (looked - shown)] >= '5';
    decimal.resize(decimal.size() - (looked - shown));
    if (roundsUp)
        addUnitInLastPlace(decimal);
    decimal.erase(decimal.find_last_not_of('0') + 1);
    if (decimal.starts_with("0."))
        decimal.erase(0, 1);
    Text text = value < 0 ? u"-" : u"";
    text.append(decimal.begin(), decimal.end());
    return text;
}

} // namespace orbisgrid
