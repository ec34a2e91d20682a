#pragma once

#include "core/text.h"

#include <vector>

namespace orbisgrid {

/// A drop-down list of locators (`cmbHome`, `cmbTarget`): items in the order they came in and the
/// one that is selected. It never sorts, merges or completes by itself.
struct LocatorList {
    static constexpr int nothingSelected = -1;

    std::vector<Text> items;
    int ListIndex = nothingSelected;

    /// The selected item; empty when none is.
    Text text() const;

    /// Whether an item equals `locator`, letter case included.
    bool holds(TextView locator) const;

    /// Appends the upper-case form of `locator` unless an item equals `locator` as it stands. A
    /// lower-case locator whose upper-case form is listed is therefore listed twice: the search is
    /// case-sensitive.
    void remember(TextView locator);

    /// Selects an item; false if there is none at that index.
    bool select(int index);

    /// Removes the selected item; false if none is selected.
    bool removeSelected();

    void clear();
};

} // namespace orbisgrid
