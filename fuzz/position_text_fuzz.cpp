#include "batch/convert.h"
#include "core/number_text.h"
#include "fuzz/oracle.h"

#include <cmath>

namespace orbisgrid::fuzz {

namespace {

/// The results of a position; empty after a refusal.
Values converted(std::string_view text, Notation notation) {
    ConvertTask task({notation, 10});
    Values values(task.columns().size());
    return task.answer({{}, text, {}, false, {}}, values).refusal.empty() ? values : Values();
}

double degreesIn(const std::string& text) {
    return leadingNumber(fromUtf8(text));
}

void isNear(const Values& other, const Values& values, double degrees, const char* what) {
    require(!other.empty(), what);
    for (const std::size_t column : {1U, 2U})
        require(std::fabs(degreesIn(other[column]) - degreesIn(values[column])) <= degrees, what);
}

} // namespace

} // namespace orbisgrid::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orbisgrid;
    const std::string_view text = fuzz::bytesOf(data, size);
    const Values values = fuzz::converted(text, Notation::automatic);
    int readings = 0;
    for (const Notation notation :
         {Notation::locator, Notation::decimal, Notation::dms, Notation::uiview})
        readings += fuzz::converted(text, notation).empty() ? 0 : 1;
    fuzz::require(values.empty() ? readings != 1 : readings == 1, "one notation, or none of two");
    if (values.empty())
        return 0;
    // Each text that is written is read again as the same place.
    constexpr double halfSecond = 0.51 / 3600 + 0.0001; // and what seven digits cost
    fuzz::isNear(fuzz::converted(values[1] + "; " + values[2], Notation::automatic), values, 0,
                 "decimal");
    fuzz::isNear(fuzz::converted(values[3] + " " + values[4], Notation::automatic), values,
                 halfSecond, "dms");
    fuzz::isNear(fuzz::converted(values[5], Notation::automatic), values, halfSecond, "uiview");
    return 0;
}
