#pragma once

#include "core/number_text.h"
#include "panels/converter.h"
#include "panels/home_target.h"

namespace orbisgrid::test {

// What holds of the panels whatever was typed.
// -----------------------------------------------------

/// No box holds more than it takes.
inline bool isWithin(const TextBox& box) {
    return box.text().size() <= box.maximumLength();
}

inline bool boxesAreCut(const Converter& converter) {
    bool isCut = isWithin(converter.txtLocator) && isWithin(converter.txtDecLat) &&
                 isWithin(converter.txtDecLong) && isWithin(converter.txtUIView);
    for (std::size_t i = 0; i < 3; ++i)
        isCut = isCut && isWithin(converter.txtlatdms[i]) && isWithin(converter.txtlondms[i]);
    return isCut;
}

/// After a chain that ran to its end the letters say what the signs of the decimal boxes say.
inline bool lettersAgree(const Converter& converter) {
    const double lat = leadingNumber(converter.txtDecLat.text());
    const double lon = leadingNumber(converter.txtDecLong.text());
    return converter.cmbDmsNS.text() == (lat < 0 ? u"S" : u"N") &&
           converter.cmbDmsWE.text() == (lon < 0 ? u"W" : u"E") &&
           converter.lblDecNS() == converter.cmbDmsNS.text() &&
           converter.lblDecEW() == converter.cmbDmsWE.text();
}

inline bool hasNoComma(const Converter& converter) {
    return converter.txtDecLat.text().find(u',') == Text::npos &&
           converter.txtDecLong.text().find(u',') == Text::npos;
}

inline bool unitWordsStand(const HomeTarget& panel) {
    return panel.lblDistKm.ends_with(u" Km") && panel.lblDistMile.ends_with(u" Miles") &&
           (panel.lblAzimuth.ends_with(u" degrees") || panel.lblAzimuth == u"0 Degrees");
}

inline bool compressedStands(const Converter& converter) {
    const Text& text = converter.lblCompressed;
    return text.empty() ||
           (text.size() == 14 && text.starts_with(u"=/") && text.ends_with(u"-  B"));
}

} // namespace orbisgrid::test
