#include "core/number_text.h"
#include "tests/proof/random_numbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace orbisgrid {

namespace {

/// `value` with `digits` significant digits by the C library, as a plain decimal without trailing
/// zeros.
std::string plainDecimal(double value, int digits) {
    std::array<char, 400> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.*e", digits - 1, value);
    const int exponent = std::atoi(
        std::string(buffer.data()).substr(std::string(buffer.data()).find('e') + 1).c_str());
    const double rounded = std::strtod(buffer.data(), nullptr);
    std::snprintf(buffer.data(), buffer.size(), "%.*f", std::max(0, digits - 1 - exponent),
                  rounded);
    std::string text = buffer.data();
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.ends_with('.'))
            text.pop_back();
    }
    return text;
}

struct Tally {
    int looked = 0;
    int wrong = 0;
    double first = 0;

    void add(const Text& text, double value, int digits) {
        ++looked;
        if (toUtf8(text) != plainDecimal(value, digits) && wrong++ == 0)
            first = value;
    }
};

void expectNoneWrong(const Tally& tally, int atLeast) {
    EXPECT_GE(tally.looked, atLeast);
    EXPECT_EQ(tally.wrong, 0) << "first: " << tally.first;
}

/// Every 389th single from 0.0001 to 1000, the range of coordinates: 500,000 of them.
TEST(NumberTexts, SinglesOfCoordinates) {
    constexpr int step = 389; // a prime: each bit of the significand takes part
    Tally tally;
    float value = 0.0001F;
    while (value < 1000) {
        tally.add(plainText(value), static_cast<double>(value), 7);
        std::uint32_t bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        bits += step;
        std::memcpy(&value, &bits, sizeof bits);
    }
    expectNoneWrong(tally, 490'000);
}

TEST(NumberTexts, SevenDigitsOfDoubles) {
    test::RandomNumbers random(7);
    Tally tally;
    for (int i = 0; i < 1'000'000; ++i) {
        const double value = random.between(-360, 360) * std::pow(10, random.below(8) - 4);
        tally.add(plainTextOfSeven(value), value, 7);
    }
    expectNoneWrong(tally, 1'000'000);
}

TEST(NumberTexts, FifteenDigitsOfDoubles) {
    test::RandomNumbers random(15);
    Tally tally;
    for (int i = 0; i < 300'000; ++i) {
        const double value = random.between(-360, 360) * std::pow(10, random.below(8) - 4);
        tally.add(plainText(value), value, 15);
        tally.add(plainText(std::floor(value)), std::floor(value), 15);
    }
    expectNoneWrong(tally, 600'000);
}

/// Numbers whose eighth digit is an exact half, and their neighbours: rounding goes to the even
/// digit, and only there may the quick way not decide.
TEST(NumberTexts, HalvesOfTheSeventhDigit) {
    Tally tally;
    for (int whole = 100; whole < 1000; ++whole) {
        for (int part = 1; part < 32; part += 2) {
            const double value = whole + part / 32.0; // five decimals, the last one a 5
            for (const double near : {value, std::nextafter(value, 0), std::nextafter(value, 1e4)})
                tally.add(plainTextOfSeven(near), near, 7);
        }
    }
    expectNoneWrong(tally, 43'200);
}

/// The leading-number parse against the C library's, on texts of up to 24 digits.
TEST(NumberTexts, ReadAsTheNearestDouble) {
    test::RandomNumbers random(24);
    int wrong = 0;
    std::string first;
    for (int i = 0; i < 1'000'000; ++i) {
        std::string text;
        const int digits = 1 + random.below(24);
        const int point = random.below(digits + 2) - 1;
        for (int digit = 0; digit < digits; ++digit) {
            if (digit == point)
                text += '.';
            text += static_cast<char>('0' + random.below(10));
        }
        if (leadingNumber(fromUtf8(text)) != std::strtod(text.c_str(), nullptr) && wrong++ == 0)
            first = text;
    }
    EXPECT_EQ(wrong, 0) << "first: " << first;
}

} // namespace

} // namespace orbisgrid
