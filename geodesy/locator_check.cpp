#include "geodesy/locator_check.h"

#include <array>

namespace orbisgrid {

namespace {

constexpr std::size_t fullLength = 6;
constexpr char16_t caseDistance = u'a' - u'A';

struct Range {
    char16_t first, last;
};

constexpr std::array<Range, fullLength> accepted{
    {{u'A', u'R'}, {u'A', u'S'}, {u'0', u'9'}, {u'0', u'9'}, {u'a', u'x'}, {u'a', u'x'}}};

/// Folds case by code alone. Whatever else lies at or above "a" (below "Z") is shifted too: a digit
/// in the subsquare becomes a letter such as "U" and then fails the range check.
void foldCase(Text& locator) {
    for (const std::size_t i : {0U, 1U}) {
        if (locator[i] >= u'a')
            locator[i] = static_cast<char16_t>(locator[i] - caseDistance);
    }
    for (const std::size_t i : {4U, 5U}) {
        if (locator[i] <= u'Z')
            locator[i] = static_cast<char16_t>(locator[i] + caseDistance);
    }
}

std::optional<Text> checked(Text locator) {
    if (locator.size() < fullLength)
        return std::nullopt;
    locator.resize(fullLength);
    foldCase(locator);
    for (std::size_t i = 0; i < fullLength; ++i) {
        if (locator[i] < accepted.at(i).first || locator[i] > accepted.at(i).last)
            return std::nullopt;
    }
    return locator;
}

} // namespace

bool hasAcceptedLength(TextView locator) {
    return locator.size() >= 4 && locator.size() <= fullLength;
}

Text completedLocator(TextView locator) {
    if (locator.size() == 4)
        return upperCase(locator) + u"LL";
    if (locator.size() == 5)
        return upperCase(locator) + u"L";
    return Text(locator);
}

std::optional<Text> checkedHome(TextView locator) {
    return checked(completedLocator(locator));
}

std::optional<Text> checkedTarget(TextView locator) {
    Text target = completedLocator(locator);
    if (target.size() > fullLength || target.size() < 2)
        return std::nullopt;
    if (target.size() < 4)
        target = target.substr(0, 2) + u"55ll";
    return checked(std::move(target));
}

} // namespace orbisgrid
