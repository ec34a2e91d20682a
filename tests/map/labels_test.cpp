#include "map/labels.h"

#include <gtest/gtest.h>

namespace orbisgrid {

namespace {

using Anchor = Picture::Anchor;

Picture::Label labelAt(Picture::Point place, const Text& text, Anchor anchor = Anchor::start) {
    return {Role::note, place, anchor, 10, text};
}

TEST(LabelBox, IsBesideOfItsAnchor) {
    const LabelBox start = boxOf(labelAt({100, 100}, u"00"));
    EXPECT_DOUBLE_EQ(start.left, 100);
    EXPECT_DOUBLE_EQ(start.right, 114.4);
    EXPECT_DOUBLE_EQ(start.top, 90.5);
    EXPECT_DOUBLE_EQ(start.bottom, 102.5);
    const LabelBox middle = boxOf(labelAt({100, 100}, u"00", Anchor::middle));
    EXPECT_DOUBLE_EQ(middle.left, 92.8);
    EXPECT_DOUBLE_EQ(middle.right, 107.2);
    const LabelBox end = boxOf(labelAt({100, 100}, u"00", Anchor::end));
    EXPECT_DOUBLE_EQ(end.left, 85.6);
    EXPECT_DOUBLE_EQ(end.right, 100);
}

/// The advances of bold DejaVu Sans in thousandths of an em.
TEST(LabelBox, IsNotNarrowerThanAWideFont) {
    const std::pair<char16_t, int> advances[] = {
        {u'0', 696},  {u'9', 696}, {u'a', 675},  {u'h', 712},  {u'q', 716},  {u'z', 582},
        {u'm', 1042}, {u'w', 924}, {u'M', 995},  {u'W', 1103}, {u'A', 774},  {u'B', 762},
        {u'D', 830},  {u'G', 821}, {u'H', 837},  {u'N', 837},  {u'O', 850},  {u'Q', 850},
        {u'X', 771},  {u'Z', 725}, {u' ', 348},  {u'.', 380},  {u',', 380},  {u':', 400},
        {u'-', 415},  {u'°', 500}, {u'@', 1000}, {u'/', 365},  {u'%', 1002}, {u'~', 838},
        {u'`', 500}};
    for (const auto& [character, advance] : advances) {
        const LabelBox box = boxOf(labelAt({0, 0}, Text(1, character)));
        EXPECT_GE(box.right * 100, advance) << static_cast<int>(character);
        EXPECT_LE(box.right, 11.11) << static_cast<int>(character);
    }
}

TEST(LabelBox, HasFiveWidths) {
    const std::pair<double, Text> widths[] = {
        {4, u" .,:"}, {7.2, u"az09-°"}, {8.6, u"AZBLVXY"}, {11.1, u"mwMW"}, {10.5, u"@[`{/;…"}};
    for (const auto& [width, characters] : widths) {
        for (const char16_t character : characters)
            EXPECT_DOUBLE_EQ(boxOf(labelAt({0, 0}, Text(1, character))).right, width)
                << static_cast<int>(character);
    }
}

TEST(LabelPlacer, TakesTheFirstThatHasRoom) {
    LabelPlacer placer;
    const auto first = placer.place({labelAt({100, 100}, u"one")});
    ASSERT_TRUE(first);
    const auto second = placer.place({labelAt({105, 105}, u"two"), labelAt({100, 120}, u"two")});
    ASSERT_TRUE(second);
    EXPECT_EQ(second->place, (Picture::Point{100, 120}));
    EXPECT_FALSE(placer.place({labelAt({100, 100}, u"three"), labelAt({100, 119}, u"three")}));
    EXPECT_FALSE(placer.place({}));
}

TEST(LabelPlacer, NeighboursMayTouch) {
    LabelPlacer placer;
    EXPECT_TRUE(placer.place({labelAt({100, 100}, u"00")}));
    EXPECT_TRUE(placer.place({labelAt({114.4, 100}, u"00")}));
    EXPECT_TRUE(placer.place({labelAt({85.6, 100}, u"00")}));
    EXPECT_TRUE(placer.place({labelAt({100, 112}, u"00")}));
    EXPECT_TRUE(placer.place({labelAt({100, 88}, u"00")}));
    EXPECT_FALSE(placer.place({labelAt({114.3, 100}, u"00")}));
    EXPECT_FALSE(placer.place({labelAt({100, 111.9}, u"00")}));
}

TEST(LabelPlacer, LeavesNothingOutsideOfThePicture) {
    LabelPlacer placer;
    EXPECT_FALSE(placer.place({labelAt({-1, 100}, u"00")}));
    EXPECT_FALSE(placer.place({labelAt({990, 100}, u"00")}));
    EXPECT_FALSE(placer.place({labelAt({100, 9}, u"00")}));
    EXPECT_FALSE(placer.place({labelAt({100, 998}, u"00")}));
    EXPECT_TRUE(placer.place({labelAt({0, 9.5}, u"00")})) << "into the corner";
    EXPECT_TRUE(placer.place({labelAt({985.6, 997.5}, u"00")})) << "into the other one";
}

TEST(LabelPlacer, KeepsADotFree) {
    const auto hasRoom = [](Picture::Point place) {
        LabelPlacer placer;
        placer.keepFree({Role::home, {100, 100}, 5});
        return placer.place({labelAt(place, u"00")}).has_value();
    };
    EXPECT_FALSE(hasRoom({100, 100}));
    EXPECT_FALSE(hasRoom({104.9, 100}));
    EXPECT_TRUE(hasRoom({105, 100}));
    EXPECT_FALSE(hasRoom({80.7, 100}));
    EXPECT_TRUE(hasRoom({80.5, 100}));
    EXPECT_FALSE(hasRoom({90, 114.4}));
    EXPECT_TRUE(hasRoom({90, 114.6}));
    EXPECT_FALSE(hasRoom({90, 92.6}));
    EXPECT_TRUE(hasRoom({90, 92.4}));
}

TEST(LabelsBeside, LeaveTheDotFree) {
    const Picture::Dot dot{Role::target, {500, 500}, 4};
    const auto labels = labelsBeside(dot, Role::targetLabel, 10, u"JO20AW");
    EXPECT_EQ(labels.size(), 8U);
    LabelPlacer placer;
    placer.keepFree(dot);
    for (const Picture::Label& label : labels) {
        LabelPlacer alone = placer;
        EXPECT_TRUE(alone.place({label})) << label.place.x << ' ' << label.place.y;
        const LabelBox box = boxOf(label);
        EXPECT_LT(box.left, 515);
        EXPECT_GT(box.right, 485);
        EXPECT_LT(box.top, 515);
        EXPECT_GT(box.bottom, 485);
    }
    EXPECT_EQ(labels[0].anchor, Anchor::start) << "to the right of it";
    EXPECT_EQ(labels[0].role, Role::targetLabel);
}

TEST(LabelsBeside, StandAroundTheDot) {
    const auto labels = labelsBeside({Role::target, {500, 500}, 4}, Role::targetLabel, 10, u"x");
    // Three tenths of an em away from the dot; the slanting ones seven tenths of that to each side.
    const std::pair<Picture::Point, Anchor> places[] = {
        {{507, 503.5}, Anchor::start},   {{493, 503.5}, Anchor::end},
        {{500, 490.5}, Anchor::middle},  {{500, 516.5}, Anchor::middle},
        {{504.9, 492.6}, Anchor::start}, {{495.1, 492.6}, Anchor::end},
        {{504.9, 514.4}, Anchor::start}, {{495.1, 514.4}, Anchor::end}};
    ASSERT_EQ(labels.size(), std::size(places));
    for (std::size_t i = 0; i < labels.size(); ++i) {
        EXPECT_NEAR(labels[i].place.x, places[i].first.x, 1e-9) << i;
        EXPECT_NEAR(labels[i].place.y, places[i].first.y, 1e-9) << i;
        EXPECT_EQ(labels[i].anchor, places[i].second) << i;
    }
}

TEST(CentredLabel, HasItsBoxAroundTheMiddle) {
    const LabelBox box = boxOf(centredLabel(Role::ringLabel, {300, 400}, 20, u"500 km"));
    EXPECT_DOUBLE_EQ((box.left + box.right) / 2, 300);
    EXPECT_DOUBLE_EQ((box.top + box.bottom) / 2, 400);
}

} // namespace

} // namespace orbisgrid
