#include "panels/locator_converter_form.h"

namespace orbisgrid {

CalculateEnd LocatorConverterForm::calculate(Messages& messages) {
    const CalculateEnd end = homeTarget.calculate(texts, messages);
    if (end == CalculateEnd::calculated) {
        converter.txtLocator.set(homeTarget.txtTarget.text());
        convertLocator(messages);
    }
    return end;
}

bool LocatorConverterForm::convertLocator(Messages& messages) {
    return converter.cmdOKLocator_Click(texts, messages);
}

void LocatorConverterForm::refresh() {
    homeTarget.refresh();
    converter.refresh();
}

} // namespace orbisgrid
