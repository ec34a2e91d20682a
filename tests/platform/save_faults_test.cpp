#include "platform/per_user_store.h"
#include "platform/safe_file.h"
#include "settings/locator_list_ini.h"
#include "tests/platform/temporary_folder.h"
#include "tests/support/faults.h"

#include <gtest/gtest.h>

#include <iostream>
#include <optional>

namespace orbisgrid {

namespace {

using test::Fault;
using test::FaultyRun;
using test::TemporaryFolder;

/// The INI file with this list, as the window saves it.
std::string iniWith(std::size_t entries) {
    LocatorListIni ini;
    ini.TitleNote = ";  My station";
    ini.homeList.assign(entries, u"JO20AW");
    return writeLocatorListIni(ini, {u"3.1.1", 0, 1440, 720});
}

const std::string oldIni = iniWith(3);
const std::string newIni = iniWith(20);

std::string described(Fault fault, const FaultyRun& run) {
    return std::string(nameOf(fault)) + " at call " + std::to_string(run.call) + ", " + run.name +
           ", result " + std::to_string(run.result);
}

/// Every fault at every call of one kind of save. `contentOf` says what the path names afterwards;
/// what the save reports must be what it did.
template <typename Before, typename Work, typename Left>
void expectOldOrNew(Before before, Work work, Left left, const char* what) {
    int faults = 0;
    int failures = 0;
    for (const Fault fault : test::everyFault) {
        faults += test::failAtEachFileCall(fault, before, work, [&](const FaultyRun& run) {
            SCOPED_TRACE(described(fault, run));
            ASSERT_TRUE(run.result == 0 || run.result == 1) << "neither saved nor refused";
            EXPECT_EQ(left(), run.result == 0 ? "new" : "old");
            failures += run.result;
        });
    }
    if (faults == 0)
        GTEST_SKIP() << "SKIPPED: this system does not let processes be traced";
    EXPECT_GT(faults, 40);
    EXPECT_GT(failures, 0) << "no fault made a save fail";
    EXPECT_LT(failures, faults) << "no fault was harmless";
    std::cout << what << ": " << faults << " faults, " << failures << " refused saves\n";
}

constexpr mode_t ownMode = 0640; // another one than that of new files

/// "old" or "new" where the file is whole and has kept its mode.
std::string iniLeft(const TemporaryFolder& folder, const std::string& name) {
    if (folder.modeOf(name) != ownMode)
        return "other mode";
    const std::string content = folder.content(name);
    if (content == oldIni)
        return "old";
    return content == newIni ? "new" : "torn";
}

TEST(SaveFaults, IniIsOldOrNewAndTheResultIsTrue) {
    const TemporaryFolder folder;
    expectOldOrNew([&] { folder.make("Orbisgrid.ini", oldIni, ownMode); },
                   [&] { return saveFile(folder.path("Orbisgrid.ini"), newIni) ? 0 : 1; },
                   [&] { return iniLeft(folder, "Orbisgrid.ini"); }, "INI");
}

TEST(SaveFaults, FirstIniIsNoneOrNew) {
    const TemporaryFolder folder;
    expectOldOrNew([&] { ::unlink(folder.path("Orbisgrid.ini").c_str()); },
                   [&] { return saveFile(folder.path("Orbisgrid.ini"), newIni) ? 0 : 1; },
                   [&] {
                       const std::string content = folder.content("Orbisgrid.ini");
                       return content == "(no file)" ? "old" : content == newIni ? "new" : "torn";
                   },
                   "first INI");
}

TEST(SaveFaults, IniThatIsWrittenDirectly) {
    const TemporaryFolder folder;
    const std::string longest(255, 'n'); // leaves no room for a second name
    expectOldOrNew([&] { folder.make(longest, oldIni, ownMode); },
                   [&] { return saveFile(folder.path(longest), newIni) ? 0 : 1; },
                   [&] { return iniLeft(folder, longest); }, "INI, written directly");
}

// The store --------------------------------------------------------------------------------------

const std::string oldStore = "[Orbisgrid]\nUseCounter=7\n\n[Others]\nkey=kept\n";

std::string storeLeft(const TemporaryFolder& folder) {
    const std::string content = folder.content("store.ini");
    if (content == oldStore)
        return "old";
    const bool isNew = content.find("UseCounter=8\n") != std::string::npos &&
                       content.find("Path=" + std::string(3000, 'p')) != std::string::npos &&
                       content.find("[Others]\nkey=kept\n") != std::string::npos;
    return isNew ? "new" : "torn: " + content.substr(0, 100);
}

TEST(SaveFaults, StoreIsOldOrNewAndTheResultIsTrue) {
    const TemporaryFolder folder;
    const TemporaryFolder scratch;
    ::setenv("XDG_RUNTIME_DIR", scratch.path("").c_str(), 1); // leftovers of faults go with it
    expectOldOrNew([&] { folder.make("store.ini", oldStore); },
                   [&] {
                       PerUserStore store(folder.path("store.ini"));
                       const bool isWritten =
                           store.write({{u"UseCounter", u"8"}, {u"Path", Text(3000, u'p')}});
                       return isWritten ? 0 : 1;
                   },
                   [&] { return storeLeft(folder); }, "store");
    ::unsetenv("XDG_RUNTIME_DIR");
}

} // namespace

} // namespace orbisgrid
