#pragma once

#include "core/conversion.h"
#include "core/position.h"
#include "geodesy/calc_dist_azimuth.h"
#include "panels/message.h"
#include "panels/text_box.h"

#include <array>

namespace orbisgrid {

/// A drop-down list of two hemisphere letters.
struct HemisphereList {
    std::array<TextView, 2> items;
    int ListIndex = 0; ///< 1 is south or west

    TextView text() const { return items.at(static_cast<std::size_t>(ListIndex)); }
};

/// The converter as a value: the boxes of five notations, and what their OK and copy buttons do.
///
/// Each OK procedure writes the boxes in its own fixed order, and later steps read back what a box
/// has cut. `texts` are the form's: after an invalid locator the boxes show those that an earlier
/// decode left there.
struct Converter {
    TextBox txtLocator{10};
    TextBox txtDecLat{11};
    TextBox txtDecLong{10};
    std::array<TextBox, 3> txtlatdms{TextBox(3), TextBox(2), TextBox(2)};
    std::array<TextBox, 3> txtlondms{TextBox(4), TextBox(2), TextBox(2)};
    HemisphereList cmbDmsNS{{u"N", u"S"}};
    HemisphereList cmbDmsWE{{u"E", u"W"}};
    TextBox txtUIView{21};
    Text lblCompressed;
    Text Label1 = u"Maidenhead:";

    /// The position in whole degrees, minutes and seconds that WorldDMS leaves and UIView reads.
    WholeDms Lat, Lon;

    /// "N" where the decimal latitude reads 0 or more, else "S"; "E" or "W" likewise.
    TextView lblDecNS() const;
    TextView lblDecEW() const;

    /// What the decimal boxes read.
    Position decimalPosition() const;

    /// OK of the locator panel. Result: false where fewer than 4 characters were refused and the
    /// focus belongs back into the box.
    bool cmdOKLocator_Click(FormTexts& texts, Messages& messages);

    /// OK of the decimal panel.
    void cmdOKDecimal_Click(Messages& messages);

    /// OK of the degrees/minutes/seconds panel. Result: false after a refusal, which leaves the
    /// focus where it is.
    bool cmdOkDMS_Click(Messages& messages);

    /// OK of the UI-View panel. The compressed code keeps what it showed.
    void cmdOkUIView_Click(Messages& messages);

    // The steps of the OK buttons, each from one panel to the next.

    /// Locator box to decimal boxes and hemisphere lists. `texts` gets the centre of the subsquare.
    /// The lists follow a letter at the end of the texts, which only an earlier decode leaves;
    /// without one they are north and west until WorldDMS sets them. Says where a locator is none.
    void MaidenConvert(FormTexts& texts, Messages& messages);

    /// Decimal boxes to locator box. It stays as it is where they cannot be read, which is said,
    /// and where the position is too far outside the world, which is not.
    void DecimalCoordinates(Messages& messages);

    /// Decimal boxes to degrees, minutes, seconds, hemisphere lists, `Lat` and `Lon`. A decimal
    /// comma in the boxes becomes a point.
    void WorldDMS();

    /// `Lat`, `Lon` and the hemisphere lists to the UI-View box, and on to the compressed code.
    void UIView(Messages& messages);

    /// The compressed code of the decimal boxes, once the UI-View box holds 6 characters. If both
    /// read 0 the UI-View text is read first, so that a position typed there alone is the one
    /// encoded.
    void DoAPRSCompressed(Messages& messages);

    /// The development test: the distance of two fixed points in km becomes the caption `Label1`.
    void Command2_Click(Messages& messages);

    /// Puts a pasted text into the locator box: its `pastedLine` in upper case.
    void paste(TextView clipboardText);

    /// The locator box upper-cased and trimmed, as the pop-up menu copies and moves it.
    Text menuLocator() const;

    /// The converter's boxes as they are after the clear-all button. The compressed code stays.
    void refresh();

    // What the copy buttons put on the clipboard (CR LF between lines).
    Text locatorCopy() const;    ///< Command10
    Text decimalCopy() const;    ///< Command11
    Text dmsCopy() const;        ///< Command13
    Text aprsCopy() const;       ///< Command15
    Text everythingCopy() const; ///< Command9
};

/// What a box of one line takes from a clipboard: the text without blanks (code 32) and line ends
/// around it, and of several lines the first.
[[nodiscard]] TextView pastedLine(TextView clipboardText);

/// Latitude and longitude as the web map is asked for them: the decimal boxes as they stand, but a
/// text whose magnitude lies between 0 and 1 is written out (".5" becomes "0.5").
struct MapQuery {
    Text latitude;
    Text longitude;
};

[[nodiscard]] MapQuery mapQuery(const Converter& converter);

} // namespace orbisgrid
