#include "geodesy/locator_check.h"

#include "core/locator_grid.h"

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
char16_t folded(char16_t character, std::size_t index) {
    if (index < 2 && character >= u'a')
        return static_cast<char16_t>(character - caseDistance);
    if (index >= 4 && character <= u'Z')
        return static_cast<char16_t>(character + caseDistance);
    return character;
}

bool isAccepted(TextView locator) {
    if (locator.size() < fullLength)
        return false;
    for (std::size_t i = 0; i < fullLength; ++i) {
        const char16_t character = folded(locator[i], i);
        if (character < accepted[i].first || character > accepted[i].last)
            return false;
    }
    return true;
}

std::optional<Text> checked(TextView locator) {
    std::optional<Text> result;
    if (isAccepted(locator)) {
        result.emplace(locator.substr(0, fullLength));
        for (std::size_t i = 0; i < fullLength; ++i)
            (*result)[i] = folded(locator[i], i);
    }
    return result;
}

} // namespace

bool hasAcceptedLength(TextView locator) {
    return locator.size() >= 4 && locator.size() <= fullLength;
}

Text completedLocator(TextView locator) {
    const bool isShort = hasAcceptedLength(locator) && locator.size() < fullLength;
    return isShort ? completedTo(fullLength, upperCase(locator)) : Text(locator);
}

std::optional<Text> checkedHome(TextView locator) {
    return locator.size() < fullLength ? checked(completedLocator(locator)) : checked(locator);
}

std::optional<Text> checkedTarget(TextView locator) {
    if (locator.size() == 2 || locator.size() == 3)
        return checked(Text(locator.substr(0, 2)) + u"55ll");
    return locator.size() > fullLength ? std::nullopt : checkedHome(locator);
}

} // namespace orbisgrid
