#pragma once

#include "panels/converter.h"
#include "panels/home_target.h"

namespace orbisgrid {

/// The main window as a value: both panels and the texts that they share.
struct LocatorConverterForm {
    HomeTarget homeTarget;
    Converter converter;

    /// What the last distance or decode left. Both panels write and read these.
    FormTexts texts;

    /// Calculate, whole: the upper panel, then the Target into the converter's locator box and its
    /// OK.
    CalculateEnd calculate(Messages& messages);

    /// OK of the locator panel; see Converter.
    bool convertLocator(Messages& messages);

    /// The clear-all button.
    void refresh();
};

} // namespace orbisgrid
