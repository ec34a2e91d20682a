#include "core/number_text.h"

#include <array>
#include <charconv>
#include <cmath>
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
    double value = 0;
    bool hasDigits = false;
    TextView rest;
};

double outOfRange(std::string_view digits) {
    // Only a number with a digit other than 0 before the point is too large; the others are too
    // small to tell from 0.
    const std::string_view whole = digits.substr(0, digits.find('.'));
    return whole.find_first_not_of('0') == std::string_view::npos
               ? 0
               : std::numeric_limits<double>::infinity();
}

double valueOf(std::string_view digits) {
    double value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value,
                                              std::chars_format::fixed);
    return error == std::errc::result_out_of_range ? outOfRange(digits) : value;
}

ScannedNumber scanNumber(TextView text) {
    text = withoutLeadingBlanks(text);
    const bool isNegative = text.starts_with(u'-');
    if (isNegative || text.starts_with(u'+'))
        text.remove_prefix(1);
    std::string digits;
    std::size_t length = 0;
    bool hasPoint = false;
    bool hasDigits = false;
    for (; length < text.size(); ++length) {
        const char16_t character = text[length];
        if (isDigit(character))
            hasDigits = true;
        else if (character == u'.' && !hasPoint)
            hasPoint = true;
        else
            break;
        digits += static_cast<char>(character);
    }
    text.remove_prefix(length);
    if (!hasDigits)
        return {0, false, text};
    const double magnitude = valueOf(digits);
    // 0 stays 0 behind a minus sign: a negative zero would turn up as "-0" or choose a hemisphere.
    return {isNegative && magnitude != 0 ? -magnitude : magnitude, true, text};
}

template <typename Integer>
std::optional<Integer> nearestInteger(double value) {
    const double nearest = std::nearbyint(value); // the default rounding mode: halves to even
    if (!(nearest >= std::numeric_limits<Integer>::min() &&
          nearest <= std::numeric_limits<Integer>::max()))
        return std::nullopt;
    return static_cast<Integer>(nearest);
}

void append(Text& text, std::string_view ascii) {
    text.append(ascii.begin(), ascii.end());
}

/// Lays out significant digits as a plain decimal. `digits` holds d or d.ddd with trailing zeros
/// removed by the caller's count; `exponent` is the power of ten of the first one.
void appendPlain(Text& text, std::string_view digits, int exponent) {
    const int count = static_cast<int>(digits.size());
    if (exponent < 0) {
        append(text, "0.");
        text.append(static_cast<std::size_t>(-exponent - 1), u'0');
        append(text, digits);
    } else if (count <= exponent + 1) {
        append(text, digits);
        text.append(static_cast<std::size_t>(exponent + 1 - count), u'0');
    } else {
        const auto whole = static_cast<std::size_t>(exponent + 1);
        append(text, digits.substr(0, whole));
        text += u'.';
        append(text, digits.substr(whole));
    }
}

/// The plain form behind `prefix`, which stands in front of values that are not negative.
Text signedText(double value, int significantDigits, TextView prefix) {
    if (value == 0)
        return Text(prefix) += u'0';
    if (!std::isfinite(value))
        return Text(prefix) += std::isnan(value) ? u"nan" : u"inf";
    std::array<char, 32> buffer{};
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                      std::chars_format::scientific, significantDigits - 1);
    // d.ddddddeSXX
    const std::string_view all(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    const std::size_t mark = all.find('e');
    int exponent = 0;
    std::from_chars(all.data() + mark + 2, end, exponent);
    if (all[mark + 1] == '-')
        exponent = -exponent;
    std::array<char, 32> digits{};
    digits.front() = all.front();
    std::size_t count = all.copy(digits.data() + 1, mark - 2, 2) + 1;
    while (count > 1 && digits.at(count - 1) == '0')
        --count;

    Text text;
    text.reserve(significantDigits < 10 ? 15 : 23);
    if (value < 0)
        text += u'-';
    else
        text += prefix;
    appendPlain(text, {digits.data(), count}, exponent);
    return text;
}

constexpr int singleDigits = 7;
constexpr int doubleDigits = 15;

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
    return signedText(value, singleDigits, {});
}

Text plainText(double value) {
    return signedText(value, doubleDigits, {});
}

Text plainTextOfSeven(double value) {
    return signedText(value, singleDigits, {});
}

Text printText(float value) {
    return signedText(value, singleDigits, u" ");
}

Text printText(double value) {
    return signedText(value, doubleDigits, u" ");
}

double wholeMaskValue(double value) {
    return std::round(value);
}

Text wholeMask(double value, std::size_t minimumDigits) {
    Text digits = plainText(std::fabs(wholeMaskValue(value)));
    if (digits.size() < minimumDigits)
        digits.insert(0, minimumDigits - digits.size(), u'0');
    if (wholeMaskValue(value) < 0)
        digits.insert(0, 1, u'-');
    return digits;
}

Text fiveDecimalMask(double magnitude) {
    if (!std::isfinite(magnitude))
        return plainText(magnitude);
    // Twenty more decimals than shown: enough to see on which side of a half the value lies.
    constexpr int shown = 5;
    constexpr int looked = shown + 20;
    std::array<char, 400> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                            std::chars_format::fixed, looked);
    std::string decimal(buffer.data(), end);
    const bool roundsUp = decimal[decimal.size() - (looked - shown)] >= '5';
    decimal.resize(decimal.size() - (looked - shown));
    if (roundsUp)
        addUnitInLastPlace(decimal);
    decimal.erase(decimal.find_last_not_of('0') + 1);
    if (decimal.starts_with("0."))
        decimal.erase(0, 1);
    return Text(decimal.begin(), decimal.end());
}

} // namespace orbisgrid
