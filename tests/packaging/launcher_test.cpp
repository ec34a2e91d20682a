#include "tests/desktop/started_window.h"
#include "tests/packaging/scratch.h"
#include "tests/support/x_server.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace orbisgrid {

namespace {

namespace fs = std::filesystem;

using test::contentOf;
using test::shell;
using test::ShellResult;

/// The Debian package, unpacked into a scratch root, and its launcher.
class LauncherTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        s_package = std::make_unique<test::Scratch>();
        const fs::path package = test::pack("DEB", s_package->path(""));
        ASSERT_EQ(shell("dpkg -x '" + package.string() + "' '" + root().string() + "'").status, 0);
    }

    static void TearDownTestSuite() { s_package.reset(); }

    static fs::path root() { return s_package->path("root"); }

    static std::string launcher() { return (root() / "usr/bin/orbisgrid").string(); }

    static std::string packagedIni() {
        return contentOf(root() / "usr/libexec/orbisgrid/Orbisgrid.ini");
    }

    static fs::path folderOf(const fs::path& home) { return home / ".local/share/orbisgrid"; }

    fs::path home(const std::string& name = "home") const { return m_scratch.path(name); }

    /// Starts it for JO20AW FN42AA as in a fresh session, with more variables in front.
    ShellResult run(const fs::path& home, const std::string& variables = {},
                    const std::string& redirections = "2>&1") const {
        return shell(test::freshSession(home) + variables + " " + launcher() + " JO20AW FN42AA " +
                     redirections);
    }

    void use(const fs::path& home, const std::string& locator) const {
        test::StartedWindow window(test::freshDesktopSession(home) + launcher());
        ASSERT_FALSE(window.id().empty());
        EXPECT_EQ(window.latitudeAfter(locator, "fn42aa"), " 42.0208");
        EXPECT_EQ(window.close(), 0);
    }

    test::Scratch m_scratch;
    inline static std::unique_ptr<test::Scratch> s_package;
};

TEST_F(LauncherTest, TheFirstStartMakesTheFolder) {
    const ShellResult result = run(home());
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.output.starts_with(test::reportStart)) << result.output;
    EXPECT_EQ(test::filesBelow(folderOf(home())),
              (std::set<std::string>{"Orbisgrid.ini", "Readme.txt"}));
    EXPECT_EQ(contentOf(folderOf(home()) / "Orbisgrid.ini"), packagedIni());
    EXPECT_EQ(contentOf(folderOf(home()) / "Readme.txt"),
              contentOf(ORBISGRID_SOURCES "/Readme.txt"));
}

TEST_F(LauncherTest, FollowsTheDesktopsFolders) {
    const ShellResult result = run(home(), "XDG_DATA_HOME='" + home("my data").string() + "'");
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(fs::exists(home("my data") / "orbisgrid/Orbisgrid.ini"));
    EXPECT_FALSE(fs::exists(folderOf(home())));
    EXPECT_EQ(run(home("other"), "XDG_DATA_HOME=relative").status, 0);
    EXPECT_TRUE(fs::exists(folderOf(home("other")))) << "a relative folder is no folder";
}

TEST_F(LauncherTest, NeverWritesOverTheLists) {
    run(home());
    const std::string mine = packagedIni() + "mine";
    test::writeFile(folderOf(home()) / "Orbisgrid.ini", mine);
    EXPECT_EQ(run(home()).status, 0);
    EXPECT_EQ(contentOf(folderOf(home()) / "Orbisgrid.ini"), mine);
}

TEST_F(LauncherTest, RefreshesAnOlderManual) {
    run(home());
    const fs::path manual = folderOf(home()) / "Readme.txt";
    test::writeFile(manual, "newer than the packaged one: the user's");
    run(home());
    EXPECT_EQ(contentOf(manual), "newer than the packaged one: the user's");
    shell("touch -d 2001-01-01 '" + manual.string() + "'");
    run(home());
    EXPECT_EQ(contentOf(manual), contentOf(ORBISGRID_SOURCES "/Readme.txt"));
}

TEST_F(LauncherTest, ALaterStartNeedsNoOtherProgram) {
    run(home());
    const ShellResult result = run(home(), "PATH=/nothing");
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.output.starts_with(test::reportStart)) << result.output;
}

TEST_F(LauncherTest, AChosenFolderStays) {
    fs::create_directory(home("chosen"));
    test::writeFile(home("chosen") / "Orbisgrid.ini", packagedIni());
    const ShellResult result =
        run(home(), "ORBISGRID_PROGRAM_FOLDER='" + home("chosen").string() + "'");
    EXPECT_EQ(result.status, 0);
    EXPECT_FALSE(fs::exists(folderOf(home())));
}

