#include "tests/platform/temporary_folder.h"
#include "tests/support/child.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace orbisgrid {

namespace {

using test::shell;
using test::TemporaryFolder;

/// What the probe at `path` says, started in folder "/" with these variables in front.
std::string folderOf(const std::string& path, const std::string& variables = {}) {
    std::string answer = shell("cd / && " + variables + " '" + path + "' program-folder").output;
    while (answer.ends_with('\n'))
        answer.pop_back();
    return answer;
}

/// A copy of the probe under another name in a folder with blanks and letters.
class CopiedProbe {
public:
    CopiedProbe() {
        std::filesystem::create_directory(folder());
        std::filesystem::copy_file(ORBISGRID_PROBE, executable());
    }

    std::string folder() const { return m_temporary.path("Ж a"); }

    std::string executable() const { return folder() + "/program"; }

    std::string path(const std::string& name) const { return m_temporary.path(name); }

private:
    TemporaryFolder m_temporary;
};

TEST(ProgramFolder, HoldsTheExecutable) {
    const CopiedProbe probe;
    EXPECT_EQ(folderOf(probe.executable()), probe.folder());
}

TEST(ProgramFolder, LinksAreResolved) {
    const CopiedProbe probe;
    ASSERT_EQ(::symlink(probe.executable().c_str(), probe.path("link").c_str()), 0);
    ASSERT_EQ(::symlink("link", probe.path("second").c_str()), 0);
    EXPECT_EQ(folderOf(probe.path("second")), probe.folder());
}

TEST(ProgramFolder, IsFoundFromThePathAndWhateverTheNameGiven) {
    const CopiedProbe probe;
    const std::string call = "cd / && PATH='" + probe.folder() + "' program program-folder";
    EXPECT_EQ(shell(call).output, probe.folder() + "\n");
}

TEST(ProgramFolder, VariableTakesItsPlace) {
    const CopiedProbe probe;
    const auto with = [&](const std::string& value) {
        return folderOf(probe.executable(), "ORBISGRID_PROGRAM_FOLDER='" + value + "'");
    };
    EXPECT_EQ(with("/some where/Ж"), "/some where/Ж");
    EXPECT_EQ(with("/some where//"), "/some where");
    EXPECT_EQ(with("/"), "/");
    EXPECT_EQ(with("//"), "/");
    EXPECT_EQ(with("relative/to"), "/relative/to");
    EXPECT_EQ(with(""), probe.folder()) << "empty is as good as not set";
}

} // namespace

} // namespace orbisgrid
