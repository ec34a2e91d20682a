#include "fuzz/oracle.h"
#include "settings/locator_list_ini.h"

namespace orbisgrid::fuzz {

namespace {

/// What a save would write of what was read.
std::string written(LocatorListIni& ini) {
    return writeLocatorListIni(ini, {u"3.1.1", ini.StayOnTop, ini.savedLeft, ini.savedTop});
}

bool isSame(const LocatorListIni& one, const LocatorListIni& other) {
    return one.TitleNote == other.TitleNote && one.DefaultHome == other.DefaultHome &&
           one.DefaultTarget == other.DefaultTarget && one.StayOnTop == other.StayOnTop &&
           one.homeList == other.homeList && one.targetList == other.targetList &&
           one.NoCheckWebUpdates == other.NoCheckWebUpdates &&
           one.RememberPosition == other.RememberPosition && one.savedLeft == other.savedLeft &&
           one.savedTop == other.savedTop;
}

/// The lists after a save: the first 30, without blank ones.
std::vector<Text> kept(const std::vector<Text>& list) {
    std::vector<Text> result;
    for (std::size_t i = 0; i < list.size() && i < writtenListEntries; ++i) {
        if (list[i].find_first_not_of(u' ') != Text::npos)
            result.push_back(list[i]);
    }
    return result;
}

} // namespace

} // namespace orbisgrid::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orbisgrid;
    LocatorListIni first = readLocatorListIni(fuzz::bytesOf(data, size));
    fuzz::require(first.homeList.size() <= readListEntries &&
                      first.targetList.size() <= readListEntries,
                  "entries that are kept");
    const std::string saved = fuzz::written(first);
    LocatorListIni second = readLocatorListIni(saved);
    fuzz::require(second.homeList == fuzz::kept(first.homeList) &&
                      second.targetList == fuzz::kept(first.targetList),
                  "lists after a save");
    fuzz::require(second.TitleNote == (captionNote(first.TitleNote) ? first.TitleNote : ";"),
                  "line 2 after a save");
    fuzz::require(second.RememberPosition == first.RememberPosition &&
                      second.NoCheckWebUpdates == first.NoCheckWebUpdates &&
                      second.savedLeft == first.savedLeft && second.savedTop == first.savedTop &&
                      second.StayOnTop == first.StayOnTop,
                  "numbers after a save");
    fuzz::require(second.DefaultHome == upperCase(first.DefaultHome) &&
                      second.DefaultTarget == upperCase(first.DefaultTarget),
                  "defaults after a save");
    // From the first save on nothing changes any more.
    LocatorListIni again = second;
    const std::string savedAgain = fuzz::written(again);
    fuzz::require(savedAgain == saved, "second save");
    fuzz::require(fuzz::isSame(readLocatorListIni(savedAgain), second), "third reading");
    return 0;
}
