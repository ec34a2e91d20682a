#include "tests/desktop/program.h"
#include "tests/desktop/started_window.h"
#include "tests/support/child.h"
#include "tests/support/x_server.h"

#include <gtest/gtest.h>

#include <fstream>

namespace orbisgrid {

namespace {

namespace fs = std::filesystem;

using test::Program;
using test::shell;

/// What is missing, and the shell's variables that make it so; @ stands for a folder of the test's
/// own. They follow the variables of a sound desktop.
struct Broken {
    const char* what;
    const char* variables;
};

/// The real program where a part of the desktop is missing: it starts, calculates and ends.
class BrokenDesktop : public testing::TestWithParam<Broken> {
protected:
    void SetUp() override { m_server.useInThisProcess(); }

    fs::path root() const { return m_program.folder().parent_path(); }

    /// The command that starts the program in nothing but the sound variables, changed.
    std::string command(const std::string& changes) const {
        std::string command = "env -i PATH=\"$PATH\" DISPLAY=\"$DISPLAY\""
                              " DBUS_SESSION_BUS_ADDRESS=disabled: HOME=@/home LC_ALL=C.UTF-8"
                              " XDG_CONFIG_HOME=@/config XDG_RUNTIME_DIR=@/runtime"
                              " ORBISGRID_PROGRAM_FOLDER=@/program env " +
                              changes + " " ORBISGRID_PROGRAM;
        const std::string root = this->root().string();
        for (std::size_t place = 0; (place = command.find('@')) != std::string::npos;)
            command.replace(place, 1, root);
        return command;
    }

    /// A fontconfig file at @/fonts.conf with one folder of fonts and one for the cache.
    void writeFontConfiguration(const std::string& fonts, const std::string& cache) const {
        std::ofstream(root() / "fonts.conf")
            << "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig><dir>"
            << fonts << "</dir><cachedir>" << cache << "</cachedir></fontconfig>";
    }

    void startsCalculatesAndEnds(const std::string& changes) const {
        test::StartedWindow window(command(changes));
        ASSERT_FALSE(window.id().empty()) << "no window";
        EXPECT_EQ(window.latitudeAfter("jo20aw", "fn42aa"), " 42.0208");
        EXPECT_EQ(window.close(), 0);
        EXPECT_NE(m_program.ini().find("[Home data]\r\nJO20AW\r\n"), std::string::npos);
    }

    test::XServer m_server;
    Program m_program;
};

TEST_P(BrokenDesktop, StartsCalculatesAndEnds) {
    m_server.startWindowManager();
    startsCalculatesAndEnds(GetParam().variables);
}

INSTANTIATE_TEST_SUITE_P(
    Parts, BrokenDesktop,
    testing::Values(Broken{"NoSessionBus", "DBUS_SESSION_BUS_ADDRESS=unix:path=@/no-bus"},
                    Broken{"NoIconTheme", "XDG_DATA_DIRS=@/nothing XDG_DATA_HOME=@/nothing"},
                    Broken{"NoDesktopFolders",
                           "XDG_CONFIG_HOME=@/a/config XDG_DATA_HOME=@/a/data XDG_CACHE_HOME=@/a/c"
                           " XDG_RUNTIME_DIR=@/a/runtime XDG_CONFIG_DIRS=@/a XDG_DATA_DIRS=@/a"},
                    Broken{"DesktopFoldersUnset", "-u XDG_CONFIG_HOME -u XDG_RUNTIME_DIR"},
                    Broken{"HomeUnset", "-u HOME"},
                    Broken{"NoFontConfiguration", "FONTCONFIG_FILE=@/nothing HOME=@/nothing"}),
    [](const auto& row) { return std::string(row.param.what); });

TEST_F(BrokenDesktop, SaysNothingOfAMissingRuntimeFolder) {
    m_server.startWindowManager();
    const std::string said = (root() / "said").string();
    test::StartedWindow window(command("-u XDG_RUNTIME_DIR") + " 2>" + said);
    ASSERT_FALSE(window.id().empty());
    EXPECT_EQ(window.close(), 0);
    EXPECT_EQ(shell("cat " + said).output, "");
}

/// As a session manager would start it that took no notice of what it was told.
TEST_F(BrokenDesktop, SessionArgumentOpensTheWindow) {
    m_server.startWindowManager();
    test::StartedWindow window(command("") + " -session 10cafe_1");
    ASSERT_FALSE(window.id().empty());
    EXPECT_EQ(window.close(), 0);
}

TEST_F(BrokenDesktop, NoWindowManager) {
    startsCalculatesAndEnds("");
}

/// Qt's libraries must not go past it to the C library's: what one of them gives the other frees.
TEST_F(BrokenDesktop, AnotherMallocPutBeforeTheCLibrarys) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "a sanitizer insists on its own";
#endif
    m_server.startWindowManager();
    startsCalculatesAndEnds("LD_PRELOAD=" ORBISGRID_OTHER_MALLOC);
}

TEST_F(BrokenDesktop, OneFontOnly) {
    fs::create_directory(root() / "fonts");
    ASSERT_EQ(
        shell("cp \"$(fc-match -f '%{file}' 'Liberation Mono')\" " + (root() / "fonts").string())
            .status,
        0);
    writeFontConfiguration((root() / "fonts").string(), (root() / "font-cache").string());
    EXPECT_EQ(
        shell("FONTCONFIG_FILE=" + (root() / "fonts.conf").string() + " fc-list | wc -l").output,
        "1\n");
    m_server.startWindowManager();
    startsCalculatesAndEnds("FONTCONFIG_FILE=@/fonts.conf");
}

TEST_F(BrokenDesktop, FontconfigWithoutACache) {
    writeFontConfiguration("/usr/share/fonts", "/dev/null/cache");
    m_server.startWindowManager();
    startsCalculatesAndEnds("FONTCONFIG_FILE=@/fonts.conf HOME=/dev/null");
}

} // namespace

} // namespace orbisgrid
