#include "tests/scripts/script_box.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace orbisgrid {

namespace {

namespace fs = std::filesystem;

using test::ShellResult;

class PackagesScriptTest : public testing::Test {
protected:
    /// A Debian on which nothing but `there` is installed. What apt-get is asked for stands in the
    /// file "asked" then; it prints `answer`, as well as where it was told to be quiet, and ends
    /// with `status`.
    void makeDebian(const std::string& there, const std::string& answer = {},
                    int status = 0) const {
        m_box.standIn("dpkg-query",
                      "for name; do :; done; [ \"$name\" = " + there + " ] && echo installed");
        m_box.standIn("apt-get", "echo \"$*\" >>asked; echo '" + answer + "' >&2; exit " +
                                     std::to_string(status));
        m_box.standIn("id", "echo 0");
    }

    ShellResult install(const std::string& packages) const {
        return m_box.run("set -euo pipefail; " + test::ScriptBox::source("packages.sh") +
                         "install_missing " + packages);
    }

    std::string asked() const {
        std::ifstream file(m_box.path("asked"));
        return {std::istreambuf_iterator<char>(file), {}};
    }

    test::ScriptBox m_box;
};

TEST_F(PackagesScriptTest, InstallsWhatIsMissingAndSaysSoInALine) {
    makeDebian("cmake");
    const ShellResult result = install("cmake sway wtype");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "orbisgrid: installing sway wtype\n");
    EXPECT_EQ(asked(), "update -qq\ninstall -y -qq --no-install-recommends sway wtype\n");
}

TEST_F(PackagesScriptTest, WhereAllIsThereNothingIsAskedOrSaid) {
    makeDebian("cmake");
    const ShellResult result = install("cmake");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(asked(), "");
}

TEST_F(PackagesScriptTest, ARefusalIsShown) {
    makeDebian("cmake", "no such package", 100);
    const ShellResult result = install("sway");
    EXPECT_NE(result.status, 0);
    EXPECT_EQ(result.output, "orbisgrid: installing sway\nno such package\n");
}

/// Whoever knows the name of a file in the shared temporary folder can put a link there, and root
/// writes through it.
TEST_F(PackagesScriptTest, AnothersLinkInTheTemporaryFolderIsNotWrittenThrough) {
    m_box.write("theirs", "as it was\n");
    fs::create_symlink(m_box.path("theirs"), m_box.path("tmp/orbisgrid-install-0.log"));
    makeDebian("cmake", "a warning of apt", 0);
    EXPECT_EQ(install("sway").status, 0);
    std::ifstream theirs(m_box.path("theirs"));
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(theirs), {}), "as it was\n");
}

TEST_F(PackagesScriptTest, LeavesNothingInTheTemporaryFolder) {
    makeDebian("cmake", "a warning of apt", 0);
    EXPECT_EQ(install("sway").status, 0);
    EXPECT_TRUE(fs::is_empty(m_box.path("tmp")));
}

TEST_F(PackagesScriptTest, WithoutRootAndSudoItSaysWhatRootIsToDo) {
    makeDebian("cmake");
    m_box.standIn("id", "echo 1000");
    const ShellResult result = install("sway wtype");
    EXPECT_NE(result.status, 0);
    EXPECT_EQ(result.output, "orbisgrid: please install as root: apt-get install sway wtype\n");
    EXPECT_EQ(asked(), "");
}

TEST_F(PackagesScriptTest, WithSudoItAsksThroughIt) {
    makeDebian("cmake");
    m_box.standIn("id", "echo 1000");
    m_box.standIn("sudo", "echo sudo >>asked; exec \"$@\"");
    EXPECT_EQ(install("sway").status, 0);
    EXPECT_EQ(asked(), "sudo\nupdate -qq\nsudo\ninstall -y -qq --no-install-recommends sway\n");
}

TEST_F(PackagesScriptTest, ElsewhereThanOnDebianItNamesWhatIsMissingInALine) {
    m_box.standIn("cmake", "");
    m_box.standIn("pkg-config", "[ \"$2\" = xcb ]"); // --exists xcb
    const ShellResult result = install("cmake ninja-build libxcb1-dev qt6-base-dev");
    EXPECT_NE(result.status, 0);
    EXPECT_EQ(result.output,
              "orbisgrid: please install what Debian calls: ninja-build qt6-base-dev\n");
}

TEST_F(PackagesScriptTest, ElsewhereThanOnDebianItGoesOnWhereAllIsThere) {
    m_box.standIn("cmake", "");
    m_box.standIn("pkg-config", "exit 0");
    const ShellResult result = install("cmake libxcb1-dev qt6-base-dev fonts-liberation");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
}

} // namespace

} // namespace orbisgrid
