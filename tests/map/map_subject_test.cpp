#include "map/map_subject.h"
#include "map/map_words.h"

#include <gtest/gtest.h>

namespace orbisgrid {

namespace {

const Position jo20aw{50.9375, 4.041667};
const Position fn42aa{42.02083, -71.95834};

void expectPlace(Position place, Position expected) {
    EXPECT_NEAR(place.latitude, expected.latitude, 1e-5);
    EXPECT_NEAR(place.longitude, expected.longitude, 1e-5);
}

TEST(SubjectOfPath, IsAroundHomeWithTheTarget) {
    const auto subject = subjectOfPath({u"jo20aw", u"fn42aa"});
    ASSERT_TRUE(subject);
    expectPlace(subject->centre, jo20aw);
    EXPECT_EQ(subject->home, Text(u"JO20AW"));
    ASSERT_EQ(subject->targets.size(), 1U);
    EXPECT_EQ(subject->targets[0].text, u"FN42AA");
    expectPlace(subject->targets[0].place, fn42aa);
    EXPECT_EQ(subject->caption,
              u"JO20AW to FN42AA: 5637 km, 3520 miles, 291°; long path 34368 km, 111°");
}

TEST(SubjectOfPath, IsNothingWhereALocatorFails) {
    EXPECT_FALSE(subjectOfPath({u"JO2?", u"FN42AA"}));
    EXPECT_FALSE(subjectOfPath({u"JO20AW", u"FN4?"}));
}

TEST(SubjectBeforePath, IsAroundTheHomeBox) {
    for (const TextView box : {u"JO20AW", u" jo20aw "}) {
        const MapSubject subject = subjectBeforePath(box);
        expectPlace(subject.centre, jo20aw);
        EXPECT_EQ(subject.home, Text(u"JO20AW"));
        EXPECT_TRUE(subject.targets.empty());
        EXPECT_EQ(subject.caption, u"Type a Target and press Calculate, or double-click one here.");
    }
}

TEST(SubjectBeforePath, IsAWorldWithoutALocator) {
    for (const TextView box : {u"", u"JO2", u"JO2?AW", u"JO20AW1"}) {
        const MapSubject subject = subjectBeforePath(box);
        EXPECT_EQ(subject.centre, (Position{0, 0}));
        EXPECT_FALSE(subject.home);
        EXPECT_TRUE(subject.targets.empty());
        EXPECT_EQ(subject.caption, u"Type Home and Target and press Calculate.");
    }
}

TEST(MapWords, SayWhatIsSeen) {
    PathMapOptions map;
    EXPECT_EQ(mapWords(map, u"").title, u"Map of the world");
    EXPECT_EQ(mapWords(map, u"").description,
              u"Azimuthal equidistant map around 0 north 0 east, north up, 20003 km to its rim. "
              u"Without outlines.");
    map.home = u"JO20AW";
    EXPECT_EQ(mapWords(map, u"").title, u"Map around JO20AW");
    map.targets = {{fn42aa, u"FN42AA"}};
    EXPECT_EQ(mapWords(map, u"").title, u"Path from JO20AW to FN42AA");
    map.targets.push_back({jo20aw, u"JO20AW"});
    map.view.radiusKilometres = 1000.4;
    EXPECT_EQ(
        mapWords(map, u"Two of them").description,
        u"Azimuthal equidistant map around JO20AW, north up, 1000 km to its rim. Two of them. "
        u"Targets: 2. Without outlines.");
}

} // namespace

} // namespace orbisgrid
