#include "batch/map_task.h"
#include "core/text.h"
#include "tests/support/in_process.h"

#include <gtest/gtest.h>

namespace orbisgrid {

namespace {

using test::BatchResult;
using test::runBatch;

std::string mapOf(const Text& home, const std::vector<Text>& targets,
                  const std::optional<Moment>& moment = {}, double radius = halfCircumference) {
    return *mapFile({home, targets, radius, true, moment, nullptr});
}

void expectMap(const BatchResult& result, const std::string& map) {
    EXPECT_EQ(result.status, 0) << result.messages;
    EXPECT_EQ(result.messages, "");
    EXPECT_TRUE(result.output == map) << result.output.substr(0, 600);
}

TEST(BatchMap, IsTheMapOfAllTargets) {
    expectMap(runBatch("map --home jo20aw", "FN42AA\n# comment\nQF56od\n", "list"),
              mapOf(u"JO20AW", {u"FN42AA", u"QF56OD"}));
    expectMap(runBatch("map", "JO20 FN42AA\njo20ll QF56OD34", "list"),
              mapOf(u"JO20LL", {u"FN42AA", u"QF56OD"}));
    expectMap(runBatch("map --home JO20", "call,locator\nx,FN42AA\n", "a.csv"),
              mapOf(u"JO20LL", {u"FN42AA"}));
}

TEST(BatchMap, DrawsEachTargetOnce) {
    expectMap(runBatch("map --home JO20AW", "FN42AA\nfn42aa\nQF56\nFN42AA55\nqf56ll", "list"),
              mapOf(u"JO20AW", {u"FN42AA", u"QF56LL"}));
}

TEST(BatchMap, ShowsContactsByTheirPlaceToo) {
    expectMap(runBatch("map", "<MY_GRIDSQUARE:6>JO20AW<LAT:11>N042 01.250<LON:11>W071 57.500<EOR>",
                       "a.adi"),
              mapOf(u"JO20AW", {u"FN42AA"}));
}

TEST(BatchMap, ShowsContactsOnTheBordersOfTheWorld) {
    for (const char* place : {"<LAT:11>N010 00.000<LON:11>E180 00.000<EOR>",
                              "<LAT:11>N010 00.000<LON:11>W180 00.000<EOR>"})
        expectMap(runBatch("map --home JO20AW", place, "a.adi"), mapOf(u"JO20AW", {u"AK00AA"}));
    for (const char* place : {"<LAT:11>N090 00.000<LON:11>E004 00.000<EOR>",
                              "<LAT:11>S090 00.000<LON:11>E004 00.000<EOR>"})
        EXPECT_EQ(runBatch("map --home JO20AW", place, "a.adi").messages, "");
}

TEST(BatchMap, HasItsRadiusAndItsMoment) {
    expectMap(
        runBatch("map --home JO20AW --radius 2000 --at 2026-06-21T12:00:00Z", "JO30AA", "list"),
        mapOf(u"JO20AW", {u"JO30AA"}, parsedMoment("2026-06-21T12:00:00Z"), 2000));
    expectMap(runBatch("map --home JO20AW --radius 20003", "JO30AA", "list"),
              mapOf(u"JO20AW", {u"JO30AA"}));
}

TEST(BatchMap, OfNothingIsHomeAlone) {
    expectMap(runBatch("map --home JO20AW", "", "list"), mapOf(u"JO20AW", {}));
}

TEST(BatchMap, WithoutAnyHomeThereIsNone) {
    const BatchResult result = runBatch("map", "", "list");
    EXPECT_EQ(result.messages, "orbisgrid-batch: there is no Home to make it around\n");
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.status, 2);
}

TEST(BatchMap, LeavesOutWhatIsRefused) {
    const BatchResult result = runBatch(
        "map", "JO20AW FN4?\nJO2? FN42\nFN42\nJO20AW FN42AA\nJO20AA QF56\nJO20AW,\na b c\n",
        "list");
    EXPECT_EQ(result.messages, "list:1: Invalid locator! (FN4?)\n"
                               "list:2: Invalid locator! (JO2?)\n"
                               "list:3: No locator of Home!\n"
                               "list:5: Another Home than the map's! (JO20AA)\n"
                               "list:6: No locator!\n"
                               "list:7: More than two locators! (a b c)\n"
                               "7 lines, 6 refused\n");
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.output == mapOf(u"JO20AW", {u"FN42AA"}));
}

TEST(BatchMap, ABlankTargetIsNone) {
    EXPECT_EQ(runBatch("map --home JO20", "locator,b\n  ,x\n", "a.csv").messages,
              "a.csv:2: No locator!\n1 row, 1 refused\n");
}

TEST(BatchMap, IsNotMadeAfterAFailure) {
    EXPECT_EQ(runBatch("map --strict --home JO20", "FN42\nFN4?\n", "list").output, "");
    EXPECT_EQ(runBatch("map --home JO20", "call\nx\n", "a.csv").output, "");
}

} // namespace

} // namespace orbisgrid
