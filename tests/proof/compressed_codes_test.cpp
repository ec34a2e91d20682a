#include "aprs/compressed.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace orbisgrid {

namespace {

/// Four base-91 characters as the protocol reads them. Result: -1 for a character outside it.
std::int64_t base91(TextView group) {
    std::int64_t value = 0;
    for (const char16_t character : group) {
        if (character < u'!' || character > u'{')
            return -1;
        value = value * 91 + (character - u'!');
    }
    return value;
}

/// The APRS Protocol Reference's own formula, chapter 9.
double decodedLatitude(const Text& text) {
    return 90 - static_cast<double>(base91(TextView(text).substr(2, 4))) / 380926;
}

double decodedLongitude(const Text& text) {
    return -180 + static_cast<double>(base91(TextView(text).substr(6, 4))) / 190463;
}

bool hasItsForm(const Text& text) {
    return text.size() == 14 && text.starts_with(u"=/") && text.ends_with(u"-  B") &&
           base91(TextView(text).substr(2, 4)) >= 0 && base91(TextView(text).substr(6, 4)) >= 0;
}

/// One step of a value that is stored as single, or 1 where it would be smaller: no smaller number
/// has a code.
double stepOf(double Y) {
    const auto single = static_cast<float>(Y);
    return std::max(1.0, static_cast<double>(
                             std::nextafter(single, std::numeric_limits<float>::max()) - single));
}

TEST(CompressedCodes, EveryThousandthOfLatitude) {
    double mostSteps = 0;
    for (int thousandth = -90'000; thousandth <= 90'000; ++thousandth) {
        const double latitude = thousandth / 1000.0;
        const Text text = compressedText({latitude, 0});
        ASSERT_TRUE(hasItsForm(text)) << latitude;
        const double units = std::fabs(decodedLatitude(text) - latitude) * 380926;
        mostSteps = std::max(mostSteps, units / stepOf((90 - latitude) * 380926));
    }
    // Half a step by the storing as single. Where that step is below 1, rounding it to a whole
    // number adds its half: together they stay within one step.
    EXPECT_LE(mostSteps, 1);
    EXPECT_GT(mostSteps, 0.49) << "no value came near its bound: were they looked at?";
}

TEST(CompressedCodes, EveryThousandthOfLongitude) {
    double most = 0;
    double least = 1;
    for (int thousandth = -180'000; thousandth <= 180'000; ++thousandth) {
        const double longitude = thousandth / 1000.0;
        const Text text = compressedText({0, longitude});
        ASSERT_TRUE(hasItsForm(text)) << longitude;
        const double units = (longitude - decodedLongitude(text)) * 190463;
        most = std::max(most, units);
        least = std::min(least, units);
    }
    // Cut, not rounded: the code lies in the west of the position by less than one unit.
    constexpr double doubleError = 0.00001;
    EXPECT_LT(most, 1 + doubleError);
    EXPECT_GT(most, 0.99);
    EXPECT_GE(least, -doubleError);
}

/// The first digit is cut from the value with its fraction, the others come from the rounded one.
/// Half a unit in front of each of the first 11 borders of that digit (north of 67.98 degrees,
/// where a single has fractions) the others are those of the next border with the first digit of
/// this one: the code then lies one cube of 91, 1.98 degrees, too far north. That is this encoder.
TEST(CompressedCodes, HalfAUnitBeforeABorderOfTheFirstDigit) {
    constexpr int cube = 91 * 91 * 91;
    for (int border = 1; border <= 11; ++border) {
        const double latitude = 90 - (border * static_cast<double>(cube) - 0.5) / 380926;
        const auto Y = static_cast<double>(static_cast<float>((90 - latitude) * 380926));
        const bool isRoundedUp = std::nearbyint(Y) != std::floor(Y);
        const double decoded = decodedLatitude(compressedText({latitude, 0}));
        const double units = (decoded - latitude) * 380926;
        EXPECT_NEAR(units, isRoundedUp ? cube - 0.5 : 0.5, 0.51) << border;
    }
    const double justBelow = 90 - (cube - 0.25) / 380926;
    EXPECT_EQ(compressedText({justBelow, 0}).substr(2, 4), u"!!!!") << "as the pole itself";
}

} // namespace

} // namespace orbisgrid
