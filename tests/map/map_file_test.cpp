#include "map/map_file.h"

#include "tests/support/world_outlines.h"

#include <gtest/gtest.h>

namespace orbisgrid {

namespace {

std::string between(const std::string& text, const std::string& first, const std::string& last) {
    const std::size_t start = text.find(first) + first.size();
    return text.substr(start, text.find(last, start) - start);
}

std::string fileOf(const MapFileOptions& options) {
    return mapFile(options).value_or("none");
}

std::string titleOf(const MapFileOptions& options) {
    return between(fileOf(options), "<title>", "</title>");
}

std::string descriptionOf(const MapFileOptions& options) {
    return between(fileOf(options), "<desc>", "</desc>");
}

std::size_t countOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

MapFileOptions onePath() {
    MapFileOptions options;
    options.home = u"jo20aw";
    options.targets = {u"FN42aa"};
    return options;
}

TEST(MapFile, SaysThePathInWords) {
    MapFileOptions options = onePath();
    options.outlines = &test::worldOutlines();
    options.moment = parsedMoment("2026-06-21T12:00:00Z");
    EXPECT_EQ(titleOf(options), "Path from JO20AW to FN42AA");
    EXPECT_EQ(descriptionOf(options),
              "Azimuthal equidistant map around JO20AW, north up, 20003 km to its rim. JO20AW to "
              "FN42AA: 5637 km, 3520 miles, 291°; long path 34368 km, 111°. Day and night at "
              "2026-06-21 12:00 UTC.");
}

TEST(MapFile, SaysThatOutlinesAreMissing) {
    EXPECT_TRUE(descriptionOf(onePath()).ends_with(" Without outlines."));
}

TEST(MapFile, WithoutATargetItIsAMap) {
    MapFileOptions options = onePath();
    options.targets.clear();
    options.radiusKilometres = 500;
    EXPECT_EQ(titleOf(options), "Map around JO20AW");
    EXPECT_EQ(descriptionOf(options), "Azimuthal equidistant map around JO20AW, north up, 500 km "
                                      "to its rim. Without outlines.");
}

TEST(MapFile, ManyTargetsAreCounted) {
    MapFileOptions options = onePath();
    options.targets = {u"FN42AA", u"QF56od", u"no locator", u"RE78"};
    EXPECT_EQ(titleOf(options), "Map around JO20AW");
    EXPECT_TRUE(descriptionOf(options).find(" Targets: 3.") != std::string::npos);
    const std::string file = fileOf(options);
    EXPECT_EQ(countOf(file, "<circle class=\"target\""), 3U);
    EXPECT_EQ(countOf(file, ">RE78LL</text>"), 1U) << "completed";
    EXPECT_EQ(countOf(file, "class=\"short-path\""), 1U);
    options.drawsPaths = false;
    EXPECT_EQ(countOf(fileOf(options), "class=\"short-path\""), 0U);
}

TEST(MapFile, HasOneRimAndItsTexts) {
    const std::string file = fileOf(onePath());
    EXPECT_EQ(countOf(file, "<circle class=\"rim\""), 1U);
    EXPECT_EQ(countOf(file, ">JO20AW</text>"), 1U);
    EXPECT_EQ(countOf(file, ">FN42AA</text>"), 1U);
    EXPECT_EQ(countOf(file, "class=\"land\""), 0U);
    MapFileOptions options = onePath();
    options.outlines = &test::worldOutlines();
    options.moment = Moment{};
    EXPECT_EQ(countOf(fileOf(options), "class=\"land\""), 1U);
    EXPECT_EQ(countOf(fileOf(options), "class=\"night\""), 1U);
    EXPECT_EQ(countOf(fileOf(options), ">1970-01-01 00:00 UTC</text>"), 1U);
}

TEST(MapFile, WithoutAHomeIsNothing) {
    MapFileOptions options = onePath();
    options.home = u"no locator";
    EXPECT_FALSE(mapFile(options));
}

} // namespace

} // namespace orbisgrid
