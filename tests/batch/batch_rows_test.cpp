// The rows of the tables that the window's computations have, through the real executable.

#include "core/text.h"
#include "tests/platform/temporary_folder.h"
#include "tests/support/child.h"
#include "tests/support/table.h"

#include <sstream>

namespace orbisgrid {

namespace {

using test::Row;

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);)
        parts.push_back(part);
    if (text.ends_with(separator))
        parts.emplace_back();
    return parts;
}

/// What stands behind each line of `list`, one line for each of its own.
std::vector<std::vector<std::string>> results(const std::string& command, const std::string& list,
                                              std::size_t columns) {
    const test::TemporaryFolder folder;
    const std::string path = folder.make("list.txt", list);
    const test::ShellResult result =
        test::shell(ORBISGRID_BATCH " " + command + " --quiet --input lines " + path);
    std::vector<std::vector<std::string>> rows;
    for (const std::string& line : split(result.output, '\n')) {
        std::vector<std::string> fields = split(line, '\t');
        if (fields.size() >= columns)
            rows.emplace_back(fields.end() - static_cast<std::ptrdiff_t>(columns), fields.end());
    }
    return rows;
}

std::string withoutBlank(const std::string& text) {
    return text.starts_with(' ') ? text.substr(1) : text;
}

std::string otherSign(const std::string& number) {
    return number.starts_with('-') ? number.substr(1)
                                   : std::string("-").append(withoutBlank(number));
}

TEST(BatchRows, DistancesAreThoseOfTheTable) {
    const std::vector<Row> rows = test::readTable("great_circle.tsv");
    std::string list;
    for (const Row& row : rows)
        list += row["home"] + " " + row["target"] + "\n";
    const auto found = results("distance", list, 7);
    ASSERT_EQ(found.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        EXPECT_EQ(found[i][0], withoutBlank(row["DistText"])) << row;
        EXPECT_EQ(found[i][1], row["miles"]) << row;
        const bool isSame = row["home"] == row["target"];
        EXPECT_EQ(found[i][2], isSame ? "" : withoutBlank(row["AzimuthText"])) << row;
        EXPECT_EQ(found[i][5], withoutBlank(row["LatText"])) << row;
        EXPECT_EQ(found[i][6], otherSign(row["LonText"])) << row;
    }
}

/// The number of a label: "50.9375N°" is 50.9375, "none degrees" nothing.
std::string numberOf(std::string label) {
    label.erase(std::min(label.size(), label.find_first_not_of("0123456789.-")));
    return label;
}

TEST(BatchRows, CalculationsAreThoseOfTheWindow) {
    const std::vector<Row> rows = test::readTable("calculate.tsv");
    std::string list = "home,target\n";
    for (const Row& row : rows)
        list += row["home"] + "," + row["target"] + "\n";
    const test::TemporaryFolder folder;
    const test::ShellResult result =
        test::shell(ORBISGRID_BATCH " distance --quiet " + folder.make("list.csv", list));
    const std::vector<std::string> lines = split(result.output, '\n');
    ASSERT_GE(lines.size(), rows.size() + 1);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        std::string expected;
        for (const char* column :
             {"km", "miles", "azimuth", "home lat", "home long", "target lat", "target long"})
            expected.append(",").append(numberOf(row[column])); // nothing where it was refused
        EXPECT_EQ(lines[i + 1], row["home"] + "," + row["target"] + expected) << row;
    }
}

TEST(BatchRows, LocatorsAreDecodedAsTheConverterDoes) {
    std::vector<Row> rows;
    std::string list;
    for (const Row& row : test::readTable("long_maidenhead_decode.tsv")) {
        const bool isSmall = row["locator"] == "jo20aw"; // which the converter makes capitals
        if (!row["locator"].empty() && row["locator"].size() <= 10 && !isSmall) {
            rows.push_back(row);
            list += row["locator"] + "\n";
        }
    }
    const auto found = results("convert", list, 7);
    ASSERT_EQ(found.size(), rows.size());
    ASSERT_GT(rows.size(), 12U);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        const bool isPlace = row["LatText"] != "-" && !row["locator"].starts_with("ZZ");
        EXPECT_EQ(found[i][1], isPlace ? withoutBlank(row["LatText"]) : "") << row;
        EXPECT_EQ(found[i][2], isPlace ? withoutBlank(row["LonText"]) : "") << row;
    }
}

TEST(BatchRows, PositionsAreEncodedAsWorld2GridDoes) {
    std::vector<Row> rows;
    std::string list;
    for (const Row& row : test::readTable("maidenhead_grid.tsv")) {
        if (row["longitude"] == "nan")
            continue;
        rows.push_back(row);
        list += row["latitude"] + " " + row["longitude"] + "\n";
    }
    const auto found = results("convert", list, 7);
    ASSERT_EQ(found.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const bool isInTheWorld = std::abs(rows[i].number("longitude")) <= 180 &&
                                  std::abs(rows[i].number("latitude")) <= 90;
        EXPECT_EQ(found[i][0], isInTheWorld ? rows[i]["locator"] : "") << rows[i];
    }
}

} // namespace

} // namespace orbisgrid
