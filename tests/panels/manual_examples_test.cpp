// The manual's worked examples, found by their wording and computed again.

#include "aprs/compressed.h"
#include "aprs/uiview.h"
#include "core/conversion.h"
#include "core/long_maidenhead.h"
#include "core/maidenhead.h"
#include "core/number_text.h"
#include "geodesy/calc_dist_azimuth.h"
#include "geodesy/great_circle.h"
#include "map/caption.h"
#include "tests/support/table.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>
#include <iomanip>
#include <numbers>
#include <regex>
#include <sstream>

namespace orbisgrid {

namespace {

std::string bytesOf(const std::string& fileName) {
    std::ifstream file(std::string(ORBISGRID_SOURCE) + "/" + fileName, std::ios::binary);
    if (!file)
        throw std::runtime_error(fileName + " cannot be read");
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

std::vector<std::string> manualLines() {
    return linesOf(bytesOf("Readme.txt"));
}

std::string trimmedUtf8(TextView text) {
    return toUtf8(trimmed(text));
}

/// A number without its print form's blank.
std::string number(float value) {
    return toUtf8(plainText(value));
}

/// The groups of a matched line; the whole of it is the first.
using Parts = std::vector<std::string>;

// What each kind of example says of its inputs ---------------------------------------------------

FormTexts distAzimuth(const std::string& home, const std::string& target) {
    FormTexts texts;
    CalcDistAzimuth(fromUtf8(home), fromUtf8(target), texts);
    return texts;
}

/// The centre of a locator in radians, north and east positive.
struct Point {
    double lat;
    double lon;
};

Point centreOf(const std::string& locator) {
    constexpr double radian = std::numbers::pi / 180;
    Text text = fromUtf8(locator);
    const LocatorPosition position = Maiden2World(text);
    return {leadingNumber(position.LatText) * radian, leadingNumber(position.LonText) * radian};
}

std::string miles(TextView distText) {
    return toUtf8(plainText(shownMiles(leadingNumber(distText))));
}

std::string distanceExample(const Parts& in) {
    const FormTexts texts = distAzimuth(in[1], in[2]);
    const std::string azimuth = in[1] == in[2] ? "none" : trimmedUtf8(texts.AzimuthText);
    return trimmedUtf8(texts.DistText) + " Km, " + miles(texts.DistText) + " Miles, " + azimuth +
           " degrees";
}

/// What is shown, and what double precision finds on the same sphere.
std::string neighboursExample(const Parts& in) {
    const Point from = centreOf(in[1]);
    const Point to = centreOf(in[2]);
    const double east = to.lon - from.lon;
    const double x = std::sin(east) * std::cos(to.lat);
    const double y = std::cos(from.lat) * std::sin(to.lat) -
                     std::sin(from.lat) * std::cos(to.lat) * std::cos(east);
    const double kilometres = 6367 * std::asin(std::hypot(x, y)); // up to a quarter of a circle
    const auto shown = distAzimuth(in[1], in[2]);
    std::ostringstream text;
    text << "shown " << trimmedUtf8(shown.DistText) << " Km, " << trimmedUtf8(shown.AzimuthText)
         << " degrees; exact " << std::fixed << std::setprecision(1) << kilometres << " km, "
         << std::atan2(x, y) * 180 / std::numbers::pi;
    return text.str();
}

std::string locatorExample(const Parts& in) {
    Text locator = fromUtf8(in[1]);
    const LocatorPosition position = Maiden2World(locator);
    return toUtf8(position.LatText) + ", " + toUtf8(position.LonText);
}

ExtendedPosition extended(const std::string& locator) {
    Text padded = fromUtf8(locator);
    return LongMaiden2Coordinates(padded).value();
}

std::string extendedExample(const Parts& in) {
    const ExtendedPosition position = extended(in[1]);
    return trimmedUtf8(position.LatText) + ", " + trimmedUtf8(position.LonText);
}

/// The decimal boxes behind a locator OK: the decoded texts without their last characters.
struct DecimalBoxes {
    Text lat;
    Text lon;
};

DecimalBoxes boxesOfLocator(const std::string& locator) {
    const ExtendedPosition position = extended(locator);
    return {Text(position.LatText, 0, position.LatText.size() - 1),
            Text(position.LonText, 0, position.LonText.size() - 1)};
}

std::string boxesExample(const Parts& in) {
    const DecimalBoxes boxes = boxesOfLocator(in[1]);
    std::string text("\"");
    text.append(toUtf8(boxes.lat)).append("\" and \"").append(toUtf8(boxes.lon)).append("\"");
    return text;
}

std::string gridExample(const Parts& in) {
    return toUtf8(DecimalCoordinates(fromUtf8(in[1]), fromUtf8(in[2])).locator);
}

std::string dmsExample(const Parts& in) {
    const WholeDms dms = WorldDMS(fromUtf8(in[1])).value();
    const auto whole = [](double value) { return toUtf8(plainText(value)); };
    return whole(dms.Deg) + " degrees, " + whole(dms.Min) + " minutes, " + whole(dms.Sec) +
           " seconds" + (dms.isNegative ? ", negative" : "");
}

std::string degreesExample(const Parts& in) {
    const double magnitude = std::stod(in[1]) + std::stod(in[2]) / 60 + std::stod(in[3]) / 3600;
    const bool isNegative = in[4] == "S" || in[4] == "W";
    std::string text(isNegative ? "-" : "");
    return text.append(toUtf8(fiveDecimalMask(magnitude)));
}

std::string uiView(TextView lat, TextView lon) {
    const WholeDms latitude = WorldDMS(lat).value();
    const WholeDms longitude = WorldDMS(lon).value();
    return toUtf8(uiViewText(latitude, latitude.isNegative ? u"S" : u"N", longitude,
                             longitude.isNegative ? u"W" : u"E"));
}

std::string uiViewExample(const Parts& in) {
    return uiView(fromUtf8(in[1]), fromUtf8(in[2]));
}

std::string uiViewReadExample(const Parts& in) {
    const Position position = readUIViewText(fromUtf8(in[1])).value().position;
    return number(static_cast<float>(position.latitude)) + ", " +
           number(static_cast<float>(position.longitude));
}

std::string compressedExample(const Parts& in) {
    return toUtf8(compressedText({std::stod(in[1]), std::stod(in[2])}));
}

/// The line below the map, behind the two locators.
std::string mapLineExample(const Parts& in) {
    const std::string names = in[1] + " to " + in[2] + ": ";
    return toUtf8(pathCaption({fromUtf8(in[1]), fromUtf8(in[2])}).value()).substr(names.size());
}

/// A kind of example: a pattern whose last group is what `compute` must give for the others.
struct Kind {
    const char* name;
    const char* pattern;
    std::string (*compute)(const Parts&);
    int count; ///< how many of them the manual holds
};

std::ostream& operator<<(std::ostream& stream, const Kind& kind) {
    return stream << kind.name;
}

const Kind kinds[] = {
    {"distance", "    Home (\\w+), Target (\\w+): (.*)", distanceExample, 5},
    {"path on the map", "  (\\w+) to (\\w+): (.*)", mapLineExample, 2},
    {"neighbours", "    From (\\w+) to (\\w+): (.*)", neighboursExample, 3},
    {"locator", "    Locator (\\w+) is (.*)", locatorExample, 5},
    {"extended locator", "    Extended (\\w+) is (.*)", extendedExample, 5},
    {"boxes of a locator", "    Locator (\\w+) fills the boxes with (.*)", boxesExample, 6},
    {"locator of a position", "    Position (\\S+), (\\S+) lies in (.*)", gridExample, 5},
    {"degrees, minutes, seconds", "    Decimal (\\S+) is (.*)", dmsExample, 3},
    {"decimal degrees", R"(    Degrees (\d+) (\d+) (\d+) ([NSEW]) are (.*))", degreesExample, 4},
    {"UI-View text", "    Position (\\S+), (\\S+) writes (.*)", uiViewExample, 3},
    {"UI-View text read", "    UI-View (\\S+) reads (.*)", uiViewReadExample, 3},
    {"compressed text", "    Position (\\S+), (\\S+) compresses to (.*)", compressedExample, 3},
};

class ManualExampleTest : public testing::TestWithParam<Kind> {};

TEST_P(ManualExampleTest, IsWhatTheProgramComputes) {
    const std::regex pattern(GetParam().pattern);
    int found = 0;
    for (const std::string& line : manualLines()) {
        std::smatch parts;
        if (!std::regex_match(line, parts, pattern))
            continue;
        ++found;
        EXPECT_EQ(GetParam().compute(Parts(parts.begin(), parts.end())), parts[parts.size() - 1])
            << line;
    }
    EXPECT_EQ(found, GetParam().count) << "an example was added, or lost its wording";
}

INSTANTIATE_TEST_SUITE_P(Kinds, ManualExampleTest, testing::ValuesIn(kinds));

// The command line -------------------------------------------------------------------------------

/// The indented lines behind the one that holds a command.
std::vector<std::string> outputOf(const std::string& command) {
    const std::vector<std::string> lines = manualLines();
    auto line = std::find(lines.begin(), lines.end(), "    $ " + command);
    std::vector<std::string> output;
    while (line != lines.end() && ++line != lines.end() && line->starts_with("    "))
        output.push_back(line->substr(4));
    return output;
}

TEST(ManualExample, ShowsTheReportOfTheCommandLine) {
    const FormTexts texts = distAzimuth("JO20AW", "FN42AA");
    Text home = u"JO20AW";
    const LocatorPosition position = Maiden2World(home);
    const double lat = leadingNumber(texts.LatText);
    const double lon = -leadingNumber(texts.LonText);
    const std::vector<std::string> expected{
        "Home locator  :JO20AW",
        "Target Locator:FN42AA",
        "Distance:" + trimmedUtf8(texts.DistText) + " Km",
        "        :" + miles(texts.DistText) + " Miles",
        "Azimuth :" + trimmedUtf8(texts.AzimuthText) + " degrees",
        "Home>   Latitude :" + toUtf8(position.LatText) + "°",
        "Home>   Longitude:" + toUtf8(position.LonText) + "°",
        "Target> Latitude :" + toUtf8(plainText(lat)) + (lat < 0 ? "S°" : "N°"),
        "Target> Longitude:" + toUtf8(plainText(lon)) + (lon > 0 ? "E°" : "W°")};
    EXPECT_EQ(outputOf("orbisgrid jo20aw fn42aa"), expected);
}

std::string worldText(TextView box, const char* positive, const char* negative) {
    const WholeDms dms = WorldDMS(box).value();
    return toUtf8(plainText(dms.Deg)) + "°" + toUtf8(plainText(dms.Min)) + "'" +
           toUtf8(plainText(dms.Sec)) + (dms.isNegative ? negative : positive);
}

TEST(ManualExample, ShowsAllNotationsOfTheCommandLine) {
    const DecimalBoxes boxes = boxesOfLocator("JO20AW");
    const std::vector<std::string> expected{
        "Maidenhead Locator:JO20AW",
        "Decimal Latitude:" + toUtf8(boxes.lat),
        "Decimal Longitude:" + toUtf8(boxes.lon),
        "World Latitude:" + worldText(boxes.lat, "N", "S"),
        "World Longitude:" + worldText(boxes.lon, "E", "W"),
        "UI-View string:" + uiView(boxes.lat, boxes.lon),
        "APRS Compressed:" +
            toUtf8(compressedText({leadingNumber(boxes.lat), leadingNumber(boxes.lon)}))};
    EXPECT_EQ(outputOf("orbisgrid -Cjo20aw"), expected);
}

// Its form ---------------------------------------------------------------------------------------

TEST(Manual, IsPlainTextOf72Columns) {
    const std::string bytes = bytesOf("Readme.txt");
    EXPECT_EQ(bytes.find_first_of("\r\t"), std::string::npos);
    EXPECT_TRUE(bytes.ends_with('\n'));
    const Text text = fromUtf8(bytes);
    EXPECT_EQ(text.find(char16_t{0xFFFD}), Text::npos) << "bytes that are no UTF-8";
    for (const std::string& line : manualLines()) {
        EXPECT_LE(fromUtf8(line).size(), 72U) << line;
        EXPECT_FALSE(line.ends_with(' ')) << line;
    }
}

TEST(Manual, HasAChapterForEachLineOfItsContents) {
    const std::vector<std::string> lines = manualLines();
    const std::regex entry("    (\\d+|[A-Z]) +(\\S.*)"); // chapters, then appendices
    auto line = std::find(lines.begin(), lines.end(), "CONTENTS");
    ASSERT_NE(line, lines.end());
    int chapters = 0;
    std::smatch parts;
    for (line += 2; std::regex_match(*line, parts, entry); ++line) {
        std::string heading = parts[1].str() + (parts[1].length() == 1 ? "   " : "  ") +
                              toUtf8(upperCase(fromUtf8(parts[2].str())));
        const auto chapter = std::find(line, lines.end(), heading);
        ASSERT_NE(chapter, lines.end()) << heading;
        EXPECT_EQ(*(chapter + 1), std::string(heading.size(), '-')) << heading;
        ++chapters;
    }
    EXPECT_EQ(chapters, 16);
}

// The file beside it -----------------------------------------------------------------------------

TEST(DefaultIni, HasEmptyListsInTheWritersLayout) {
    EXPECT_EQ(bytesOf("Orbisgrid.ini"),
              ";Orbisgrid, by ZZ9QX (c)2002-2015 version 3.1.1\r\n;\r\n"
              "[Default home]\r\n\r\n[Default Target]\r\n\r\n[StayonTop]\r\n 0 \r\n"
              "[Home data]\r\n[**end**]\r\n[Target data]\r\n[**end**]\r\n"
              "[NoCheckWebUpdates]\r\n 0 \r\n[RememberPosition]\r\n 0 \r\n"
              "[Left]\r\n 0 \r\n[Top]\r\n 0 \r\n");
}

TEST(DefaultIni, HasTheLabelsThatTheManualLists) {
    const auto labelsOf = [](const std::string& text, const std::string& indent) {
        const std::regex label(indent + "(\\[.*\\])(\\s.*|\r?)");
        std::vector<std::string> labels;
        std::smatch parts;
        for (const std::string& line : linesOf(text)) {
            if (std::regex_match(line, parts, label))
                labels.push_back(parts[1]);
        }
        return labels;
    };
    const std::vector<std::string> labels = labelsOf(bytesOf("Orbisgrid.ini"), "");
    EXPECT_EQ(labels.size(), 11U);
    EXPECT_EQ(labelsOf(bytesOf("Readme.txt"), "    "), labels);
}

} // namespace

} // namespace orbisgrid
