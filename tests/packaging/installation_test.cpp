#include "tests/desktop/started_window.h"
#include "tests/packaging/scratch.h"
#include "tests/support/x_server.h"

#include <gtest/gtest.h>

#include <sstream>

namespace orbisgrid {

namespace {

namespace fs = std::filesystem;

using test::shell;
using test::ShellResult;

std::string quoted(const fs::path& path) {
    return std::string("'").append(path.string()).append("'");
}

/// The program, installed by `cmake --install` into a folder whose name has a blank in it.
class InstallationTest : public testing::Test {
protected:
    void SetUp() override { install(); }

    fs::path prefix() const { return m_scratch.path("pre fix"); }

    fs::path ini() const { return prefix() / "lib/orbisgrid/Orbisgrid.ini"; }

    fs::path entry() const { return prefix() / "share/applications/orbisgrid.desktop"; }

    fs::path home() const { return m_scratch.path("home"); }

    ShellResult install() const {
        ShellResult result = shell(ORBISGRID_CMAKE " --install " ORBISGRID_BUILD " --prefix " +
                                   quoted(prefix()) + " 2>&1");
        EXPECT_EQ(result.status, 0) << result.output;
        return result;
    }

    static ShellResult uninstall() {
        return shell(ORBISGRID_CMAKE " --build " ORBISGRID_BUILD " --target uninstall 2>&1");
    }

    std::string entryLine(const std::string& key) const {
        std::string line = shell("sed -n 's/^" + key + "=//p' " + quoted(entry())).output;
        line.erase(line.find_last_not_of('\n') + 1);
        return line;
    }

    test::Scratch m_scratch;
};

TEST_F(InstallationTest, HasItsFiles) {
    std::set<std::string> expected{
        "bin/orbisgrid",
        "bin/orbisgrid-batch",
        "lib/orbisgrid/Orbisgrid.ini",
        "lib/orbisgrid/Readme.txt",
        "lib/orbisgrid/orbisgrid",
        "lib/orbisgrid/orbisgrid-batch",
        "lib/orbisgrid/orbisgrid-map.dat",
        "lib/orbisgrid/orbisgrid-window.so",
        "share/applications/orbisgrid.desktop",
        "share/bash-completion/completions/orbisgrid",
        "share/bash-completion/completions/orbisgrid-batch",
        "share/doc/orbisgrid/LICENSE",
        "share/icons/hicolor/scalable/apps/orbisgrid.svg",
        "share/man/man1/orbisgrid-batch.1.gz",
        "share/man/man1/orbisgrid.1.gz",
        "share/metainfo/org.example.orbisgrid.metainfo.xml",
    };
    for (const char* size : {"16", "22", "24", "32", "48", "64", "128", "256"})
        expected.insert(std::string("share/icons/hicolor/") + size + "x" + size +
                        "/apps/orbisgrid.png");
    EXPECT_EQ(test::filesBelow(prefix()), expected);
    EXPECT_EQ(fs::read_symlink(prefix() / "bin/orbisgrid"), "../lib/orbisgrid/orbisgrid");
}

TEST_F(InstallationTest, StartsThroughTheLinkWithoutADisplay) {
    const ShellResult result = shell(test::freshSession(home()) +
                                     quoted(prefix() / "bin/orbisgrid") + " JO20AW FN42AA 2>&1");
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.output.starts_with(test::reportStart)) << result.output;
}

TEST_F(InstallationTest, WorksALog) {
    const ShellResult result =
        shell(test::freshSession(home()) + "sh -c 'echo JO20AW FN42AA | \"$0\" distance 2>&1' " +
              quoted(prefix() / "bin/orbisgrid-batch"));
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.output.starts_with("JO20AW FN42AA\t5637\t")) << result.output;
}

TEST_F(InstallationTest, OpensItsWindowFromTheDesktopEntry) {
    const test::XServer server;
    server.useInThisProcess();
    test::StartedWindow window(test::freshDesktopSession(home()) + entryLine("Exec"));
    ASSERT_FALSE(window.id().empty()) << entryLine("Exec");
    EXPECT_EQ(window.latitudeAfter("jo20aw", "fn42aa"), " 42.0208");
    const std::string windowClass = window.property("WM_CLASS");
    EXPECT_NE(windowClass.find(entryLine("StartupWMClass") + "\""), std::string::npos)
        << windowClass;
    EXPECT_NE(window.property("_NET_WM_ICON").find("Icon (64 x 64)"), std::string::npos);
    EXPECT_EQ(window.close(), 0);
    EXPECT_NE(test::contentOf(ini()).find("[Home data]\r\nJO20AW\r\n"), std::string::npos);
}

TEST_F(InstallationTest, ASecondOneKeepsTheLists) {
    test::writeFile(ini(), "mine");
    fs::remove(prefix() / "lib/orbisgrid/Readme.txt");
    install();
    EXPECT_EQ(test::contentOf(ini()), "mine");
    EXPECT_TRUE(fs::exists(prefix() / "lib/orbisgrid/Readme.txt"));
}

TEST_F(InstallationTest, UninstallLeavesNothingButTheLists) {
    test::writeFile(ini(), "mine");
    const ShellResult result = uninstall();
    EXPECT_EQ(result.status, 0) << result.output;
    EXPECT_EQ(test::filesBelow(prefix()), std::set<std::string>{"lib/orbisgrid/Orbisgrid.ini"});
    EXPECT_EQ(test::contentOf(ini()), "mine");
    EXPECT_FALSE(fs::exists(prefix() / "share/icons")) << "folders of nothing";
    EXPECT_TRUE(fs::exists(prefix() / "share")) << "a folder that others use";
}

TEST_F(InstallationTest, UninstallWorksAfterASecondInstallationAndOnlyOnce) {
    install();
    EXPECT_EQ(uninstall().status, 0);
    EXPECT_EQ(test::filesBelow(prefix()), std::set<std::string>{"lib/orbisgrid/Orbisgrid.ini"});
    EXPECT_NE(uninstall().status, 0) << "there is nothing left to take away";
}

TEST_F(InstallationTest, TheDesktopEntryIsValid) {
    const ShellResult result = shell("desktop-file-validate " + quoted(entry()) + " 2>&1");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
}

TEST_F(InstallationTest, TheMetainfoIsValid) {
    const ShellResult result =
        shell("appstreamcli validate --pedantic --no-net --no-color " +
              quoted(prefix() / "share/metainfo/org.example.orbisgrid.metainfo.xml") + " 2>&1");
    EXPECT_EQ(result.status, 0) << result.output;
    // Each version has a hint (I:) about the tag that the other one reads, and no more than that.
    std::istringstream lines(result.output);
    for (std::string line; std::getline(lines, line);) {
        const bool isRemark = line.size() > 1 && line[1] == ':';
        EXPECT_TRUE(!isRemark || (line[0] == 'I' && line.find("developer") != std::string::npos))
            << line;
    }
}

TEST_F(InstallationTest, TheManPagesAreReadWithoutAWarning) {
    for (const std::string name : {"orbisgrid", "orbisgrid-batch"}) {
        const std::string page = quoted(prefix() / ("share/man/man1/" + name + ".1.gz"));
        const ShellResult result =
            shell("LC_ALL=C.UTF-8 man --warnings -l " + page + " 2>&1 >/dev/null");
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.output, "");
        const std::string listed = shell("LC_ALL=C.UTF-8 lexgrog " + page).output;
        EXPECT_NE(listed.find(name + " - distance, azimuth"), std::string::npos) << listed;
    }
}

} // namespace

} // namespace orbisgrid
