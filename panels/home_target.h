#pragma once

#include "geodesy/calc_dist_azimuth.h"
#include "panels/locator_list.h"
#include "panels/message.h"
#include "panels/text_box.h"

#include <array>
#include <cstddef>

namespace orbisgrid {

/// Home and Target: the index of the paired controls (cmdClear_0 is Home's, cmdClear_1 Target's).
enum class Side : std::size_t { Home = 0, Target = 1 };

inline constexpr std::array<Side, 2> bothSides{Side::Home, Side::Target};

/// How Calculate ended, and with it where the focus belongs.
enum class CalculateEnd {
    calculated,
    refusedHome,   ///< focus to the Home list
    refusedTarget, ///< focus to the Target list
    refused        ///< focus stays
};

/// The upper panel as a value: two locators, their lists and defaults, and the result labels.
///
/// `FormTexts` are handed in where they are needed: they belong to the form, and the converter
/// reads what this panel left there.
struct HomeTarget {
    static constexpr std::size_t locatorLength = 6;

    TextBox txtHome{locatorLength};
    TextBox txtTarget{locatorLength};
    LocatorList cmbHome;
    LocatorList cmbTarget;
    Text DefaultHome;
    Text DefaultTarget;
    Text lblDistKm = u"0 Km";
    Text lblDistMile = u"0 Miles";
    Text lblAzimuth = u"0 Degrees";
    Text lblHomeLat, lblHomeLong, lblTargetLat, lblTargetLong;

    TextBox& box(Side side) { return side == Side::Home ? txtHome : txtTarget; }

    LocatorList& list(Side side) { return side == Side::Home ? cmbHome : cmbTarget; }

    Text& defaultLocator(Side side) { return side == Side::Home ? DefaultHome : DefaultTarget; }

    /// Calculate, up to the converter: trims and completes both boxes, checks them, fills the
    /// labels and remembers both locators in their lists. A refusal shows its message and changes
    /// neither labels nor lists.
    CalculateEnd calculate(FormTexts& texts, Messages& messages);

    /// An item of a list was chosen: it goes into the box. Nothing happens for an index without an
    /// item.
    void choose(Side side, int index);

    /// Empties a list and its box.
    void clear(Side side);

    /// Removes the selected item and empties the box; nothing happens without a selection.
    void removeSelected(Side side);

    /// Makes the selected item the default at start-up or, if that has fewer than 4 characters,
    /// what stands in the box; upper-cased and trimmed, and not checked.
    void makeDefault(Side side);

    /// The result labels and both boxes as they are after the clear-all button. The Home position
    /// and the lists keep their contents.
    void refresh();

    /// The report of nine lines for the clipboard; CR LF between, none after the last.
    Text report() const;
};

/// The question before a list is emptied (Yes and No, Yes the default).
[[nodiscard]] Message clearQuestion(Side side);

} // namespace orbisgrid