TEST_F(LauncherTest, TwoUsersHaveTwoSetsOfLists) {
    const test::XServer server;
    server.useInThisProcess();
    use(home("one"), "jo20aw");
    use(home("the other"), "io91aa");
    const auto lists = [this](const char* name) {
        return contentOf(folderOf(home(name)) / "Orbisgrid.ini");
    };
    EXPECT_NE(lists("one").find("[Home data]\r\nJO20AW\r\n[**end**]"), std::string::npos);
    EXPECT_NE(lists("the other").find("[Home data]\r\nIO91AA\r\n[**end**]"), std::string::npos);
    EXPECT_EQ(packagedIni(), contentOf(ORBISGRID_SOURCES "/Orbisgrid.ini"));
}

TEST_F(LauncherTest, WithoutAHomeItAsksTheSystem) {
    fs::create_directory(m_scratch.path("bin"));
    const fs::path getent = m_scratch.path("bin") / "getent";
    test::writeFile(getent, "#!/bin/sh\necho \"me:x:$2:0:Me:" + home().string() + ":/bin/sh\"\n");
    fs::permissions(getent, fs::perms::owner_all);
    const ShellResult result =
        shell("cd / && exec timeout 20 env -i PATH='" + m_scratch.path("bin").string() +
              "':\"$PATH\" " + launcher() + " JO20AW FN42AA 2>&1");
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.output.starts_with(test::reportStart)) << result.output;
    EXPECT_TRUE(fs::exists(folderOf(home()) / "Orbisgrid.ini"));
}

/// Its one line about a folder that cannot be written, and the report behind it.
void expectOneLineAndTheReport(const ShellResult& result, const fs::path& folder,
                               const fs::path& session) {
    EXPECT_EQ(result.status, 0);
    const std::string line = "orbisgrid: cannot write in " + folder.string() +
                             "; this session keeps its lists and settings in " + session.string() +
                             "/orbisgrid\n";
    EXPECT_TRUE(result.output.starts_with(line + test::reportStart)) << result.output;
}

TEST_F(LauncherTest, WithoutAUsableHomeItWorksForTheSession) {
    fs::create_directory(m_scratch.path("session"));
    const std::string session = m_scratch.path("session").string();
    expectOneLineAndTheReport(run("/dev/null", "XDG_RUNTIME_DIR='" + session + "'"),
                              "/dev/null/.local/share", session);
    EXPECT_EQ(test::filesBelow(session),
              (std::set<std::string>{"orbisgrid/Orbisgrid.ini", "orbisgrid/Readme.txt",
                                     "orbisgrid/ZZ9QX.ini"}));
}

TEST_F(LauncherTest, AReadOnlyHomeWithListsShowsThem) {
    run(home());
    fs::create_directory(m_scratch.path("session"));
    fs::permissions(m_scratch.path("session"), fs::perms::all);
    shell("chmod -R a-w,a+rX '" + home().string() + "'");
    const std::string session = m_scratch.path("session").string();
    // As somebody without root's rights, which no mode holds up.
    const fs::path answer = m_scratch.path("answer");
    const int status = test::inChildWithoutRights([&] {
        return run(home(), "XDG_RUNTIME_DIR='" + session + "'", ">'" + answer.string() + "' 2>&1")
            .status;
    });
    expectOneLineAndTheReport({status, contentOf(answer), 0}, home() / ".config", session);
    EXPECT_EQ(test::filesBelow(session), std::set<std::string>{"orbisgrid/ZZ9QX.ini"})
        << "the lists are read where they are";
    shell("chmod -R u+w '" + home().string() + "'");
}

TEST_F(LauncherTest, WithoutASessionFolderItTakesATemporaryOne) {
    fs::create_directory(m_scratch.path("temporary"));
    const ShellResult result =
        run("/dev/null", "TMPDIR='" + m_scratch.path("temporary").string() + "'");
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.output.find(m_scratch.path("temporary").string()), std::string::npos);
    EXPECT_NE(result.output.find(test::reportStart), std::string::npos) << result.output;
    run("/dev/null", "TMPDIR='" + m_scratch.path("temporary").string() + "'");
    EXPECT_EQ(std::distance(fs::directory_iterator(m_scratch.path("temporary")), {}), 1)
        << "the same one again";
}

TEST_F(LauncherTest, ATemporaryFolderOfSomebodyElseIsNotTaken) {
    const fs::path temporary = m_scratch.path("temporary");
    fs::create_directory(temporary);
    const fs::path trap = temporary / ("orbisgrid-" + std::to_string(::getuid()));
    fs::create_directory_symlink(m_scratch.path("elsewhere"), trap);
    fs::create_directory(m_scratch.path("elsewhere"));
    const ShellResult result = run("/dev/null", "TMPDIR='" + temporary.string() + "'");
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.output.find(test::reportStart), std::string::npos) << result.output;
    EXPECT_TRUE(fs::is_empty(m_scratch.path("elsewhere")));
}

} // namespace

} // namespace orbisgrid
