#include "tests/scripts/script_box.h"

#include <gtest/gtest.h>

namespace orbisgrid {

namespace {

using test::ShellResult;

/// The status that says "this cannot run here": neither passed nor failed.
constexpr int cannot = 77;

class OnDebianTest : public testing::Test {
protected:
    OnDebianTest() {
        for (const char* program : {"awk", "dirname", "readlink", "sed"})
            m_box.offer(program);
    }

    ShellResult run(const std::string& arguments) const {
        return m_box.run("'" ORBISGRID_SOURCES "/scripts/on_debian.sh' " + arguments);
    }

    test::ScriptBox m_box;
};

TEST_F(OnDebianTest, WithoutRootItSaysSoInALine) {
    m_box.standIn("id", "echo 1000");
    const ShellResult result = run("trixie true");
    EXPECT_EQ(result.status, cannot);
    EXPECT_EQ(result.output, "orbisgrid: not run on trixie: it takes root to make one\n");
}

TEST_F(OnDebianTest, WithoutDebootstrapItSaysSo) {
    m_box.standIn("id", "echo 0");
    const ShellResult result = run("trixie true");
    EXPECT_EQ(result.status, cannot);
    EXPECT_EQ(result.output, "orbisgrid: please install what Debian calls: debootstrap\n"
                             "orbisgrid: not run on trixie: there is no debootstrap\n");
}

TEST_F(OnDebianTest, WhereNobodyMayMountItSaysSo) {
    m_box.standIn("id", "echo 0");
    m_box.standIn("debootstrap", "");
    m_box.standIn("unshare", "exit 1");
    const ShellResult result = run("trixie true");
    EXPECT_EQ(result.status, cannot);
    EXPECT_EQ(result.output, "orbisgrid: not run on trixie: this system lets nobody mount\n");
}

/// What a slow disk or a process that is still going does to the removal says nothing about the
/// command.
TEST_F(OnDebianTest, ARootThatStaysDoesNotChangeTheCommandsStatus) {
    m_box.standIn("id", "echo 0");
    m_box.standIn("debootstrap", "");
    m_box.standIn("apt-get", "echo bookworm main mirror; echo trixie main mirror");
    m_box.standIn("timeout", "exit 124");
    // Asked first whether it may, then for the root and the command in it.
    m_box.standIn("unshare", "for last; do :; done; [ $# -le 6 ] || exit \"$last\"");
    for (const int status : {0, 7}) {
        const ShellResult result = run("trixie " + std::to_string(status));
        EXPECT_EQ(result.status, status) << result.output;
        EXPECT_TRUE(result.output.starts_with("orbisgrid: left behind: ")) << result.output;
    }
}

TEST_F(OnDebianTest, WithoutACommandItSaysHowItIsUsed) {
    const ShellResult result = run("trixie");
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.output.find("scripts/on_debian.sh trixie ./test\n"), std::string::npos);
}

} // namespace

} // namespace orbisgrid
