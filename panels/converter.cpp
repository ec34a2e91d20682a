#include "panels/converter.h"

#include "aprs/compressed.h"
#include "aprs/uiview.h"
#include "core/long_maidenhead.h"
#include "core/maidenhead.h"
#include "core/number_text.h"
#include "geodesy/vincenty.h"
#include "panels/skip_on_error.h"

#include <cmath>
#include <utility>

namespace orbisgrid {

namespace {

/// A decimal box takes a decoded text without its last character, which was meant to be a
/// hemisphere letter. There is none to cut from an empty text: the box is left alone then.
void takeWithoutLastCharacter(TextBox& box, TextView decoded) {
    if (!decoded.empty())
        box.set(decoded.substr(0, decoded.size() - 1));
}

/// One coordinate of WorldDMS: from its decimal box to its three boxes and its hemisphere.
void spreadDms(TextBox& decimal, WholeDms& values, HemisphereList& hemisphere,
               std::array<TextBox, 3>& boxes) {
    if (decimal.text().find(u',') != Text::npos)
        decimal.set(withDecimalPoint(decimal.text()));
    const auto dms = WorldDMS(decimal.text());
    if (!dms)
        return;
    values = *dms;
    hemisphere.ListIndex = dms->isNegative ? 1 : 0;
    boxes[0].set(plainText(dms->Deg));
    boxes[1].set(plainText(dms->Min));
    boxes[2].set(plainText(dms->Sec));
}

/// One coordinate of the degrees/minutes/seconds panel into its decimal box. Result: false where
/// the degrees are no number. The sign typed there is dropped; the hemisphere list decides.
bool joinDms(const std::array<TextBox, 3>& boxes, const HemisphereList& hemisphere,
             TextBox& decimal) {
    const auto degrees = strictNumber(boxes[0].text());
    if (!degrees)
        return false;
    const double sum = std::fabs(*degrees) + leadingNumber(boxes[1].text()) / 60 +
                       leadingNumber(boxes[2].text()) / 3600;
    if (sum == 0) {
        decimal.set(u"0");
        return true;
    }
    Text text = hemisphere.ListIndex == 1 ? u"-" : u"";
    text += fiveDecimalMask(sum);
    decimal.set(withDecimalPoint(text));
    return true;
}

/// "50°56'17" behind a label; what stands between the seconds and the letter differs by button.
Text dmsLine(TextView label, const std::array<TextBox, 3>& boxes, TextView gap, TextView letter) {
    Text line(label);
    line += boxes[0].text();
    line += u'°';
    line += boxes[1].text();
    line += u'\'';
    line += boxes[2].text();
    line += gap;
    line += letter;
    return line;
}

Text writtenOut(const Text& decimal) {
    const double value = leadingNumber(decimal);
    const bool isFraction = value != 0 && std::fabs(value) < 1;
    return isFraction ? withDecimalPoint(plainText(value)) : decimal;
}

} // namespace

TextView Converter::lblDecNS() const {
    return leadingNumber(txtDecLat.text()) >= 0 ? u"N" : u"S";
}

TextView Converter::lblDecEW() const {
    return leadingNumber(txtDecLong.text()) >= 0 ? u"E" : u"W";
}

Position Converter::decimalPosition() const {
    return {leadingNumber(txtDecLat.text()), leadingNumber(txtDecLong.text())};
}

// OK buttons ------------------------------------------------------------------------------------

bool Converter::cmdOKLocator_Click(FormTexts& texts, Messages& messages) {
    constexpr std::size_t shortest = 4;
    if (trimmed(txtLocator.text()).size() < shortest) {
        messages.show({u"A Maidenhead locator needs at least 4 characters. Examples: JO20, FN10, "
                       u"JO20AW...",
                       u"Input error", MessageIcon::exclamation});
        return false;
    }
    MaidenConvert(texts, messages);
    WorldDMS();
    UIView(messages);
    return true;
}

void Converter::cmdOKDecimal_Click(Messages& messages) {
    if (txtDecLat.text().empty() || txtDecLong.text().empty()) {
        messages.show({u"Invalid entry", {}, MessageIcon::none});
        return;
    }
    WorldDMS();
    UIView(messages);
    DecimalCoordinates(messages);
}

bool Converter::cmdOkDMS_Click(Messages& messages) {
    // Both texts are the program's own, and only the latitude's ends in a blank.
    if (!joinDms(txtlatdms, cmbDmsNS, txtDecLat)) {
        messages.show({u"Could not calculate/convert locator. Please check the input fields for "
                       u"correct values. ",
                       {},
                       MessageIcon::none});
        return false;
    }
    if (!joinDms(txtlondms, cmbDmsWE, txtDecLong)) {
        messages.show({u"Could not calculate/convert locator. Please check the input fields for "
                       u"correct values.",
                       {},
                       MessageIcon::none});
        return false;
    }
    DecimalCoordinates(messages);
    WorldDMS();
    UIView(messages);
    return true;
}

void Converter::cmdOkUIView_Click(Messages& messages) {
    const auto position = readUIViewText(txtUIView.text());
    if (!position)
        return;
    cmbDmsNS.ListIndex = position->isSouth ? 1 : 0;
    cmbDmsWE.ListIndex = position->isWest ? 1 : 0;
    txtDecLong.set(plainText(static_cast<float>(position->position.longitude)));
    txtDecLat.set(plainText(static_cast<float>(position->position.latitude)));
    DecimalCoordinates(messages);
    WorldDMS();
}

void Converter::Command2_Click(Messages& messages) {
    const VincentyDistance distance = distVincenty(50.937, 4.041, 50.979, 5.958);
    if (distance.iterationLimitReached)
        messages.show(
            {u"iteration limit has been reached, something didn't work.", {}, MessageIcon::none});
    Label1 = plainText(distance.metres / 1000);
}

// Procedures ------------------------------------------------------------------------------------

void Converter::MaidenConvert(FormTexts& texts, Messages& messages) {
    txtLocator.set(upperCase(trimmed(txtLocator.text())));
    Text padded = txtLocator.text(); // the padding does not reach the box
    if (auto position = LongMaiden2Coordinates(padded)) {
        texts.LonText = std::move(position->LonText);
        texts.LatText = std::move(position->LatText);
    } else {
        messages.show(
            {u"Locator has an invalid format.", u"Invalid Locator", MessageIcon::information});
    }
    // The texts end in a digit after a good decode, so the boxes lose one; after a bad one they may
    // still end in the letter that an earlier decode left. All other panels are computed from these
    // shortened figures, so the boxes show what was used.
    takeWithoutLastCharacter(txtDecLong, texts.LonText);
    cmbDmsWE.ListIndex = lastCharacter(texts.LonText) == u"E" ? 0 : 1;
    takeWithoutLastCharacter(txtDecLat, texts.LatText);
    cmbDmsNS.ListIndex = lastCharacter(texts.LatText) == u"S" ? 1 : 0;
    skipOnError([&] {
        Text locator = txtLocator.text();
        LocatorPosition centre = Maiden2World(locator);
        texts.LonText = std::move(centre.LonText);
        texts.LatText = std::move(centre.LatText);
    });
}

void Converter::DecimalCoordinates(Messages& messages) {
    const DecimalCoordinatesResult result =
        orbisgrid::DecimalCoordinates(txtDecLat.text(), txtDecLong.text());
    if (result.outcome == DecimalCoordinatesOutcome::unreadable) {
        messages.show({u"Could not calucate/convert locator. Please check the input fields for "
                       u"correct values.",
                       {},
                       MessageIcon::none});
    } else if (result.outcome == DecimalCoordinatesOutcome::converted) {
        txtLocator.set(result.locator);
    }
}

void Converter::WorldDMS() {
    spreadDms(txtDecLong, Lon, cmbDmsWE, txtlondms);
    spreadDms(txtDecLat, Lat, cmbDmsNS, txtlatdms);
}

void Converter::UIView(Messages& messages) {
    txtUIView.set(uiViewText(Lat, cmbDmsNS.text(), Lon, cmbDmsWE.text()));
    DoAPRSCompressed(messages);
}

void Converter::DoAPRSCompressed(Messages& messages) {
    constexpr std::size_t shortest = 6;
    if (txtUIView.text().size() < shortest)
        return;
    Position position = decimalPosition();
    if (position == Position{}) {
        cmdOkUIView_Click(messages);
        position = decimalPosition();
    }
    // A position too far outside the world has no code: the label keeps the last one.
    skipOnError([&] { lblCompressed = compressedText(position); });
}

// Menu and clear-all ----------------------------------------------------------------------------

void Converter::paste(TextView clipboardText) {
    txtLocator.set(upperCase(pastedLine(clipboardText)));
}

Text Converter::menuLocator() const {
    return upperCase(trimmed(txtLocator.text()));
}

void Converter::refresh() {
    txtLocator.set({});
    txtDecLong.set(u"0");
    txtDecLat.set(u"0");
    txtUIView.set({});
    for (TextBox& box : txtlatdms)
        box.set(u"00");
    for (TextBox& box : txtlondms)
        box.set(u"00");
    txtlondms[0].set(u"000");
    cmbDmsNS.ListIndex = 0;
    cmbDmsWE.ListIndex = 0;
}

// Copies ----------------------------------------------------------------------------------------

Text Converter::locatorCopy() const {
    Text text = u"Maidenhead Locator:";
    text += upperCase(txtLocator.text());
    return text += lineEnd;
}

Text Converter::decimalCopy() const {
    Text text = u"Latitude:" + txtDecLat.text();
    text += lineEnd;
    text += u"Longitude:" + txtDecLong.text();
    return text += lineEnd;
}

Text Converter::dmsCopy() const {
    Text text = dmsLine(u"World Latitude:", txtlatdms, u" ", cmbDmsNS.text());
    text += lineEnd;
    text += dmsLine(u"World Longitude:", txtlondms, u" ", cmbDmsWE.text());
    return text += lineEnd;
}

Text Converter::aprsCopy() const {
    Text text = u"UI-View string:" + txtUIView.text();
    text += lineEnd;
    return text += u"Compressed:" + lblCompressed;
}

Text Converter::everythingCopy() const {
    Text text = u"Maidenhead Locator:" + upperCase(txtLocator.text());
    const auto addLine = [&](const Text& line) {
        text += lineEnd;
        text += line;
    };
    addLine(u"Decimal Latitude:" + txtDecLat.text());
    addLine(u"Decimal Longitude:" + txtDecLong.text());
    // No blank before the letter here; the panel's own copy has one.
    addLine(dmsLine(u"World Latitude:", txtlatdms, {}, cmbDmsNS.text()));
    addLine(dmsLine(u"World Longitude:", txtlondms, {}, cmbDmsWE.text()));
    addLine(u"UI-View string:" + txtUIView.text());
    addLine(u"APRS Compressed:" + lblCompressed);
    return text;
}

TextView pastedLine(TextView clipboardText) {
    const std::size_t first = clipboardText.find_first_not_of(u" \r\n");
    if (first == TextView::npos)
        return {};
    const TextView text = clipboardText.substr(first);
    return trimmed(text.substr(0, text.find_first_of(u"\r\n")));
}

MapQuery mapQuery(const Converter& converter) {
    return {writtenOut(converter.txtDecLat.text()), writtenOut(converter.txtDecLong.text())};
}

} // namespace orbisgrid
