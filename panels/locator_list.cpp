#include "panels/locator_list.h"

#include <algorithm>

namespace orbisgrid {

Text LocatorList::text() const {
    return ListIndex == nothingSelected ? Text() : items.at(static_cast<std::size_t>(ListIndex));
}

bool LocatorList::holds(TextView locator) const {
    return std::find(items.begin(), items.end(), locator) != items.end();
}

void LocatorList::remember(TextView locator) {
    if (!holds(locator))
        items.push_back(upperCase(locator));
}

bool LocatorList::select(int index) {
    if (index < 0 || index >= static_cast<int>(items.size()))
        return false;
    ListIndex = index;
    return true;
}

bool LocatorList::removeSelected() {
    if (ListIndex == nothingSelected)
        return false;
    items.erase(items.begin() + ListIndex);
    ListIndex = nothingSelected;
    return true;
}

void LocatorList::clear() {
    items.clear();
    ListIndex = nothingSelected;
}

} // namespace orbisgrid
