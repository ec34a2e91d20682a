#include "core/angles.h"

#include "core/number_text.h"
#include "core/runtime_error.h"

#include <cmath>
#include <limits>

namespace orbisgrid {

namespace {

constexpr char16_t degreeSign = u'°';
constexpr char16_t minuteSign = u'\'';
constexpr char16_t secondSign = u'"';

/// The part of `text` of a length that may come out negative, which is an error.
TextView partOfLength(TextView text, std::size_t start, std::ptrdiff_t length) {
    if (length < 0)
        throw RuntimeError(RuntimeError::invalidProcedureCall);
    return middle(text, start, static_cast<std::size_t>(length));
}

/// Position of `sign`, counted from 1, or 0.
std::ptrdiff_t positionOf(TextView text, char16_t sign) {
    const std::size_t found = text.find(sign);
    return found == TextView::npos ? 0 : static_cast<std::ptrdiff_t>(found) + 1;
}

} // namespace

Text Convert_Degree(float Decimal_Deg) {
    const Dms dms = splitAngle<float>(Decimal_Deg);
    Text text = u" ";
    text += plainText(static_cast<float>(dms.degrees));
    text += degreeSign;
    text += u' ';
    text += plainText(dms.minutes);
    text += minuteSign;
    text += u' ';
    text += wholeMask(dms.seconds, 1);
    text += secondSign;
    return text;
}

double Convert_Decimal(Text& Degree_Deg) {
    Degree_Deg = replaced(Degree_Deg, {u'~', degreeSign});
    const TextView text = Degree_Deg;
    const auto length = static_cast<std::ptrdiff_t>(text.size());
    const std::ptrdiff_t p = positionOf(text, degreeSign);
    const double degrees = leadingNumber(partOfLength(text, 1, p - 1));
    const std::ptrdiff_t q = positionOf(text, minuteSign);
    const double minutes =
        leadingNumber(partOfLength(text, static_cast<std::size_t>(p) + 2, q - p - 2)) / 60;
    const double seconds =
        leadingNumber(partOfLength(text, static_cast<std::size_t>(q) + 2, length - q - 2)) / 3600;
    return minutes + degrees + seconds;
}

// NOLINTNEXTLINE(bugprone-easily-swappable-parameters): the order is the one they are written in
double Dms2Decimal(TextView DegText, TextView MinText, TextView SecText) {
    const double fraction = leadingNumber(SecText) / 3600 + leadingNumber(MinText) / 60;
    return leadingNumber(DegText) + fraction;
}

std::int32_t Floor(double dblValue) {
    const double whole = std::trunc(dblValue);
    if (!(whole >= std::numeric_limits<std::int32_t>::min() &&
          whole <= std::numeric_limits<std::int32_t>::max()))
        throw RuntimeError(RuntimeError::overflow);
    return static_cast<std::int32_t>(whole);
}

} // namespace orbisgrid
