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

TEST(CommandLineWithoutDisplay, NeedsNoQtAndNoCppLibrary) {
    const std::string libraries =
        test::shell("LD_TRACE_LOADED_OBJECTS=1 " ORBISGRID_PROGRAM).output;
    EXPECT_NE(libraries.find("libxcb"), std::string::npos) << libraries;
    EXPECT_EQ(libraries.find("libQt"), std::string::npos) << libraries;
#if !defined(__SANITIZE_ADDRESS__)
    EXPECT_EQ(libraries.find("libstdc++"), std::string::npos) << libraries;
#endif
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

TEST(CommandLineWithoutDisplay, AFullOutputIsAFailureAndSaid) {
    const Program program;
    for (const char* job : {"jo20aw fn42aa", "-CJO20AW"}) {
        const ShellResult result = program.runWithoutDisplay(job, "2>&1 >/dev/full");
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.output,
                  "orbisgrid: the result could not be printed: No space left on device\n");
    }
}

struct TooLong {
    const char* arguments;
    const char* within; ///< asks for the same without what is too much
    const char* said;
};

TEST(CommandLineWithoutDisplay, WhatIsTooMuchIsLeftOutAndNamed) {
    const Program program;
    for (const TooLong& row :
         {TooLong{"jo20aw55 fn42aa jo21aa", "jo20aw fn42aa",
                  "\"55\" of Home (at most 6 characters), \"JO21AA\" of Target (at most 6 "
                  "characters)"},
          TooLong{"jo20aw fn42aa55", "jo20aw fn42aa", "\"55\" of Target (at most 6 characters)"},
          TooLong{"-CJO20AW55AA77", "-CJO20AW55AA",
                  "\"77\" of the locator (at most 10 characters)"},
          TooLong{"\"jo20aw fn42aa $(printf 'a\\nb')\"", "jo20aw fn42aa",
                  "\"A?B\" of Target (at most 6 characters)"}}) {
        const ShellResult result = program.runWithoutDisplay(row.arguments, "2>/dev/null");
        const ShellResult within = program.runWithoutDisplay(row.within, "2>&1");
        EXPECT_EQ(result.status, 0) << row.arguments;
        EXPECT_EQ(result.output, within.output) << row.arguments;
        EXPECT_EQ(program.runWithoutDisplay(row.arguments, "2>&1 >/dev/null").output,
                  std::string("orbisgrid: left out: ") + row.said + "\n");
    }
    EXPECT_EQ(program.runWithoutDisplay("'jo20aw fn42aa   '", "2>&1").output, report)
        << "blanks are nothing to miss";
}

TEST(CommandLineWithoutDisplay, ASessionArgumentIsNoJob) {
    const Program program;
    const ShellResult result = program.runWithoutDisplay("-session 10cafe_1", "2>&1");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.output.find("no display for the window"), std::string::npos) << result.output;
    EXPECT_EQ(program.runWithoutDisplay("-session 10cafe_1 jo20aw fn42aa", "2>&1").output, report);
}

TEST(CommandLineWithoutDisplay, AStoreThatCannotBeWrittenEndsTheStart) {
    const Program program;
    std::filesystem::create_directory(program.configFolder() / "ZZ9QX.ini");
    const ShellResult result = program.runWithoutDisplay("jo20aw fn42aa", "2>&1");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.output.find("settings cannot be written"), std::string::npos);
    EXPECT_NE(result.output.find("ZZ9QX.ini"), std::string::npos);
}

/// With a command that puts something in the place of the file @.
class FileThatCannotBeRead : public testing::TestWithParam<const char*> {};

TEST_P(FileThatCannotBeRead, KeepsTheStartFromCompleting) {
    const Program program;
    const std::filesystem::path file = program.folder() / "Orbisgrid.ini";
    std::filesystem::remove(file);
    std::string command = GetParam();
    if (const std::size_t place = command.find('@'); place != std::string::npos)
        command.replace(place, 1, file.string());
    ASSERT_EQ(test::shell(command).status, 0);
    const bool wasThere = std::filesystem::is_symlink(file) || std::filesystem::exists(file);
    const double before = processorSecondsOfChildren();
    const ShellResult result = program.runWithoutDisplay(
        "jo20aw fn42aa & sleep 1.5; kill -TERM $!; wait $!", "2>/dev/null");
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.status, 128 + SIGTERM) << "SIGTERM ends it, nothing else does";
    EXPECT_LT(processorSecondsOfChildren() - before, 0.5) << "it waits without working";
    EXPECT_EQ(std::filesystem::is_symlink(file) || std::filesystem::exists(file), wasThere);
}

INSTANTIATE_TEST_SUITE_P(Files, FileThatCannotBeRead,
                         testing::Values("true", "ln -s /dev/zero @", "mkfifo @", "mkdir @"));

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

TEST(CommandLineWithoutDisplay, AWaylandDisplayThatIsGoneIsNone) {
    const Program program;
    const auto run = [&](const std::string& arguments) {
        return program.runWithoutDisplay(arguments, "2>&1", "WAYLAND_DISPLAY=wayland-7");
    };
    const ShellResult refusal = run("-CJO2");
    EXPECT_EQ(refusal.status, 1);
    EXPECT_NE(refusal.output.find("at least 4 characters"), std::string::npos) << refusal.output;
    EXPECT_EQ(refusal.output.find("Qt"), std::string::npos) << refusal.output;
    const ShellResult window = run("");
    EXPECT_EQ(window.status, 1);
    EXPECT_NE(window.output.find("no display"), std::string::npos) << window.output;
    EXPECT_EQ(window.output.find('\n'), window.output.size() - 1) << window.output;
    std::filesystem::remove(program.configFolder() / "ZZ9QX.ini");
    std::filesystem::create_directory(program.configFolder() / "ZZ9QX.ini");
    const ShellResult store = run("jo20aw fn42aa");
    EXPECT_EQ(store.status, 1);
    EXPECT_TRUE(store.output.starts_with("The settings cannot be written: ")) << store.output;
    EXPECT_EQ(store.output.find('\n'), store.output.size() - 1) << store.output;
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

TEST_F(CommandLineDesktopTest, AMissingPluginOfQtIsNamedInOneLine) {
    const auto window = [this](const std::string& platform) {
        const ShellResult result =
            test::shell(m_program.windowCommand("QT_QPA_PLATFORM=" + platform) + " 2>&1");
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.output.find('\n'), result.output.size() - 1) << result.output;
        return result.output;
    };
    const std::string unknown = window("nonsense");
    EXPECT_TRUE(unknown.starts_with("orbisgrid: no window: Could not find the Qt platform plugin "
                                    "\"nonsense\""))
        << unknown;
    EXPECT_NE(unknown.find("QT_QPA_PLATFORM"), std::string::npos) << unknown;
    const std::string wayland = window("wayland-that-is-not-installed");
    EXPECT_NE(wayland.find("install the package qt6-wayland"), std::string::npos) << wayland;
    // A refusal is shown all the same, where it can be.
    const ShellResult refusal = test::shell(m_program.windowCommand("QT_QPA_PLATFORM=nonsense") +
                                            " jo2 fn42aa 2>&1 >/dev/null");
    EXPECT_EQ(refusal.status, 1);
    EXPECT_TRUE(refusal.output.starts_with("Invallid Home Locator!\n")) << refusal.output;
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
