#include "tests/desktop/program.h"
#include "tests/support/x_server.h"

#include <gtest/gtest.h>

#include <sys/resource.h>

#include <csignal>

namespace orbisgrid {

namespace {

using test::Program;
using test::ShellResult;

const std::string report = "Home locator  :JO20AW\n"
                           "Target Locator:FN42AA\n"
                           "Distance:5637 Km\n"
                           "        :3520 Miles\n"
                           "Azimuth :291 degrees\n"
                           "Home>   Latitude :50.9375N°\n"
                           "Home>   Longitude:4.041667E°\n"
                           "Target> Latitude :42.02083N°\n"
                           "Target> Longitude:-71.95834W°\n";

const std::string allNotations = "Maidenhead Locator:JO20AW\n"
                                 "Decimal Latitude: 50.937\n"
                                 "Decimal Longitude: 4.04166\n"
                                 "World Latitude:50°56'13N\n"
                                 "World Longitude:4°2'30E\n"
                                 "UI-View string:=5056.13N/00402.30E\n"
                                 "APRS Compressed:=/4drbOOx2-  B\n";

std::string withCarriageReturns(const std::string& text) {
    std::string result;
    for (const char character : text.substr(0, text.size() - 1)) {
        if (character == '\n')
            result += '\r';
        result += character;
    }
    return result;
}

double processorSecondsOfChildren() {
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

TEST(CommandLineWithoutDisplay, PrintsTheReport) {
    const Program program;
    const ShellResult result = program.runWithoutDisplay("jo20aw fn42aa", "2>&1");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, report);
}

TEST(CommandLineWithoutDisplay, PrintsAllNotations) {
    const Program program;
    const ShellResult result = program.runWithoutDisplay("-CJO20AW", "2>&1");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, allNotations);
}

TEST(CommandLineWithoutDisplay, RefusesOnStandardError) {
    const Program program;
    const ShellResult quiet = program.runWithoutDisplay("jo2 fn42aa", "2>/dev/null");
    EXPECT_EQ(quiet.status, 1);
    EXPECT_EQ(quiet.output, "");
    const ShellResult loud = program.runWithoutDisplay("jo2 fn42aa", "2>&1 >/dev/null");
    EXPECT_EQ(loud.output,
              "Invallid Home Locator!\nA locator must exist out of at least 4 characters and no "
              "more then six. Examples: JO20, JO20AW\n");
    EXPECT_EQ(program.runWithoutDisplay("-CJO2", "2>/dev/null").status, 1);
}

TEST(CommandLineWithoutDisplay, TheWindowSaysInOneLineWhatToDo) {
    const Program program;
    const ShellResult result = program.runWithoutDisplay("", "2>&1");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.output.find("no display"), std::string::npos);
    EXPECT_NE(result.output.find("orbisgrid JO20AW FN42AA"), std::string::npos);
    EXPECT_EQ(result.output.find('\n'), result.output.size() - 1);
}

TEST(CommandLineWithoutDisplay, WritesNeitherTheFileNorTheCounter) {
    const Program program;
    const std::string before = program.ini();
    program.runWithoutDisplay("jo20aw fn42aa");
    EXPECT_EQ(program.ini(), before);
    const ShellResult store = test::shell("cat " + (program.configFolder() / "ZZ9QX.ini").string());
    EXPECT_NE(store.output.find("EXE=Orbisgrid.exe"), std::string::npos);
    EXPECT_EQ(store.output.find("UseCounter"), std::string::npos);
}

TEST(CommandLineWithoutDisplay, NeedsNoQt) {
    const std::string libraries =
        test::shell("LD_TRACE_LOADED_OBJECTS=1 " ORBISGRID_PROGRAM).output;
    EXPECT_NE(libraries.find("libxcb"), std::string::npos) << libraries;
    EXPECT_EQ(libraries.find("libQt"), std::string::npos) << libraries;
}

/// A copy of the executable without its library of windows.
class LonelyExecutable : public testing::Test {
protected:
    void SetUp() override { std::filesystem::copy_file(ORBISGRID_PROGRAM, executable()); }

    std::filesystem::path executable() const { return m_program.folder() / "orbisgrid"; }

    std::filesystem::path library() const { return m_program.folder() / "orbisgrid-window.so"; }

    ShellResult run(const std::string& arguments) const {
        return test::shell("env XDG_CONFIG_HOME=" + m_program.configFolder().string() + " " +
                           executable().string() + " " + arguments + " 2>&1");
    }

    Program m_program;
};

TEST_F(LonelyExecutable, DoesItsJobs) {
    EXPECT_TRUE(run("-CJO20AW").output.starts_with(allNotations));
}

TEST_F(LonelyExecutable, SaysInOneLineWhyItHasNoWindow) {
    const ShellResult result = run("");
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(
        result.output.starts_with("orbisgrid: no window: " + library().string() + ": cannot open"))
        << result.output;
    EXPECT_EQ(result.output.find('\n'), result.output.size() - 1);
}

TEST_F(LonelyExecutable, RefusesALibraryOfAnotherVersion) {
    std::filesystem::copy_file(ORBISGRID_OTHER_LIBRARY, library());
    const ShellResult result = run("");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output,
              "orbisgrid: no window: " + library().string() + ": not of this program's version\n");
}

TEST_F(LonelyExecutable, PrintsARefusalWhereItWouldShowABox) {
    const test::XServer server;
    server.useInThisProcess();
    const ShellResult result = run("jo2 fn42aa");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.output.find("orbisgrid: no window: "), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("Invallid Home Locator!\n"), std::string::npos) << result.output;
}

