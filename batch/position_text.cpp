#include "batch/position_text.h"

#include "aprs/uiview.h"
#include "batch/angle_pair.h"
#include "core/long_maidenhead.h"

#include <array>
#include <cmath>
#include <utility>

namespace orbisgrid {

namespace {

constexpr std::string_view noPosition = "No position!";
constexpr std::string_view outside = "Outside the world!";
constexpr std::string_view ambiguous = "Decimal degrees, or degrees and minutes?";

constexpr std::array<std::pair<std::string_view, Notation>, 5> names{
    {{"auto", Notation::automatic},
     {"locator", Notation::locator},
     {"decimal", Notation::decimal},
     {"dms", Notation::dms},
     {"uiview", Notation::uiview}}};

/// Whether each character of `text` is of the kind that stands at its place in `shape`: "9" a
/// digit, "R" a letter up to R, "X" one up to X, everything else itself.
bool hasShape(TextView text, TextView shape) {
    if (text.size() > shape.size())
        return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isLetter = shape[i] == u'R' || shape[i] == u'X';
        const char16_t first = shape[i] == u'9' ? u'0' : isLetter ? u'A' : shape[i];
        if (text[i] < first || text[i] > shape[i])
            return false;
    }
    return true;
}

PositionReading within(ReadPosition read) {
    const Position& position = read.position;
    if (!(std::fabs(position.latitude) <= 90 && std::fabs(position.longitude) <= 180))
        return {std::nullopt, outside};
    return {std::move(read), {}};
}

PositionReading readLocator(TextView text) {
    constexpr std::size_t shortest = 4;
    const Text locator = upperCase(text);
    if (locator.size() < shortest || !hasShape(locator, u"RR99XX99XX"))
        return {std::nullopt, noPosition};
    Text completed = locator;
    (void)LongMaiden2Coordinates(completed);
    return within({*cornerOfTen(completed), true, completed});
}

/// A text with a sign in front; the reader takes one that begins with 1 to 9 without.
bool isUIView(TextView text) {
    constexpr TextView shape = u"9999.99N/99999.99E";
    if (text.size() == shape.size() + 1 && text.find_first_of(u"0123456789") != 0)
        text.remove_prefix(1);
    else if (text.starts_with(u'0'))
        return false;
    if (text.size() != shape.size())
        return false;
    Text northEast(text);
    if (northEast[7] == u'S')
        northEast[7] = u'N';
    if (northEast[17] == u'W')
        northEast[17] = u'E';
    return hasShape(northEast, shape);
}

PositionReading readUIView(TextView text) {
    if (!isUIView(text))
        return {std::nullopt, noPosition};
    return within({readUIViewText(text)->position, true, {}});
}

/// What a pair of angles is worth as `notation`; none where it is in the other one.
PositionReading readAngles(const std::optional<AnglePair>& pair, Notation notation) {
    if (!pair || pair->isDecimal != (notation == Notation::decimal))
        return {std::nullopt, noPosition};
    return within({pair->position, !pair->isDecimal, {}});
}

/// The better of two: a position, then the one that says more.
PositionReading& better(PositionReading& one, PositionReading& other) {
    const bool isOther = !one.position && (other.position || other.refusal == outside);
    return isOther ? other : one;
}

PositionReading readAs(TextView text, Notation notation) {
    PositionReading byPoint = readAngles(readAnglePair(text, Comma::point), notation);
    PositionReading bySeparator = readAngles(readAnglePair(text, Comma::separator), notation);
    return better(byPoint, bySeparator);
}

PositionReading readAny(TextView text) {
    PositionReading decimal = readAs(text, Notation::decimal);
    PositionReading dms = readAs(text, Notation::dms);
    if (decimal.position && dms.position)
        return {std::nullopt, ambiguous};
    PositionReading locator = readLocator(text);
    PositionReading uiview = readUIView(text);
    return better(better(decimal, dms), better(locator, uiview));
}

} // namespace

std::optional<Notation> notationNamed(std::string_view name) {
    for (const auto& [itsName, notation] : names) {
        if (name == itsName)
            return notation;
    }
    return std::nullopt;
}

PositionReading readPosition(std::string_view text, Notation notation) {
    const Text decoded = fromFileBytes(text);
    const TextView position = trimmed(decoded);
    switch (notation) {
    case Notation::locator:
        return readLocator(position);
    case Notation::uiview:
        return readUIView(position);
    case Notation::decimal:
    case Notation::dms:
        return readAs(position, notation);
    case Notation::automatic:
        break;
    }
    return readAny(position);
}

} // namespace orbisgrid
