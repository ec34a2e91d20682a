#include "map/path_map.h"

#include "geodesy/great_circle.h"
#include "map/labels.h"
#include "tests/support/picture_probe.h"
#include "tests/support/world_outlines.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace orbisgrid {

namespace {

using test::distanceBetween;
using test::shapesOf;
using Circle = Picture::Circle;
using Dot = Picture::Dot;
using Label = Picture::Label;
using Lines = Picture::Lines;

PathMapOptions pathOptions(TextView home, TextView target) {
    PathMapOptions options;
    options.view.centre = pointOf(home);
    options.home = Text(home);
    options.targets = {{pointOf(target), Text(target)}};
    return options;
}

std::vector<std::string> textsOf(const Picture& picture, Role role) {
    std::vector<std::string> texts;
    for (const Label& label : shapesOf<Label>(picture, role))
        texts.push_back(toUtf8(label.text));
    return texts;
}

std::vector<Picture::Polyline> linesOf(const Picture& picture, Role role) {
    const auto shapes = shapesOf<Lines>(picture, role);
    return shapes.size() == 1 ? shapes[0].lines : std::vector<Picture::Polyline>{};
}

TEST(PathMap, HasItsShapesInTheOrderOfPainting) {
    PathMapOptions options = pathOptions(u"JO20aw", u"FN42aa");
    options.outlines = &test::worldOutlines();
    options.moment = parsedMoment("2026-06-21T12:00:00Z");
    options.cross = Position{10, 10};
    const Picture picture = pathMap(options);
    std::vector<Role> roles;
    for (const Picture::Shape& shape : picture.shapes) {
        const Role role = std::visit([](const auto& each) { return each.role; }, shape);
        if (roles.empty() || roles.back() != role)
            roles.push_back(role);
    }
    using enum Role;
    EXPECT_EQ(roles, (std::vector<Role>{sea,    land,     border,       night,     grid,
                                        ring,   tick,     rim,          longPath,  shortPath,
                                        target, home,     cross,        homeLabel, targetLabel,
                                        note,   cardinal, bearingLabel, ringLabel, gridLabel}));
    EXPECT_EQ(picture.centre, MapFrame::middle);
    EXPECT_EQ(picture.radius, MapFrame(MapView{}).rim());
}

TEST(PathMap, HasOneRimAndTheRings) {
    const Picture picture = pathMap(pathOptions(u"JO20aw", u"FN42aa"));
    const auto rims = shapesOf<Circle>(picture, Role::rim);
    ASSERT_EQ(rims.size(), 1U);
    EXPECT_EQ(rims[0].radius, picture.radius);
    EXPECT_EQ(rims[0].centre, MapFrame::middle);
    const auto rings = shapesOf<Circle>(picture, Role::ring);
    ASSERT_EQ(rings.size(), 3U);
    EXPECT_NEAR(rings[0].radius, picture.radius * 5000 / halfCircumference, 1e-9);
    EXPECT_EQ(textsOf(picture, Role::ringLabel),
              (std::vector<std::string>{"5000 km", "10000 km", "15000 km"}));
}

TEST(PathMap, WithoutOutlinesEverythingElseIsThere) {
    PathMapOptions options = pathOptions(u"JO20aw", u"FN42aa");
    const Picture without = pathMap(options);
    options.outlines = &test::worldOutlines();
    const Picture with = pathMap(options);
    EXPECT_EQ(without.shapes.size() + 2, with.shapes.size()) << "land and borders";
    EXPECT_TRUE(shapesOf<Picture::Area>(without, Role::land).empty());
    EXPECT_EQ(textsOf(without, Role::gridLabel), textsOf(with, Role::gridLabel));
}

TEST(PathMap, TheShortPathIsStraight) {
    const Picture picture = pathMap(pathOptions(u"JO20aw", u"FN42aa"));
    const auto lines = linesOf(picture, Role::shortPath);
    ASSERT_EQ(lines.size(), 1U);
    ASSERT_EQ(lines[0].size(), 2U);
    EXPECT_EQ(lines[0][0], MapFrame::middle);
    const MapFrame frame(MapView{pointOf(u"JO20aw")});
    EXPECT_LT(distanceBetween(lines[0][1], frame.pointOf(pointOf(u"FN42aa"))), 1e-9);
    EXPECT_NEAR(distanceBetween(lines[0][0], lines[0][1]),
                picture.radius * 5637.2 / halfCircumference, 0.02);
}

TEST(PathMap, TheLongPathIsDrawnInTwoPieces) {
    const Picture picture = pathMap(pathOptions(u"JO20aw", u"FN42aa"));
    const auto lines = linesOf(picture, Role::longPath);
    ASSERT_EQ(lines.size(), 2U);
    const Picture::Point target = shapesOf<Dot>(picture, Role::target).at(0).place;
    EXPECT_EQ(lines[0][0], MapFrame::middle);
    EXPECT_NEAR(distanceBetween(lines[0][1], MapFrame::middle), picture.radius, 1e-9);
    EXPECT_NEAR(distanceBetween(lines[1][0], MapFrame::middle), picture.radius, 1e-9);
    EXPECT_LT(distanceBetween(lines[1][1], target), 1e-9);
    EXPECT_NEAR(distanceBetween(lines[0][1], lines[1][0]), 2 * picture.radius, 1e-9) << "opposite";
    EXPECT_LT(target.x, 500) << "it lies in the west";
    EXPECT_GT(lines[0][1].x, 500) << "the other way round begins in the east";
    EXPECT_LT(lines[1][0].x, target.x) << "and comes in beyond the target";
}

TEST(PathMap, ATargetBeyondTheRimIsAimedAt) {
    PathMapOptions options = pathOptions(u"JO20aw", u"FN42aa");
    options.view.radiusKilometres = 3000;
    const Picture picture = pathMap(options);
    const auto path = linesOf(picture, Role::shortPath);
    ASSERT_EQ(path.size(), 1U);
    EXPECT_NEAR(distanceBetween(path[0][1], MapFrame::middle), picture.radius, 1e-9);
    EXPECT_EQ(linesOf(picture, Role::longPath).size(), 1U);
    EXPECT_TRUE(shapesOf<Dot>(picture, Role::target).empty());
    EXPECT_TRUE(textsOf(picture, Role::targetLabel).empty());
}

TEST(PathMap, HomeAndTargetEqualHaveNoPath) {
    const Picture picture = pathMap(pathOptions(u"JO20aw", u"JO20aw"));
    EXPECT_TRUE(linesOf(picture, Role::shortPath).empty());
    EXPECT_TRUE(linesOf(picture, Role::longPath).empty());
    EXPECT_EQ(shapesOf<Dot>(picture, Role::target).at(0).place, MapFrame::middle);
    EXPECT_EQ(textsOf(picture, Role::homeLabel), std::vector<std::string>{"JO20aw"});
    EXPECT_EQ(textsOf(picture, Role::targetLabel), std::vector<std::string>{"JO20aw"});
}

TEST(PathMap, ATargetAtTheAntipodeIsDueNorth) {
    PathMapOptions options;
    options.home = u"JJ00";
    options.targets = {{{0, 180}, u"AJ00"}};
    const Picture picture = pathMap(options);
    const Dot target = shapesOf<Dot>(picture, Role::target).at(0);
    EXPECT_NEAR(target.place.x, 500, 1e-6);
    EXPECT_NEAR(target.place.y, 500 - picture.radius, 1e-6);
    const auto path = linesOf(picture, Role::longPath);
    ASSERT_EQ(path.size(), 2U);
    EXPECT_NEAR(path[0][1].y, 500 + picture.radius, 1e-6) << "due south";
}

TEST(PathMap, AntipodalLocatorsAreAtTheRim) {
    const Picture picture = pathMap(pathOptions(u"AA00aa", u"JR99xx"));
    const Dot target = shapesOf<Dot>(picture, Role::target).at(0);
    EXPECT_NEAR(distanceBetween(target.place, MapFrame::middle), picture.radius, 0.1);
    EXPECT_EQ(linesOf(picture, Role::longPath).size(), 2U);
}

TEST(PathMap, AQuarterOfACircleIsDrawnWhereItIs) {
    // Their distance is 0 km by the formula of the main window.
    ASSERT_EQ(greatCircle(pointOf(u"JA01as"), pointOf(u"JJ01as")).kilometres, 0);
    const Picture picture = pathMap(pathOptions(u"JA01as", u"JJ01as"));
    const auto path = linesOf(picture, Role::shortPath);
    ASSERT_EQ(path.size(), 1U);
    EXPECT_NEAR(distanceBetween(path[0][0], path[0][1]), picture.radius / 2, 2);
}

TEST(PathMap, ManyTargetsHaveTheirPathsAndDots) {
    PathMapOptions options = pathOptions(u"JO20aw", u"FN42aa");
    options.targets.push_back({pointOf(u"QF56od"), u"QF56OD"});
    options.targets.push_back({{std::numeric_limits<double>::quiet_NaN(), 0}, u"nowhere"});
    options.targets.push_back({{0, std::numeric_limits<double>::infinity()}, u"nowhere"});
    options.targets.push_back({pointOf(u"RE78ir"), {}});
    const Picture picture = pathMap(options);
    EXPECT_EQ(shapesOf<Dot>(picture, Role::target).size(), 3U);
    EXPECT_EQ(linesOf(picture, Role::shortPath).size(), 3U);
    EXPECT_EQ(linesOf(picture, Role::longPath).size(), 6U);
    EXPECT_EQ(textsOf(picture, Role::targetLabel), (std::vector<std::string>{"FN42aa", "QF56OD"}));
    options.drawsPaths = false;
    const Picture withoutPaths = pathMap(options);
    EXPECT_EQ(shapesOf<Dot>(withoutPaths, Role::target).size(), 3U);
    EXPECT_TRUE(shapesOf<Lines>(withoutPaths, Role::shortPath).empty());
    EXPECT_TRUE(shapesOf<Lines>(withoutPaths, Role::longPath).empty());
}

TEST(PathMap, LabelsBelongToTheirDots) {
    PathMapOptions options = pathOptions(u"JO20aw", u"FN42aa");
    options.view.radiusKilometres = 10000;
    options.targets.insert(options.targets.begin(), {pointOf(u"QF56od"), u"beyond the rim"});
    const Picture picture = pathMap(options);
    const auto labels = shapesOf<Label>(picture, Role::targetLabel);
    ASSERT_EQ(labels.size(), 1U);
    EXPECT_EQ(toUtf8(labels[0].text), "FN42aa");
    EXPECT_LT(distanceBetween(labels[0].place, shapesOf<Dot>(picture, Role::target).at(0).place),
              20);
    EXPECT_LT(
        distanceBetween(shapesOf<Label>(picture, Role::homeLabel).at(0).place, MapFrame::middle),
        20);
}

TEST(PathMap, WithoutAHomeThereIsNeitherDotNorPath) {
    PathMapOptions options = pathOptions(u"JO20aw", u"FN42aa");
    options.home.reset();
    const Picture picture = pathMap(options);
    EXPECT_TRUE(shapesOf<Dot>(picture, Role::home).empty());
    EXPECT_TRUE(textsOf(picture, Role::homeLabel).empty());
    EXPECT_TRUE(linesOf(picture, Role::shortPath).empty());
    EXPECT_EQ(shapesOf<Dot>(picture, Role::target).size(), 1U);
    options.home = Text();
    EXPECT_EQ(shapesOf<Dot>(pathMap(options), Role::home).size(), 1U);
    EXPECT_TRUE(textsOf(pathMap(options), Role::homeLabel).empty());
}

TEST(PathMap, ACrossStandsAtItsPlace) {
    PathMapOptions options = pathOptions(u"JO20aw", u"FN42aa");
    options.cross = Position{10, 20};
    const auto lines = linesOf(pathMap(options), Role::cross);
    ASSERT_EQ(lines.size(), 2U);
    const Picture::Point point = MapFrame(options.view).pointOf(*options.cross);
    for (const Picture::Polyline& line : lines) {
        ASSERT_EQ(line.size(), 2U);
        EXPECT_NEAR((line[0].x + line[1].x) / 2, point.x, 1e-9);
        EXPECT_NEAR((line[0].y + line[1].y) / 2, point.y, 1e-9);
        EXPECT_NEAR(distanceBetween(line[0], line[1]), options.view.textSize, 1e-9);
    }
    options.view.radiusKilometres = 1000;
    EXPECT_TRUE(linesOf(pathMap(options), Role::cross).empty()) << "beyond the rim";
    options.cross = Position{std::numeric_limits<double>::infinity(), 20};
    EXPECT_TRUE(linesOf(pathMap(options), Role::cross).empty()) << "nowhere";
}

TEST(PathMap, TheMomentIsWrittenWhereNightIsShown) {
    PathMapOptions options = pathOptions(u"JO20aw", u"FN42aa");
    EXPECT_TRUE(textsOf(pathMap(options), Role::note).empty());
    EXPECT_TRUE(shapesOf<Picture::Area>(pathMap(options), Role::night).empty());
    options.moment = parsedMoment("2026-12-21T00:30:00Z");
    EXPECT_EQ(textsOf(pathMap(options), Role::note),
              std::vector<std::string>{"2026-12-21 00:30 UTC"});
    EXPECT_EQ(shapesOf<Picture::Area>(pathMap(options), Role::night).size(), 1U);
}

TEST(PathMap, NoLabelCoversAnotherOrADotOrLeavesThePicture) {
    for (const double size : {4.0, 14.0, 30.0, 100.0}) {
        for (const double kilometres : {100.0, 1400.0, 3000.0, halfCircumference}) {
            PathMapOptions options = pathOptions(u"JO20aw", u"FN42aa");
            options.targets.push_back({pointOf(u"JO20bw"), u"a neighbour"});
            options.view.textSize = size;
            options.view.radiusKilometres = kilometres;
            options.moment = parsedMoment("2026-06-21T12:00:00Z");
            std::vector<LabelBox> boxes;
            for (const Picture::Shape& shape : pathMap(options).shapes) {
                if (const auto* label = std::get_if<Label>(&shape))
                    boxes.push_back(boxOf(*label));
                if (const auto* dot = std::get_if<Dot>(&shape); dot && dot->role == Role::home)
                    boxes.push_back({dot->place.x - dot->radius, dot->place.y - dot->radius,
                                     dot->place.x + dot->radius, dot->place.y + dot->radius});
            }
            for (std::size_t i = 0; i < boxes.size(); ++i) {
                const LabelBox& one = boxes[i];
                ASSERT_TRUE(one.left >= 0 && one.top >= 0 && one.right <= 1000 &&
                            one.bottom <= 1000);
                for (std::size_t k = 0; k < i; ++k) {
                    const LabelBox& other = boxes[k];
                    ASSERT_TRUE(one.left >= other.right || other.left >= one.right ||
                                one.top >= other.bottom || other.top >= one.bottom)
                        << i << ' ' << k << ' ' << size << ' ' << kilometres;
                }
            }
        }
    }
}

TEST(PathMap, TheMostImportantLabelsComeFirst) {
    // So large that there is no room for all.
    PathMapOptions options = pathOptions(u"JO20aw", u"FN42aa");
    options.view.textSize = 30;
    const Picture picture = pathMap(options);
    EXPECT_EQ(textsOf(picture, Role::homeLabel).size(), 1U);
    EXPECT_EQ(textsOf(picture, Role::targetLabel).size(), 1U);
    EXPECT_EQ(textsOf(picture, Role::cardinal).size(), 4U);
    EXPECT_LT(textsOf(picture, Role::gridLabel).size(), 200U);
}

} // namespace

} // namespace orbisgrid
