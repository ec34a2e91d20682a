#include "panels/home_target.h"

#include "core/maidenhead.h"
#include "core/number_text.h"
#include "geodesy/great_circle.h"
#include "geodesy/locator_check.h"

#include <string>

namespace orbisgrid {

namespace {

constexpr char16_t degreeSign = u'°';

TextView nameOf(Side side) {
    return side == Side::Home ? u"Home" : u"Target";
}

Message lengthRefusal(Side side) {
    Text text = u"Invallid ";
    text += nameOf(side);
    text += u" Locator!";
    text += lineEnd;
    text += u"A locator must exist out of at least 4 characters and no more then six. Examples: "
            u"JO20, JO20AW";
    Text title = u"Invalid ";
    title += nameOf(side);
    title += u" Locator";
    return {text, title, MessageIcon::exclamation};
}

Message formatRefusal() {
    return {u"Invalid locator!", u"Invalid locator format", MessageIcon::exclamation};
}

CalculateEnd refusedAt(Side side) {
    return side == Side::Home ? CalculateEnd::refusedHome : CalculateEnd::refusedTarget;
}

Text labelOfTargetLongitude(TextView westPositive) {
    const double value = -leadingNumber(westPositive);
    Text label = plainText(value);
    label += value > 0 ? u'E' : u'W';
    return label += degreeSign;
}

Text labelOfTargetLatitude(TextView latitude) {
    const double value = leadingNumber(latitude);
    Text label = plainText(value);
    label += value < 0 ? u'S' : u'N';
    return label += degreeSign;
}

void showResults(HomeTarget& panel, FormTexts& texts) {
    panel.lblTargetLong = labelOfTargetLongitude(texts.LonText);
    panel.lblTargetLat = labelOfTargetLatitude(texts.LatText);
    panel.lblDistKm = Text(trimmed(texts.DistText)) + u" Km";
    panel.lblDistMile = plainText(shownMiles(leadingNumber(texts.DistText))) + u" Miles";
    if (panel.txtHome.text() == panel.txtTarget.text())
        texts.AzimuthText = u"none";
    panel.lblAzimuth = Text(trimmed(texts.AzimuthText)) + u" degrees";
}

void showHomePosition(HomeTarget& panel, FormTexts& texts) {
    Text home = panel.txtHome.text();
    const LocatorPosition position = Maiden2World(home);
    texts.LonText = position.LonText;
    texts.LatText = position.LatText;
    panel.lblHomeLong = texts.LonText + degreeSign;
    panel.lblHomeLat = texts.LatText + degreeSign;
}

} // namespace

CalculateEnd HomeTarget::calculate(FormTexts& texts, Messages& messages) {
    txtHome.set(Text(trimmed(txtHome.text())));
    txtTarget.set(Text(trimmed(txtTarget.text())));
    for (const Side side : bothSides) {
        if (!hasAcceptedLength(box(side).text())) {
            messages.show(lengthRefusal(side));
            return refusedAt(side);
        }
    }
    txtTarget.set(completedLocator(txtTarget.text()));
    txtHome.set(completedLocator(txtHome.text()));

    CalcDistAzimuth(txtHome.text(), txtTarget.text(), texts);
    if (texts.DistText == u"-1") {
        messages.show(formatRefusal());
        return CalculateEnd::refused;
    }
    // No "Please enter a home locator!" here: the length check has let none pass that is too short.
    cmbHome.remember(txtHome.text());
    cmbTarget.remember(txtTarget.text());
    showResults(*this, texts);
    showHomePosition(*this, texts);
    return CalculateEnd::calculated;
}

void HomeTarget::choose(Side side, int index) {
    if (list(side).select(index))
        box(side).set(list(side).text());
}

void HomeTarget::clear(Side side) {
    list(side).clear();
    box(side).set({});
}

void HomeTarget::removeSelected(Side side) {
    if (list(side).removeSelected())
        box(side).set({});
}

void HomeTarget::makeDefault(Side side) {
    constexpr std::size_t shortest = 4;
    const Text chosen = list(side).text();
    TextView locator = trimmed(chosen);
    if (locator.size() < shortest)
        locator = trimmed(box(side).text());
    defaultLocator(side) = upperCase(locator);
}

void HomeTarget::refresh() {
    txtHome.set({});
    txtTarget.set({});
    lblDistKm = u"0 Km";
    lblDistMile = u"0 Miles";
    lblAzimuth = u"0 Degrees";
    lblTargetLat = u"0°";
    lblTargetLong = u"0°";
}

Text HomeTarget::report() const {
    Text text = u"Home locator  :" + upperCase(txtHome.text());
    const auto addLine = [&](TextView label, TextView value) {
        text += lineEnd;
        text += label;
        text += value;
    };
    addLine(u"Target Locator:", upperCase(txtTarget.text()));
    addLine(u"Distance:", lblDistKm);
    addLine(u"        :", lblDistMile);
    addLine(u"Azimuth :", lblAzimuth);
    addLine(u"Home>   Latitude :", lblHomeLat);
    addLine(u"Home>   Longitude:", lblHomeLong);
    addLine(u"Target> Latitude :", lblTargetLat);
    addLine(u"Target> Longitude:", lblTargetLong);
    return text;
}

Message clearQuestion(Side side) {
    Text text = u"Do you want to clear the contents of the ";
    text += nameOf(side);
    text += u" list?";
    Text title = u"Clear ";
    title += nameOf(side);
    return {text, title, MessageIcon::question};
}

} // namespace orbisgrid
