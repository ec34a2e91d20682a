// What pictures show is proved elsewhere, for each kind of shape by itself. Here a change of any of
// their numbers is seen, wanted or not.

#include "geodesy/great_circle.h"
#include "geodesy/locator_check.h"
#include "map/path_map.h"
#include "map/role_style.h"
#include "tests/support/table.h"
#include "tests/support/world_outlines.h"

#include <algorithm>
#include <array>
#include <sstream>

namespace orbisgrid {

namespace {

using test::Row;

/// What a picture has of a role, in numbers that no two different ones are likely to share.
struct Tally {
    int shapes = 0;
    std::size_t points = 0;
    double x = 0, y = 0; ///< sums of the points, each times its number: their order counts
    double sizes = 0;    ///< of circles, dots and letters
};

class TallyMaker {
public:
    void take(const Picture::Area& area) { takeLines(area.role, area.rings); }

    void take(const Picture::Lines& lines) { takeLines(lines.role, lines.lines); }

    void take(const Picture::Circle& circle) {
        takePoint(circle.role, circle.centre, circle.radius);
    }

    void take(const Picture::Dot& dot) { takePoint(dot.role, dot.place, dot.radius); }

    void take(const Picture::Label& label) {
        takePoint(label.role, label.place, label.size);
        of(label.role).sizes += 1000 * static_cast<int>(label.anchor) + label.text[0];
    }

    const Tally& operator[](Role role) const {
        return m_tallies.at(static_cast<std::size_t>(role));
    }

private:
    Tally& of(Role role) { return m_tallies.at(static_cast<std::size_t>(role)); }

    void takeLines(Role role, const std::vector<Picture::Polyline>& lines) {
        ++of(role).shapes;
        for (const Picture::Polyline& line : lines) {
            for (const Picture::Point& point : line)
                add(of(role), point);
        }
    }

    void takePoint(Role role, Picture::Point point, double size) {
        Tally& tally = of(role);
        ++tally.shapes;
        add(tally, point);
        tally.sizes += size * tally.shapes;
    }

    static void add(Tally& tally, Picture::Point point) {
        const auto weight = static_cast<double>(++tally.points % 1000);
        tally.x += weight * point.x;
        tally.y += weight * point.y;
    }

    std::array<Tally, roleCount> m_tallies{};
};

TallyMaker tallyOf(const Row& view) {
    PathMapOptions options;
    options.view = {.centre = {view.number("latitude"), view.number("longitude")},
                    .radiusKilometres = view.number("radius"),
                    .textSize = view.number("text_size")};
    options.outlines = &test::worldOutlines();
    if (view["home"] != "-")
        options.home = view.text("home");
    std::istringstream targets(view["targets"]);
    for (std::string target; targets >> target && target != "-";)
        options.targets.push_back({pointOf(*checkedTarget(fromUtf8(target))), fromUtf8(target)});
    options.moment = parsedMoment(view["moment"]);
    Position cross;
    if (std::istringstream(view["cross"]) >> cross.latitude >> cross.longitude)
        options.cross = cross;
    TallyMaker made;
    for (const Picture::Shape& shape : pathMap(options).shapes)
        std::visit([&made](const auto& each) { made.take(each); }, shape);
    return made;
}

/// A row of the table, for whoever has changed a picture on purpose.
std::string rowOf(const std::string& view, Role role, const Tally& tally) {
    std::ostringstream row;
    row.precision(3);
    row << std::fixed << roleName(role) << ": " << view << '\t' << view << '\t' << roleName(role)
        << '\t' << tally.shapes << '\t' << tally.points << '\t' << tally.x << '\t' << tally.y
        << '\t' << tally.sizes;
    return row.str();
}

class WholePictureTest : public testing::TestWithParam<Row> {};

TEST_P(WholePictureTest, HoldsTheseNumbers) {
    const TallyMaker made = tallyOf(GetParam());
    const std::vector<Row> rows = test::readTable("map_pictures.tsv");
    for (const Role role : everyRole()) {
        const auto row = std::find_if(rows.begin(), rows.end(), [&](const Row& each) {
            return each["view"] == GetParam().name && each["role"] == roleName(role);
        });
        const Tally& tally = made[role];
        SCOPED_TRACE("now: " + rowOf(GetParam().name, role, tally));
        EXPECT_EQ(row != rows.end(), tally.shapes > 0);
        if (row == rows.end())
            continue;
        EXPECT_EQ(tally.shapes, row->number("shapes"));
        EXPECT_EQ(static_cast<double>(tally.points), row->number("points"));
        const double tolerance = tally.points < 1000 ? 0.002 : 0.1;
        EXPECT_NEAR(tally.x, row->number("x"), tolerance);
        EXPECT_NEAR(tally.y, row->number("y"), tolerance);
        EXPECT_NEAR(tally.sizes, row->number("sizes"), 0.001);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, WholePictureTest,
                         testing::ValuesIn(test::readTable("map_views.tsv")), test::testName);

} // namespace

} // namespace orbisgrid
