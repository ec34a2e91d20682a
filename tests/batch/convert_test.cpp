#include "aprs/uiview.h"
#include "batch/convert.h"
#include "core/conversion.h"
#include "core/number_text.h"
#include "panels/converter.h"
#include "tests/support/recorded_messages.h"
#include "tests/support/table.h"

#include <random>

namespace orbisgrid {

namespace {

using test::Row;

/// The results of one position; empty after a refusal.
Values converted(const std::string& text, ConvertOptions options = {}) {
    ConvertTask task(options);
    Values values(task.columns().size());
    return task.answer({{}, text, {}, false, {}}, values).refusal.empty() ? values : Values();
}

/// What the converter's other panels hold once a position is in its decimal boxes.
Values shownFor(const std::string& latitude, const std::string& longitude) {
    Converter panel;
    test::RecordedMessages messages;
    panel.txtDecLat.set(fromUtf8(latitude));
    panel.txtDecLong.set(fromUtf8(longitude));
    panel.cmdOKDecimal_Click(messages);
    const auto dms = [](const std::array<TextBox, 3>& boxes, TextView letter) {
        return toUtf8(boxes[0].text() + u"°" + boxes[1].text() + u"'" + boxes[2].text() + u"\"" +
                      Text(letter));
    };
    return {toUtf8(panel.txtLocator.text()),
            latitude,
            longitude,
            dms(panel.txtlatdms, panel.cmbDmsNS.text()),
            dms(panel.txtlondms, panel.cmbDmsWE.text()),
            toUtf8(panel.txtUIView.text()),
            toUtf8(panel.lblCompressed)};
}

TEST(ConvertTask, IsTheConvertersPanelsOfTheDecimalBoxes) {
    std::mt19937 random(20153);
    std::uniform_real_distribution<double> north(-90, 90), east(-180, 180);
    int wrong = 0;
    for (int i = 0; i < 20'000; ++i) {
        // As many digits as the boxes hold.
        const std::string latitude = toUtf8(plainTextOfSeven(north(random)));
        const std::string longitude = toUtf8(plainTextOfSeven(east(random)));
        if (latitude.size() > 10 || longitude.size() > 10)
            continue;
        if (converted(latitude + " " + longitude) != shownFor(latitude, longitude) && wrong++ == 0)
            ADD_FAILURE() << latitude << " " << longitude;
    }
    EXPECT_EQ(wrong, 0);
}

TEST(ConvertTask, GivesAPositionOfEachNotationBack) {
    std::mt19937 random(20154);
    std::uniform_real_distribution<double> north(-89.9, 89.9), east(-179.9, 179.9);
    for (int i = 0; i < 5'000; ++i) {
        const Values values = converted(toUtf8(plainTextOfSeven(north(random))) + " " +
                                        toUtf8(plainTextOfSeven(east(random))));
        ASSERT_EQ(values.size(), 7U);
        const Values decimal = converted(values[1] + "," + values[2]);
        const Values dms = converted(values[3] + " " + values[4]);
        const Values uiview = converted(values[5]);
        EXPECT_EQ(decimal, values);
        ASSERT_EQ(dms.size(), 7U) << values[3] << " " << values[4];
        ASSERT_EQ(uiview.size(), 7U) << values[5];
        for (const std::size_t column : {1U, 2U}) {
            const double degrees = leadingNumber(fromUtf8(values[column]));
            EXPECT_NEAR(leadingNumber(fromUtf8(dms[column])), degrees, 0.51 / 3600 + 0.0001);
            EXPECT_NEAR(leadingNumber(fromUtf8(uiview[column])), degrees, 0.51 / 3600 + 0.0001);
        }
        EXPECT_EQ(converted(values[0])[0], values[0]);
    }
}

TEST(ConvertTask, WritesALocatorAsItWasCompleted) {
    EXPECT_EQ(converted("JO20AA00AA", {Notation::automatic, 6})[0], "JO20AA")
        << "though its corner lies on a border";
    EXPECT_EQ(converted("jo20", {Notation::automatic, 8})[0], "JO20LL55");
    EXPECT_EQ(converted("JO20AW12", {Notation::automatic, 10})[0], "JO20AW12AA");
    EXPECT_EQ(converted("50 4")[0], "JO10XA") << "as World2Grid has it";
}

TEST(ConvertTask, KeepsTheDigitsThatWereTyped) {
    const Values values = converted("50.93751234567 -4.04166712345");
    EXPECT_EQ(values[1], "50.93751234567");
    EXPECT_EQ(values[2], "-4.04166712345");
    EXPECT_EQ(converted("50 56 15 4 2 30")[2], "4.041667");
}

class DecimalRowTest : public testing::TestWithParam<Row> {};

TEST_P(DecimalRowTest, LiesInTheSameLocator) {
    const Row& row = GetParam();
    const Values values = converted(row["latitude"] + "; " + row["longitude"]);
    const bool isNumbers = row["latitude"].find_first_of("0123456789") != std::string::npos;
    const bool isInTheWorld = row["locator"].starts_with("J") && row["locator"] != "JS05AA";
    ASSERT_EQ(!values.empty(), isNumbers && isInTheWorld);
    if (!values.empty()) {
        EXPECT_EQ(values[0], row["locator"]);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, DecimalRowTest,
                         testing::ValuesIn(test::readTable("conversion_decimal.tsv")),
                         test::testName);

class DmsRowTest : public testing::TestWithParam<Row> {};

TEST_P(DmsRowTest, HasTheSameDegreesMinutesAndSeconds) {
    const Row& row = GetParam();
    // The row is a box of one number; letters and commas in it are another test's.
    if (!strictNumber(row.text("text")) || row["degrees"] == "95")
        return;
    const Values values = converted(row["text"] + " 0");
    ASSERT_EQ(values.size(), 7U);
    EXPECT_EQ(values[3], row["degrees"] + "°" + row["minutes"] + "'" + row["seconds"] + "\"" +
                             (row.flag("negative") ? "S" : "N"));
}

INSTANTIATE_TEST_SUITE_P(Rows, DmsRowTest,
                         testing::ValuesIn(test::readTable("conversion_world_dms.tsv")),
                         test::testName);

class UIViewRowTest : public testing::TestWithParam<Row> {};

TEST_P(UIViewRowTest, ReadsTheSamePosition) {
    const Row& row = GetParam();
    const Values values = converted(row["text"], {Notation::uiview, 6});
    if (values.empty()) {
        // What the box reads as something else than it looks like is refused here.
        EXPECT_TRUE(row["text"].size() < 18 || row["text"].starts_with("0") ||
                    row["text"].starts_with("a") || row["text"].ends_with("x") ||
                    row["text"].find_first_of("sw") != std::string::npos ||
                    row["text"].find("02367E") != std::string::npos ||
                    row["latitude"] == "90.93806")
            << row["text"];
        return;
    }
    EXPECT_EQ(values[1], row["latitude"]);
    EXPECT_EQ(values[2], row["longitude"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, UIViewRowTest, testing::ValuesIn(test::readTable("uiview_read.tsv")),
                         test::testName);

class CompressedRowTest : public testing::TestWithParam<Row> {};

TEST_P(CompressedRowTest, HasTheSameCode) {
    const Row& row = GetParam();
    if (row.number("error") != 0 || std::abs(row.number("longitude")) > 180)
        return;
    const Values values = converted(row["latitude"] + " " + row["longitude"]);
    ASSERT_EQ(values.size(), 7U);
    EXPECT_EQ(values[6], row["text"]);
}

INSTANTIATE_TEST_SUITE_P(Rows, CompressedRowTest,
                         testing::ValuesIn(test::readTable("compressed.tsv")), test::testName);

} // namespace

} // namespace orbisgrid
