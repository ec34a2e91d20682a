#include "core/number_text.h"
#include "tests/support/table.h"

#include <cmath>
#include <limits>

namespace orbisgrid {

namespace {

using test::Row;

class NumberParseTest : public testing::TestWithParam<Row> {};

TEST_P(NumberParseTest, ReadsLeadingAndStrict) {
    const Row& row = GetParam();
    const double leading = leadingNumber(row.text("text"));
    EXPECT_EQ(leading, row.number("leading"));
    EXPECT_FALSE(leading == 0 && std::signbit(leading)) << "a negative zero";
    const auto strict = strictNumber(row.text("text"));
    EXPECT_EQ(strict.has_value(), row["strict"] != "-");
    if (strict) {
        EXPECT_EQ(*strict, row.number("strict"));
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, NumberParseTest,
                         testing::ValuesIn(test::readTable("number_leading.tsv")), test::testName);

class NumberTextTest : public testing::TestWithParam<Row> {};

TEST_P(NumberTextTest, HasSevenOrFifteenDigits) {
    const Row& row = GetParam();
    const double value = row.number("value");
    EXPECT_EQ(toUtf8(plainText(static_cast<float>(value))), row["single"]);
    EXPECT_EQ(toUtf8(plainTextOfSeven(value)), row["seven"]);
    EXPECT_EQ(toUtf8(plainText(value)), row["double"]);
}

TEST_P(NumberTextTest, IsTheSameBehindBytes) {
    const Row& row = GetParam();
    const double value = row.number("value");
    std::string bytes = "\t";
    appendPlainText(bytes, static_cast<float>(value));
    appendPlainTextOfSeven(bytes += ',', value);
    appendPlainText(bytes += ',', value);
    EXPECT_EQ(bytes, "\t" + row["single"] + "," + row["seven"] + "," + row["double"]);
}

TEST_P(NumberTextTest, PrintFormHasABlankInFrontUnlessNegative) {
    const double value = GetParam().number("value");
    const Text inFront = value < 0 ? u"" : u" ";
    EXPECT_EQ(printText(value), inFront + plainText(value));
    EXPECT_EQ(printText(static_cast<float>(value)), inFront + plainText(static_cast<float>(value)));
}

INSTANTIATE_TEST_SUITE_P(Rows, NumberTextTest,
                         testing::ValuesIn(test::readTable("number_text.tsv")), test::testName);

TEST(NumberText, ExtremesReadBack) {
    for (const double value :
         {1.7e308, std::numeric_limits<double>::min(), std::numeric_limits<double>::denorm_min()}) {
        const double back = leadingNumber(plainText(value));
        EXPECT_LE(std::fabs(back - value), value * 1e-14 + 5e-324) << value;
    }
    EXPECT_EQ(leadingNumber(plainText(std::numeric_limits<double>::quiet_NaN())), 0);
}

class NumberMaskTest : public testing::TestWithParam<Row> {};

TEST_P(NumberMaskTest, RoundsHalvesAwayFromZero) {
    const Row& row = GetParam();
    EXPECT_EQ(toUtf8(wholeMask(row.number("value"), 1)), row["0"]);
    EXPECT_EQ(toUtf8(wholeMask(row.number("value"), 2)), row["00"]);
    EXPECT_EQ(toUtf8(wholeMask(row.number("value"), 3)), row["000"]);
    EXPECT_EQ(wholeMaskValue(row.number("value")), row.number("0"));
}

INSTANTIATE_TEST_SUITE_P(Rows, NumberMaskTest,
                         testing::ValuesIn(test::readTable("number_mask.tsv")), test::testName);

class FiveDecimalTest : public testing::TestWithParam<Row> {};

TEST_P(FiveDecimalTest, ForcesNoDigitButThePoint) {
    const Row& row = GetParam();
    EXPECT_EQ(toUtf8(fiveDecimalMask(row.number("magnitude"))), row["text"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, FiveDecimalTest,
                         testing::ValuesIn(test::readTable("number_five_decimals.tsv")),
                         test::testName);

TEST(FiveDecimalMask, OfNoNumberReadsAsZero) {
    EXPECT_EQ(leadingNumber(fiveDecimalMask(std::numeric_limits<double>::infinity())), 0);
}

TEST(NearestInteger, RoundsHalvesToEvenWithinItsType) {
    EXPECT_EQ(nearestInt32(7.5), 8);
    EXPECT_EQ(nearestInt32(8.5), 8);
    EXPECT_EQ(nearestInt32(-2.5), -2);
    EXPECT_EQ(nearestInt32(2147483647.4), 2147483647);
    EXPECT_EQ(nearestInt32(2147483647.5), std::nullopt);
    EXPECT_EQ(nearestInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(nearestInt32(-2147483649.0), std::nullopt);
    EXPECT_EQ(nearestInt32(std::nan("")), std::nullopt);
    EXPECT_EQ(nearestInt16(32767.4), 32767);
    EXPECT_EQ(nearestInt16(32767.5), std::nullopt);
    EXPECT_EQ(nearestInt16(-32768.5), -32768);
    EXPECT_EQ(nearestInt16(-32769), std::nullopt);
}

} // namespace

} // namespace orbisgrid
