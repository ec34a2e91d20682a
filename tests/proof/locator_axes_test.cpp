#include "core/long_maidenhead.h"
#include "core/maidenhead.h"
#include "core/number_text.h"
#include "tests/proof/locator_reference.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iostream>

namespace orbisgrid {

namespace {

using test::Axis;
using test::sixCells;
using test::tenCells;

// LongMaiden2Coordinates ------------------------------------------------------------------------

/// The south-west corner of a 10-character cell as it is defined: the 6-character corner is stored
/// as single, the extended part added and stored again.
float cornerOfTen(const Axis& axis, int cell) {
    const long double corner =
        static_cast<long double>(cell / 240) / axis.cellsPerDegree + axis.start;
    const auto stored = static_cast<float>(corner);
    return static_cast<float>(stored + (cell % 240) / (240.0L * axis.cellsPerDegree));
}

/// The corner with no rounding at all.
long double exactCornerOfTen(const Axis& axis, int cell) {
    return cell / (240.0L * axis.cellsPerDegree) + axis.start;
}

struct TenProof {
    int wrongTexts = 0;
    int firstWrong = -1;
    long double largestError = 0; // degrees
};

/// Decodes every cell of one axis; `decode` gives the text of a cell.
template <typename Decode>
TenProof proveTens(const Axis& axis, Decode decode) {
    TenProof proof;
    for (int cell = 0; cell < tenCells; ++cell) {
        const Text text = decode(cell);
        const float corner = cornerOfTen(axis, cell);
        std::string expected = test::sevenDigits(corner);
        if (corner >= 0)
            expected.insert(expected.begin(), ' ');
        if (toUtf8(text) != expected && proof.wrongTexts++ == 0)
            proof.firstWrong = cell;
        const long double error = leadingNumber(text) - exactCornerOfTen(axis, cell);
        proof.largestError = std::max(proof.largestError, std::fabs(error));
    }
    return proof;
}

// Half of the seventh digit, and for each of the two singles half of its step.
constexpr long double mostOfLongitude = 0.00005L + 0x1p-16L; // from 128 on
constexpr long double mostOfLatitude = 0.000005L + 0x1p-17L; // from 64 on

TEST(LocatorsOfTen, EveryLongitude) {
    const TenProof proof = proveTens(test::longitudeAxis, [](int cell) {
        Text locator = test::locatorOfTen(cell, 0);
        return LongMaiden2Coordinates(locator).value_or(ExtendedPosition{}).LonText;
    });
    EXPECT_EQ(proof.wrongTexts, 0) << "first at cell " << proof.firstWrong;
    EXPECT_LE(proof.largestError, mostOfLongitude);
    EXPECT_GT(proof.largestError, mostOfLongitude / 2);
}

TEST(LocatorsOfTen, EveryLatitude) {
    const TenProof proof = proveTens(test::latitudeAxis, [](int cell) {
        Text locator = test::locatorOfTen(0, cell);
        return LongMaiden2Coordinates(locator).value_or(ExtendedPosition{}).LatText;
    });
    EXPECT_EQ(proof.wrongTexts, 0) << "first at cell " << proof.firstWrong;
    EXPECT_LE(proof.largestError, mostOfLatitude);
    EXPECT_GT(proof.largestError, mostOfLatitude / 2);
}

TEST(LocatorsOfTen, ALongitudeDoesNotTouchTheLatitude) {
    for (int cell = 0; cell < tenCells; cell += 997) {
        Text locator = test::locatorOfTen(cell, tenCells - 1 - cell);
        Text southern = test::locatorOfTen(cell, 0);
        Text western = test::locatorOfTen(0, tenCells - 1 - cell);
        const auto both = LongMaiden2Coordinates(locator);
        ASSERT_TRUE(both);
        EXPECT_EQ(both->LonText, LongMaiden2Coordinates(southern)->LonText);
        EXPECT_EQ(both->LatText, LongMaiden2Coordinates(western)->LatText);
    }
}

// Coordinates2LongMaiden ------------------------------------------------------------------------

/// Its rule in whole numbers, for a position `numerator / denominator` of 6-character cells from
/// the axis's start: each character is the nearest one (the next from the middle of its cell on)
/// while what follows goes on from the cell below. The nudge decides exact middles upwards.
std::array<char16_t, 5> roundedCharacters(int numerator, int denominator) {
    std::array<char16_t, 5> characters{};
    int unit = 240 * denominator; // one field
    int rest = numerator;
    constexpr std::array<int, 5> parts{1, 10, 24, 10, 24};
    for (std::size_t i = 0; i < characters.size(); ++i) {
        // Below a whole unit the parts are counted in parts of it.
        rest *= parts.at(i);
        const int index = rest / unit + (2 * (rest % unit) >= unit ? 1 : 0);
        characters.at(i) = static_cast<char16_t>((i % 2 == 0 ? u'A' : u'0') + index);
        rest %= unit;
    }
    return characters;
}

struct EncodeProof {
    int wrong = 0;
    int agreeing = 0; ///< axis cells whose first three characters are World2Grid's
};

EncodeProof proveEncoder(const Axis& axis, bool isCentre) {
    EncodeProof proof;
    for (int cell = 0; cell < sixCells; ++cell) {
        const long double cells = cell + (isCentre ? 0.5L : 0.0L);
        double value = static_cast<double>(cells / axis.cellsPerDegree + axis.start);
        double other = 0;
        const bool isLongitude = axis.start == test::longitudeAxis.start;
        const Text locator = isLongitude ? Coordinates2LongMaiden(value, other)
                                         : Coordinates2LongMaiden(other, value);
        std::array<char16_t, 5> characters{};
        for (std::size_t i = 0; i < characters.size(); ++i)
            characters.at(i) = locator[2 * i + (isLongitude ? 0 : 1)];
        proof.wrong += characters == roundedCharacters(2 * cell + (isCentre ? 1 : 0), 2) ? 0 : 1;
        proof.agreeing +=
            test::cellOfSix(characters[0], characters[1], characters[2]) == cell ? 1 : 0;
    }
    return proof;
}

/// At a centre the subsquare's fraction is one half, so this encoder always names another one than
/// World2Grid: 0 of 18,662,400 agree.
TEST(Coordinates2LongMaiden, NeverAgreesOnACentre) {
    for (const Axis& axis : {test::longitudeAxis, test::latitudeAxis}) {
        const EncodeProof proof = proveEncoder(axis, true);
        EXPECT_EQ(proof.wrong, 0);
        EXPECT_EQ(proof.agreeing, 0);
    }
}

/// At a south-west corner it agrees where field and square are in their lower halves: 18 fields x
/// the first 5 squares x the first 12 subsquares of an axis.
TEST(Coordinates2LongMaiden, AgreesOnCornersInLowerHalves) {
    for (const Axis& axis : {test::longitudeAxis, test::latitudeAxis}) {
        const EncodeProof proof = proveEncoder(axis, false);
        EXPECT_EQ(proof.wrong, 0);
        EXPECT_EQ(proof.agreeing, 18 * 5 * 12);
    }
}

} // namespace

} // namespace orbisgrid
