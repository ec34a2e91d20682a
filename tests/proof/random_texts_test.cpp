#include "panels/locator_converter_form.h"
#include "tests/proof/random_numbers.h"
#include "tests/support/panel_invariants.h"
#include "tests/support/recorded_messages.h"

#include <gtest/gtest.h>

#include <functional>

namespace orbisgrid {

namespace {

using test::RandomNumbers;

/// Texts as people and programs may leave them in a box: mostly of the characters that mean
/// something there, some of any.
Text randomText(RandomNumbers& random, int longest) {
    static constexpr TextView meaning = u"0123456789.,-+ ABCDEFGHIJKLRSXYZabrsxz=/NSEWnsew°'\"";
    Text text;
    const int length = random.below(longest + 1);
    for (int i = 0; i < length; ++i) {
        const bool isAny = random.below(40) == 0;
        const auto index = static_cast<std::size_t>(random.below(static_cast<int>(meaning.size())));
        text += isAny ? static_cast<char16_t>(random.below(0x10000)) : meaning[index];
    }
    return text;
}

Text randomDigits(RandomNumbers& random, int count) {
    Text text;
    for (int i = 0; i < count; ++i)
        text += static_cast<char16_t>(u'0' + random.below(10));
    return text;
}

/// A text that its panel was made for, or any.
Text randomLocator(RandomNumbers& random) {
    if (random.below(2) == 0)
        return randomText(random, 14);
    Text text;
    for (const int count : {18, 18, 10, 10, 24, 24, 10, 10, 24, 24})
        text += static_cast<char16_t>((count == 10 ? u'0' : u'A') + random.below(count));
    return text.substr(0, static_cast<std::size_t>(4 + random.below(7)));
}

Text randomDecimal(RandomNumbers& random) {
    if (random.below(2) == 0)
        return randomText(random, 14);
    Text text = random.below(2) == 0 ? u"-" : u"";
    text += randomDigits(random, random.below(4));
    text += random.below(4) == 0 ? u',' : u'.';
    return text += randomDigits(random, random.below(7));
}

Text randomUIView(RandomNumbers& random) {
    if (random.below(2) == 0)
        return randomText(random, 25);
    Text text = u"=" + randomDigits(random, 4) + u"." + randomDigits(random, 2);
    text += random.below(2) == 0 ? u"N/" : u"S/";
    text += randomDigits(random, 5) + u"." + randomDigits(random, 2);
    return text += random.below(2) == 0 ? u'E' : u'W';
}

void typeDms(RandomNumbers& random, std::array<TextBox, 3>& boxes) {
    for (TextBox& box : boxes)
        box.set(random.below(2) == 0 ? randomText(random, 6) : randomDigits(random, 2));
}

/// One panel's OK with a random text. Result: whether its chain ran to the end, so that letters and
/// signs must agree.
using Press = std::function<bool(LocatorConverterForm&, RandomNumbers&, test::RecordedMessages&)>;

bool pressLocator(LocatorConverterForm& form, RandomNumbers& random,
                  test::RecordedMessages& messages) {
    form.converter.txtLocator.set(randomLocator(random));
    return form.convertLocator(messages);
}

bool pressDecimal(LocatorConverterForm& form, RandomNumbers& random,
                  test::RecordedMessages& messages) {
    form.converter.txtDecLat.set(randomDecimal(random));
    form.converter.txtDecLong.set(randomDecimal(random));
    form.converter.cmdOKDecimal_Click(messages);
    return messages.shown.empty();
}

bool pressDms(LocatorConverterForm& form, RandomNumbers& random, test::RecordedMessages& messages) {
    typeDms(random, form.converter.txtlatdms);
    typeDms(random, form.converter.txtlondms);
    form.converter.cmbDmsNS.ListIndex = random.below(2);
    form.converter.cmbDmsWE.ListIndex = random.below(2);
    form.converter.cmdOkDMS_Click(messages);
    return messages.shown.empty();
}

bool pressUIView(LocatorConverterForm& form, RandomNumbers& random,
                 test::RecordedMessages& messages) {
    form.converter.txtUIView.set(randomUIView(random));
    const bool isRead = form.converter.txtUIView.text().size() >= 10;
    form.converter.cmdOkUIView_Click(messages);
    return isRead;
}

bool pressCalculate(LocatorConverterForm& form, RandomNumbers& random,
                    test::RecordedMessages& messages) {
    form.homeTarget.txtHome.set(randomLocator(random));
    form.homeTarget.txtTarget.set(randomLocator(random));
    return form.calculate(messages) == CalculateEnd::calculated;
}

struct Counts {
    int finished = 0;
    int refused = 0;
};

Counts pressOften(const Press& press, std::uint64_t seed, int times) {
    RandomNumbers random(seed);
    Counts counts;
    LocatorConverterForm form;
    for (int i = 0; i < times; ++i) {
        if (i % 1000 == 0)
            form = {};
        test::RecordedMessages messages;
        const bool isFinished = press(form, random, messages);
        (isFinished ? counts.finished : counts.refused) += 1;
        EXPECT_LE(messages.shown.size(), 1U) << "press " << i;
        EXPECT_TRUE(test::boxesAreCut(form.converter)) << "press " << i;
        EXPECT_TRUE(test::compressedStands(form.converter)) << "press " << i;
        EXPECT_TRUE(test::unitWordsStand(form.homeTarget)) << "press " << i;
        if (isFinished) {
            EXPECT_TRUE(test::lettersAgree(form.converter)) << "press " << i;
            EXPECT_TRUE(test::hasNoComma(form.converter)) << "press " << i;
        }
        if (testing::Test::HasFailure())
            break;
    }
    return counts;
}

void expectBothEnds(const Counts& counts, int times) {
    EXPECT_EQ(counts.finished + counts.refused, times);
    EXPECT_GT(counts.finished, times / 10);
    EXPECT_GT(counts.refused, times / 100);
}

constexpr int times = 1'000'000;

TEST(RandomTexts, ThroughTheLocatorPanel) {
    expectBothEnds(pressOften(pressLocator, 1, times), times);
}

TEST(RandomTexts, ThroughTheDecimalPanel) {
    expectBothEnds(pressOften(pressDecimal, 2, times), times);
}

TEST(RandomTexts, ThroughTheDegreesPanel) {
    expectBothEnds(pressOften(pressDms, 3, times), times);
}

TEST(RandomTexts, ThroughTheUIViewPanel) {
    expectBothEnds(pressOften(pressUIView, 4, times), times);
}

TEST(RandomTexts, ThroughCalculate) {
    expectBothEnds(pressOften(pressCalculate, 5, times), times);
}

} // namespace

} // namespace orbisgrid