TEST(CommandLineWithoutDisplay, AFullOutputIsAFailure) {
    const Program program;
    EXPECT_EQ(program.runWithoutDisplay("jo20aw fn42aa", ">/dev/full").status, 1);
}

TEST(CommandLineWithoutDisplay, AStoreThatCannotBeWrittenEndsTheStart) {
    const Program program;
    std::filesystem::create_directory(program.configFolder() / "ZZ9QX.ini");
    const ShellResult result = program.runWithoutDisplay("jo20aw fn42aa", "2>&1");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.output.find("settings cannot be written"), std::string::npos);
    EXPECT_NE(result.output.find("ZZ9QX.ini"), std::string::npos);
}

TEST(CommandLineWithoutDisplay, AMissingFileKeepsTheStartFromCompleting) {
    const Program program;
    std::filesystem::remove(program.folder() / "Orbisgrid.ini");
    const double before = processorSecondsOfChildren();
    const ShellResult result = program.runWithoutDisplay(
        "jo20aw fn42aa & sleep 1.5; kill -TERM $!; wait $!", "2>/dev/null");
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.status, 128 + SIGTERM) << "SIGTERM ends it, nothing else does";
    EXPECT_LT(processorSecondsOfChildren() - before, 0.5) << "it waits without working";
    EXPECT_FALSE(std::filesystem::exists(program.folder() / "Orbisgrid.ini"));
}

TEST(CommandLineWithoutDisplay, ADisplayThatIsGoneIsNone) {
    const Program program;
    const ShellResult window = program.runWithoutDisplay("", "2>&1", "DISPLAY=:4711");
    EXPECT_EQ(window.status, 1);
    EXPECT_NE(window.output.find("no display"), std::string::npos);
    EXPECT_EQ(window.output.find('\n'), window.output.size() - 1);
    const ShellResult refusal = program.runWithoutDisplay("-CJO2", "2>&1", "DISPLAY=:4711");
    EXPECT_EQ(refusal.status, 1);
    EXPECT_NE(refusal.output.find("at least 4 characters"), std::string::npos);
    const ShellResult result =
        program.runWithoutDisplay("jo20aw fn42aa", "2>/dev/null", "DISPLAY=:4711");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, report);
}

TEST(CommandLineWithoutDisplay, ABoxThatNobodySeesIsNotWaitedFor) {
    const Program program;
    const ShellResult refusal =
        program.runWithoutDisplay("-CJO2", "2>&1", "QT_QPA_PLATFORM=offscreen");
    EXPECT_EQ(refusal.status, 1);
    EXPECT_NE(refusal.output.find("at least 4 characters"), std::string::npos);
}

TEST(CommandLineWithoutDisplay, AWaylandClipboardOutOfReachIsSaidInOneLine) {
    const Program program;
    const ShellResult result = test::shell(
        "env -u DISPLAY WAYLAND_DISPLAY=wayland-7 ORBISGRID_PROGRAM_FOLDER=" +
        program.folder().string() + " XDG_CONFIG_HOME=" + program.configFolder().string() +
        " PATH=/nowhere " + ORBISGRID_PROGRAM + " jo20aw fn42aa 2>&1 >/dev/null");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "orbisgrid: the clipboard could not be reached.\n");
}

/// A real X server and no window manager: what a terminal in a bare session has.
class CommandLineDesktopTest : public testing::Test {
protected:
    void SetUp() override { m_server.useInThisProcess(); }

    test::XServer m_server;
    Program m_program;
};

TEST_F(CommandLineDesktopTest, WithoutTheToolOfWaylandTheClipboardIsNotCertain) {
    const ShellResult result = test::shell(
        "env WAYLAND_DISPLAY=wayland-7 ORBISGRID_PROGRAM_FOLDER=" + m_program.folder().string() +
        " XDG_CONFIG_HOME=" + m_program.configFolder().string() + " PATH=/nowhere " +
        ORBISGRID_PROGRAM + " jo20aw fn42aa 2>&1 >/dev/null");
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.output.find("wl-copy"), std::string::npos);
    EXPECT_EQ(result.output.find('\n'), result.output.size() - 1);
    EXPECT_EQ(test::clipboardText(), withCarriageReturns(report)) << "X programs have it";
}

TEST_F(CommandLineDesktopTest, TheReportIsOnTheClipboardAfterTheEnd) {
    const ShellResult result = m_program.run("jo20aw fn42aa");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, report);
    EXPECT_LT(result.seconds, 2) << "the pipe was held by whoever keeps the clipboard";
    EXPECT_EQ(test::clipboardText(), withCarriageReturns(report));
    EXPECT_EQ(test::clipboardText(), withCarriageReturns(report)) << "and it stays";
}

TEST_F(CommandLineDesktopTest, ConvertCopiesTheLocatorOnly) {
    const ShellResult result = m_program.run("-CJO20AW");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, allNotations);
    EXPECT_EQ(test::clipboardText(), "Maidenhead Locator:JO20AW\r\n");
}

TEST_F(CommandLineDesktopTest, ARefusalShowsItsBoxAndStillFillsTheClipboard) {
    m_server.startWindowManager();
    // Enter is pressed on the box once it is there; the program goes on and ends then.
    const ShellResult result =
        test::shell("(xdotool search --sync --onlyvisible --name '^Input error$' windowfocus "
                    "--sync key Return >/dev/null 2>&1 &) ; true");
    EXPECT_EQ(result.status, 0);
    const ShellResult refused = m_program.run("-CJO2", "2>/dev/null");
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.output, "");
    EXPECT_EQ(test::clipboardText(), "Maidenhead Locator:JO2\r\n");
}

} // namespace

} // namespace orbisgrid
