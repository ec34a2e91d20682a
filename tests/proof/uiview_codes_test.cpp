#include "aprs/uiview.h"
#include "core/number_text.h"
#include "panels/converter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iostream>

namespace orbisgrid {

namespace {

double secondsOf(const WholeDms& dms) {
    return dms.Deg * 3600 + dms.Min * 60 + dms.Sec;
}

bool isSame(const WholeDms& one, const WholeDms& other) {
    return one.Deg == other.Deg && one.Min == other.Min && one.Sec == other.Sec;
}

/// What one axis's texts come back as.
struct ReadBack {
    int texts = 0;
    int otherPosition = 0; ///< another number of seconds of arc: never
    int carried = 0;       ///< a written 60 comes back as the next minute
    int otherFields = 0;   ///< the same position in other fields without a written 60
    std::string first;

    void add(const WholeDms& written, const std::optional<WholeDms>& read, const Text& text) {
        ++texts;
        if (!read || secondsOf(written) != secondsOf(*read)) {
            if (otherPosition++ == 0)
                first = toUtf8(text);
        } else if (!isSame(written, *read)) {
            ++(written.Sec == 60 ? carried : otherFields);
        }
    }
};

/// The number goes the way that the panel sends it: seven digits, cut by the decimal box.
std::optional<WholeDms> throughBox(TextBox box, double value) {
    box.set(plainText(static_cast<float>(value)));
    return WorldDMS(box.text());
}

template <typename Visit>
void everyDms(int mostDegrees, Visit visit) {
    for (int degrees = 0; degrees <= mostDegrees; ++degrees) {
        for (int minutes = 0; minutes < 60; ++minutes) {
            for (int seconds = 0; seconds <= 60; ++seconds)
                visit(WholeDms{static_cast<double>(degrees), static_cast<double>(minutes),
                               static_cast<double>(seconds), false});
        }
    }
}

// Degrees, minutes and seconds come back as they were written, with one exception: between a whole
// minute and 60 seconds of the one before it the seventh digit of the decimal box decides (8
// minutes are 0.1333333, which is 7 minutes and 60 seconds: 60 is never carried).

TEST(UIViewCodes, EveryLatitudeReadsBack) {
    ReadBack result;
    everyDms(90, [&](const WholeDms& written) {
        for (const TextView letter : {u"N", u"S"}) {
            const Text text = uiViewText(written, letter, {4, 2, 7, false}, u"E");
            const auto position = readUIViewText(text);
            ASSERT_TRUE(position);
            ASSERT_EQ(position->isSouth, letter == u"S") << toUtf8(text);
            ASSERT_EQ(position->position.longitude, 4.0352778F) << toUtf8(text);
            result.add(written, throughBox(Converter{}.txtDecLat, position->position.latitude),
                       text);
        }
    });
    EXPECT_EQ(result.texts, 91 * 60 * 61 * 2);
    EXPECT_EQ(result.otherPosition, 0) << "first: " << result.first;
    EXPECT_EQ(result.carried, 5848);
    EXPECT_EQ(result.otherFields, 5072);
}

TEST(UIViewCodes, EveryLongitudeReadsBack) {
    ReadBack result;
    everyDms(180, [&](const WholeDms& written) {
        for (const TextView letter : {u"E", u"W"}) {
            const Text text = uiViewText({50, 56, 17, false}, u"N", written, letter);
            const auto position = readUIViewText(text);
            ASSERT_TRUE(position);
            ASSERT_EQ(position->isWest, letter == u"W") << toUtf8(text);
            ASSERT_EQ(position->position.latitude, 50.938057F) << toUtf8(text);
            result.add(written, throughBox(Converter{}.txtDecLong, position->position.longitude),
                       text);
        }
    });
    EXPECT_EQ(result.texts, 181 * 60 * 61 * 2);
    EXPECT_EQ(result.otherPosition, 0) << "first: " << result.first;
    EXPECT_EQ(result.carried, 11604);
    EXPECT_EQ(result.otherFields, 10116);
}

} // namespace

} // namespace orbisgrid
