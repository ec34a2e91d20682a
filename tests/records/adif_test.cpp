#include "records/adif.h"
#include "tests/records/read_all.h"
#include "tests/support/table.h"

namespace orbisgrid {

namespace {

using test::Row;

std::string described(const Record& record) {
    std::string text = record.isData ? "" : "passes ";
    for (const Field& field : record.fields)
        text.append("[").append(field.name).append("=").append(field.value).append("]");
    return text + (record.isData && !isEnded(record) ? " no end" : "");
}

std::string readLog(std::string_view bytes, std::size_t size) {
    return test::readAll(
        bytes, size, [](RecordWindow& window) { return AdifReader(window); }, described);
}

class AdifReaderTest : public testing::TestWithParam<Row> {};

TEST_P(AdifReaderTest, TakesContactsHoweverTheyCome) {
    const Row& row = GetParam();
    for (const std::size_t size : test::pieceSizes)
        EXPECT_EQ(readLog(row["bytes"], size), row["records"]) << "in pieces of " << size;
}

INSTANTIATE_TEST_SUITE_P(Rows, AdifReaderTest,
                         testing::ValuesIn(test::readTable("records_adif.tsv")), test::testName);

TEST(AdifReader, KeepsBytesThatAreNoUtf8) {
    for (const std::size_t size : test::pieceSizes) {
        EXPECT_EQ(readLog("<NAME:6>Z\xFCrich<BAND:3>20m<EOR>", size),
                  "1: [NAME=Z\xFCrich][BAND=20m]");
    }
}

TEST(AdifReader, ALengthNearTheLongestIsBelieved) {
    const std::string value(longestRecord - 100, 'x');
    const std::string log =
        "<NOTES:" + std::to_string(value.size()) + ">" + value + "<CALL:4>G4AB<EOR>";
    EXPECT_EQ(readLog(log, 65536), "1: [NOTES=" + value + "][CALL=G4AB]");
}

TEST(AdifReader, ANameOfAHundredCharactersIsOneAndALongerOneIsNot) {
    const std::string name(100, 'N');
    EXPECT_EQ(readLog("<" + name + ":1>x<EOR>", 7), "1: [" + name + "=x]");
    EXPECT_EQ(readLog("<" + name + "N:1>x<CALL:1>y<EOR>", 7), "1: [CALL=y]");
}

TEST(AdifReader, ATypeOfAHundredCharactersIsOneAndALongerOneIsNot) {
    const std::string type(99, 't');
    EXPECT_EQ(readLog("<A:1:" + type + ">x<EOR>", 7), "1: [A=x]");
    EXPECT_EQ(readLog("<A:1:" + type + "tt>x<CALL:1>y<EOR>", 7), "1: [CALL=y]");
}

TEST(AdifReader, AControlCharacterIsOfNoName) {
    EXPECT_EQ(readLog("<A\x7F:1>x<B\x1F:1>x<CALL:1>y<EOR>", 7), "1: [CALL=y]");
}

TEST(AdifReader, ItsContentEndsBeforeTheEnd) {
    const std::string log = "\n<CALL:4>G4AB x <EOR>\n<CALL:4>G4AB y\n";
    test::Pieces pieces(log, 65536);
    RecordWindow window(pieces);
    AdifReader reader(window);
    Record record;
    ASSERT_EQ(reader.next(record), Reading::record);
    EXPECT_EQ(record.bytes.substr(record.room()), "<EOR>\n");
    EXPECT_EQ(record.fields[0].bytes, "<CALL:4>G4AB");
    ASSERT_EQ(reader.next(record), Reading::record);
    EXPECT_EQ(record.bytes.substr(record.room()), " y\n");
    EXPECT_EQ(reader.next(record), Reading::end);
}

TEST(HoldsAdif, WhereAFieldOrAnEndStands) {
    EXPECT_TRUE(holdsAdif("text <A:1>x"));
    EXPECT_TRUE(holdsAdif("text <eor>"));
    EXPECT_TRUE(holdsAdif("<EOH>"));
    EXPECT_FALSE(holdsAdif("a < b > c <d>"));
    EXPECT_FALSE(holdsAdif("<A:"));
}

TEST(FieldOf, ComparesNamesInAnyCase) {
    Record record;
    record.fields = {{"Gridsquarf", "0", {}}, {"gridSquare", "1", {}}, {"GRIDSQUARE", "2", {}}};
    ASSERT_NE(fieldOf(record, "GRIDSQUARE"), nullptr);
    EXPECT_EQ(fieldOf(record, "GRIDSQUARE")->value, "1");
    EXPECT_EQ(fieldOf(record, "XRIDSQUARE"), nullptr);
    EXPECT_EQ(inCapitals(record.fields[1].name), "GRIDSQUARE");
    EXPECT_EQ(inCapitals("app_{a}"), "APP_{A}");
    EXPECT_EQ(inCapitals("cqz"), "CQZ");
}

TEST(AppendField, CountsItsValue) {
    std::string bytes = "x";
    appendField(bytes, "DISTANCE", "5637");
    appendField(bytes, "NAME", "");
    EXPECT_EQ(bytes, "x<DISTANCE:4>5637<NAME:0>");
}

TEST(WithoutWhiteSpace, TakesAllOfItFromBothEnds) {
    EXPECT_EQ(withoutWhiteSpace("FN42AA "), "FN42AA");
    EXPECT_EQ(withoutWhiteSpace(" \r\n\tFN 42\r\n"), "FN 42");
    EXPECT_EQ(withoutWhiteSpace(" "), "");
}

class PlaceTest : public testing::TestWithParam<Row> {};

TEST_P(PlaceTest, ReadsLatAndLon) {
    const Row& row = GetParam();
    const auto place = placeOf(row["LAT"], row["LON"]);
    ASSERT_EQ(place.has_value(), row["latitude"] != "-");
    if (place) {
        EXPECT_NEAR(place->latitude, row.number("latitude"), 1e-9);
        EXPECT_NEAR(place->longitude, row.number("longitude"), 1e-9);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, PlaceTest, testing::ValuesIn(test::readTable("adif_place.tsv")),
                         test::testName);

TEST(AppendCoordinate, WritesDegreesAndMinutes) {
    const auto written = [](double degrees, std::string_view letters) {
        std::string bytes;
        appendCoordinate(bytes, degrees, letters);
        return bytes;
    };
    EXPECT_EQ(written(50.9375, "NS"), "N050 56.250");
    EXPECT_EQ(written(-4.041667, "EW"), "W004 02.500");
    EXPECT_EQ(written(-33.8688, "NS"), "S033 52.128");
    EXPECT_EQ(written(179.99999, "EW"), "E179 59.999");
    EXPECT_EQ(written(179.999999, "EW"), "E180 00.000") << "minutes are carried";
    EXPECT_EQ(written(-0.000001, "NS"), "N000 00.000") << "nothing is not south";
    EXPECT_EQ(written(0.5, "NS"), "N000 30.000");
    EXPECT_EQ(written(-0.5, "EW"), "W000 30.000");
    EXPECT_EQ(written(100 + 1.0 / 60, "EW"), "E100 01.000");
}

} // namespace

} // namespace orbisgrid
