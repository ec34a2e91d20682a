#include "aprs/uiview.h"

#include "core/angles.h"
#include "core/number_text.h"

#include <cmath>

namespace orbisgrid {

namespace {

void appendFields(Text& text, const WholeDms& dms, std::size_t degreeDigits) {
    text += wholeMask(std::fabs(dms.Deg), degreeDigits);
    text += wholeMask(dms.Min, 2);
    text += u'.';
    text += wholeMask(dms.Sec, 2);
}

/// One coordinate's three fields. The seconds field takes the hemisphere letter with it.
struct Fields {
    TextView degrees, minutes, seconds;

    bool endWith(TextView letter) const { return lastCharacter(seconds) == letter; }

    float value(bool isNegative) const {
        const double sum = Dms2Decimal(degrees, minutes, seconds);
        return static_cast<float>(isNegative ? -sum : sum);
    }
};

} // namespace

Text uiViewText(const WholeDms& latitude, TextView northSouth, const WholeDms& longitude,
                TextView eastWest) {
    Text text;
    text.reserve(21); // an extra digit in each of two fields
    text += u'=';
    appendFields(text, latitude, 2);
    text += northSouth;
    text += u'/';
    appendFields(text, longitude, 3);
    text += eastWest;
    return text;
}

std::optional<UIViewPosition> readUIViewText(TextView text) {
    constexpr std::size_t shortest = 10;
    if (text.size() < shortest)
        return std::nullopt;
    // "0" is left out on purpose: it counts as a prefix.
    const bool hasNoPrefix = text.front() > u'0' && text.front() <= u'9';
    const std::size_t k = hasNoPrefix ? 1 : 0;
    const std::size_t p = 10 - k;
    const Fields lat{middle(text, 2 - k, 2), middle(text, 4 - k, 2), middle(text, 7 - k, 3)};
    const Fields lon{middle(text, p + 1, 3), middle(text, p + 4, 2), middle(text, p + 7, 3)};

    const bool isSouth = lat.endWith(u"S");
    const bool isWest = lon.endWith(u"W");
    return UIViewPosition{{lat.value(isSouth), lon.value(isWest)}, isSouth, isWest};
}

} // namespace orbisgrid
