// The real executable: its streams, its files and its exit status.

#include "tests/platform/temporary_folder.h"
#include "tests/support/child.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>

namespace orbisgrid {

namespace {

using test::shell;
using test::ShellResult;
using test::TemporaryFolder;

const std::string program = ORBISGRID_BATCH;
const std::string resultOfFn42 = "\t5625\t3513\t292\t50.47917\t4.958333\t42.47917\t-71.04166";

ShellResult run(const std::string& arguments) {
    return shell(program + " " + arguments + " 2>&1");
}

TEST(BatchProgram, ReadsFilesAndTheStandardInput) {
    const TemporaryFolder folder;
    const std::string path = folder.make("a.txt", "JO20 FN42\n");
    const std::string line = "JO20 FN42" + resultOfFn42 + "\n";
    EXPECT_EQ(run("distance " + path).output, line);
    EXPECT_EQ(run("distance < " + path).output, line);
    EXPECT_EQ(run("distance - < " + path).output, line);
    EXPECT_EQ(run("distance " + path + " - " + path + " < " + path).output, line + line + line);
    EXPECT_EQ(run("distance < /dev/null").output, "");
    EXPECT_EQ(run("distance < /dev/null").status, 0);
}

TEST(BatchProgram, EndsALineThatTheNextFileWouldGoOnWith) {
    const TemporaryFolder folder;
    const std::string open = folder.make("a.txt", "JO20 FN42");
    const std::string ended = folder.make("b.txt", "JO20 FN42\n");
    const std::string line = "JO20 FN42" + resultOfFn42;
    EXPECT_EQ(run("distance " + open + " " + ended).output, line + "\n" + line + "\n");
    EXPECT_EQ(run("distance " + ended + " " + open).output, line + "\n" + line);
    // Where nothing is read to guess the format, the results of both are still waiting.
    EXPECT_EQ(run("distance --input lines " + open + " " + ended).output,
              line + "\n" + line + "\n");
    EXPECT_EQ(run("distance --input lines " + ended + " " + ended).output,
              line + "\n" + line + "\n");
    EXPECT_EQ(
        shell("{ printf 'JO20 FN42'; sleep 0.2; } | " + program + " distance - " + open).output,
        line + "\n" + line);
}

TEST(BatchProgram, ItsStatusSaysHowItWent) {
    EXPECT_EQ(shell("echo JO20 FN42 | " + program + " distance").status, 0);
    EXPECT_EQ(shell("echo JO20 FN4? | " + program + " distance --quiet").status, 1);
    EXPECT_EQ(run("distance --foo").status, 2);
    EXPECT_EQ(run("").status, 2);
    EXPECT_EQ(run("--help").status, 0);
    EXPECT_EQ(run("--version").output, "orbisgrid-batch 3.1.1\n");
}

TEST(BatchProgram, SaysOnStandardErrorWhatWasRefused) {
    const ShellResult result =
        shell("printf 'JO20 FN42\\nJO2? x\\n' | " + program + " distance 2>&1 >/dev/null");
    EXPECT_EQ(result.output, "standard input:2: Invalid locator! (JO2?)\n2 lines, 1 refused\n");
    EXPECT_EQ(result.status, 1);
}

TEST(BatchProgram, UnknownOptionIsOneLine) {
    EXPECT_EQ(run("distance --foo").output,
              "orbisgrid-batch: unknown option --foo (see orbisgrid-batch distance --help)\n");
}

TEST(BatchProgram, MakesAMapWithTheOutlinesBesideIt) {
    const TemporaryFolder folder;
    const std::string list = folder.make("list", "FN42AA\n");
    const std::string map = run("map --home JO20AW " + list).output;
    EXPECT_TRUE(map.starts_with("<?xml")) << map.substr(0, 200);
    EXPECT_NE(map.find("class=\"land\""), std::string::npos);
    // Alone it has none, and says so.
    const std::string alone = folder.path("orbisgrid-batch");
    std::filesystem::copy_file(program, alone);
    const ShellResult result = shell(alone + " map --home JO20AW " + list + " 2>&1 >/dev/null");
    EXPECT_EQ(result.output,
              "orbisgrid-batch: no outlines of land: " + folder.path("orbisgrid-map.dat") + "\n");
    EXPECT_EQ(result.status, 0);
}

// What cannot be read or written -----------------------------------------------------------------

TEST(BatchProgram, AFullDisk) {
    const ShellResult result = shell("echo JO20 FN42 | " + program + " distance 2>&1 >/dev/full");
    EXPECT_EQ(result.output, "orbisgrid-batch: standard output: No space left on device\n");
    EXPECT_EQ(result.status, 2);
    const ShellResult help = shell(program + " --help 2>&1 >/dev/full");
    EXPECT_EQ(help.output, "orbisgrid-batch: standard output: No space left on device\n");
    EXPECT_EQ(help.status, 2);
    const ShellResult map = shell(program + " map --home JO20 </dev/null 2>&1 >/dev/full");
    EXPECT_EQ(map.output, "orbisgrid-batch: standard output: No space left on device\n");
    EXPECT_EQ(map.status, 2);
}

TEST(BatchProgram, AFolderInTheFilesPlace) {
    const ShellResult result = run("distance /");
    EXPECT_EQ(result.output, "orbisgrid-batch: /: Is a directory\n");
    EXPECT_EQ(result.status, 2);
}

TEST(BatchProgram, AFileThatTheShellWritesTo) {
    const TemporaryFolder folder;
    const std::string list = folder.make("list", "JO20 FN42\n");
    for (const auto& [files, name] : {std::pair{list, list}, {"- <" + list, "standard input"}}) {
        const ShellResult result =
            shell("timeout 20 " + program + " distance " + files + " 2>&1 >>" + list);
        EXPECT_EQ(result.output, "orbisgrid-batch: " + name +
                                     ": input and output are one file (-o replaces it)\n");
        EXPECT_EQ(result.status, 2);
    }
    EXPECT_EQ(shell("cat " + list).output, "JO20 FN42\n");
}

TEST(BatchProgram, AFileThatIsNotThere) {
    const TemporaryFolder folder;
    const std::string path = folder.make("a.txt", "JO20 FN42\n");
    const ShellResult result = run("distance " + path + " /nowhere/list " + path);
    EXPECT_EQ(result.output, "JO20 FN42" + resultOfFn42 +
                                 "\norbisgrid-batch: /nowhere/list: No such file or directory\n");
    EXPECT_EQ(result.status, 2);
}

TEST(BatchProgram, AFileWithoutRights) {
    const TemporaryFolder folder;
    const std::string path = folder.make("a.txt", "JO20 FN42\n", 0);
    const std::string said = folder.path("said");
    // The build may be where others have no right to look.
    const std::string copy = folder.path("program");
    std::filesystem::copy_file(program, copy);
    const std::string command = copy + " distance " + path + " >" + said + " 2>&1";
    EXPECT_EQ(test::inChildWithoutRights([&] { return shell(command).status; }), 2);
    EXPECT_EQ(folder.content("said"), "orbisgrid-batch: " + path + ": Permission denied\n");
}

/// What a command leaves whose standard output is closed at once. `isIgnored`: whether the program
/// is started with SIGPIPE ignored, as some programs start others.
ShellResult withBrokenPipe(bool isIgnored) {
    return shell(std::string("exec 3>&1; { ") + (isIgnored ? "trap '' PIPE; " : "") +
                 "yes JO20 FN42 2>/dev/null | head -n 200000 2>/dev/null | " + program +
                 " distance 2>&3; echo status $? >&3; } | true");
}

TEST(BatchProgram, ABrokenPipeIsAQuietEnd) {
    EXPECT_EQ(withBrokenPipe(false).output, "status 141\n");
    EXPECT_EQ(withBrokenPipe(true).output, "status 141\n");
    EXPECT_EQ(shell("exec 3>&1; { trap '' PIPE; sleep 0.3; " + program +
                    " --help 2>&3; echo status $? >&3; } | true")
                  .output,
              "status 0\n");
    EXPECT_EQ(shell("yes JO20 FN42 2>/dev/null | head -n 200000 2>/dev/null | " + program +
                    " distance 2>&1 | head -n 1")
                  .output,
              "JO20 FN42" + resultOfFn42 + "\n");
}

// Its own file -----------------------------------------------------------------------------------

TEST(BatchFile, IsReplacedByItsOwnResults) {
    const TemporaryFolder folder;
    const std::string path = folder.make("a.txt", "JO20 FN42\n", 0640);
    EXPECT_EQ(run("distance " + path + " -o " + path).output, "");
    EXPECT_EQ(folder.content("a.txt"), "JO20 FN42" + resultOfFn42 + "\n");
    EXPECT_EQ(folder.names(), std::set<std::string>{"a.txt"});
    EXPECT_EQ(folder.modeOf("a.txt"), 0640U);
}

TEST(BatchFile, HoldsResultsAloneWhereNothingElseIsOpen) {
    const TemporaryFolder folder;
    const std::string path = folder.make("a.txt", "JO2?\nJO20 FN42\n");
    const std::string out = folder.path("out");
    for (const std::string closed : {"2>&-", "<&- 2>&-", "<&- >&- 2>&-"}) {
        EXPECT_EQ(shell(program + " distance -o " + out + " " + path + " " + closed).status, 1);
        EXPECT_EQ(folder.content("out"), "JO2?\t\t\t\t\t\t\t\nJO20 FN42" + resultOfFn42 + "\n")
            << closed;
    }
    EXPECT_EQ(shell(program + " distance " + path + " >&- 2>/dev/null").status, 2)
        << "nowhere to write to";
}

TEST(BatchFile, OfTheNameMinusIsTheStandardOutput) {
    const TemporaryFolder folder;
    const std::string path = folder.make("a.txt", "JO20 FN42\n");
    EXPECT_EQ(run("distance -o - " + path).output, "JO20 FN42" + resultOfFn42 + "\n");
}

TEST(BatchFile, IsReplacedThoughSomeLinesAreRefused) {
    const TemporaryFolder folder;
    const std::string path = folder.make("a.txt", "JO20 FN4?\n");
    EXPECT_EQ(run("distance " + path + " -o " + folder.path("b")).status, 1);
    EXPECT_EQ(folder.content("b"), "JO20 FN4?\t\t\t\t\t\t\t\n");
}

TEST(BatchFile, StaysAsItWasAfterAFailure) {
    const TemporaryFolder folder;
    const std::string path = folder.make("a.txt", "JO20 FN42\nJO20 FN4?\n");
    const std::string old = folder.make("old", "old");
    const auto isKept = [&] {
        return folder.content("old") == "old" &&
               folder.names() == std::set<std::string>{"a.txt", "old"};
    };
    EXPECT_EQ(run("distance " + path + " /nowhere -o " + old).status, 2);
    EXPECT_TRUE(isKept()) << "a file that cannot be read";
    EXPECT_EQ(run("distance --strict " + path + " -o " + old).status, 1);
    EXPECT_TRUE(isKept()) << "the rest is missing";
    folder.make("a.txt", "JO20 FN42\n");
    const ShellResult full = shell("ulimit -f 0; trap '' XFSZ; " + program + " distance " + path +
                                   " -o " + old + " 2>&1");
    EXPECT_EQ(full.output, "orbisgrid-batch: " + old + ": File too large\n");
    EXPECT_EQ(full.status, 2);
    EXPECT_TRUE(isKept()) << "a full disk";
}

TEST(BatchFile, LeavesNothingWhereTheRunIsInterrupted) {
    const TemporaryFolder folder;
    const std::string old = folder.make("old", "old");
    const std::string slow = folder.path("slow");
    ASSERT_EQ(::mkfifo(slow.c_str(), 0666), 0);
    const std::string slowly = "{ echo JO20 FN42; exec sleep 20; } >" + slow + " 2>&1 & ";
    for (const std::string signal : {"INT", "TERM", "HUP"}) {
        const std::string interrupted = "timeout --foreground -s " + signal + " 0.3 " + program;
        EXPECT_NE(shell(slowly + interrupted + " distance -o " + old + " " + slow).status, 0);
        EXPECT_EQ(folder.content("old"), "old") << signal;
        EXPECT_EQ(folder.names(), (std::set<std::string>{"old", "slow"})) << signal;
    }
}

TEST(BatchFile, ThatCannotBePutInPlaceIsSaid) {
    const TemporaryFolder folder;
    const std::string path = folder.make("file", "old");
    const ShellResult result =
        shell("{ sleep 0.3; rm " + path + "; mkdir " + path + "; echo JO20 FN42; } | " + program +
              " distance -o " + path + " 2>&1");
    EXPECT_EQ(result.output, "orbisgrid-batch: " + path + ": Is a directory\n");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(folder.names(), std::set<std::string>{"file"});
}

TEST(BatchFile, IsAFileThatMayBeWritten) {
    const TemporaryFolder folder;
    EXPECT_EQ(run("distance -o / < /dev/null").output, "orbisgrid-batch: /: Is a directory\n");
    EXPECT_EQ(run("distance -o / < /dev/null").status, 2);
    EXPECT_EQ(run("distance -o /nowhere/file < /dev/null").output,
              "orbisgrid-batch: /nowhere/file: No such file or directory\n");
    EXPECT_EQ(run("distance -o /dev/full < /dev/null").output,
              "orbisgrid-batch: /dev/full: not a regular file\n");
}

// On a terminal ----------------------------------------------------------------------------------

/// Everything that a program puts on a terminal as its standard error. Its input comes slowly.
std::string onTerminal(const std::string& command) {
    const int master = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (master < 0 || ::grantpt(master) != 0 || ::unlockpt(master) != 0)
        return "no terminal";
    const std::string slave = ::ptsname(master);
    pid_t child = test::startChild([&] {
        ::setsid();
        const int terminal = ::open(slave.c_str(), O_RDWR);
        ::dup2(terminal, STDERR_FILENO);
        ::execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
    });
    const int kept = ::open(slave.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC); // until all is read
    std::string shown;
    const auto take = [&] {
        std::array<char, 4096> buffer{};
        pollfd waiting{master, POLLIN, 0};
        while (::poll(&waiting, 1, 0) > 0) {
            const ssize_t count = ::read(master, buffer.data(), buffer.size());
            if (count <= 0)
                return;
            shown.append(buffer.data(), static_cast<std::size_t>(count));
        }
    };
    test::waitUntil(
        [&] {
            take();
            return ::waitpid(child, nullptr, WNOHANG) == child;
        },
        30);
    take();
    ::close(kept);
    ::close(master);
    return shown;
}

TEST(BatchProgress, IsShownOnATerminalAfterASecondAndErasedAtTheEnd) {
    const std::string slowly =
        "{ echo JO20 FN42; sleep 1.3; echo JO20 FN42; sleep 0.3; echo JO20 FN42; } | ";
    const std::string shown = onTerminal(slowly + program + " distance >/dev/null");
    EXPECT_NE(shown.find("\r\x1b[K2 lines, "), std::string::npos) << shown;
    EXPECT_TRUE(shown.ends_with("\r\x1b[K")) << shown;
    EXPECT_EQ(onTerminal("echo JO20 FN42 | " + program + " distance >/dev/null"), "")
        << "too quick";
}

TEST(BatchProgress, MakesWayForResultsOnTheSameTerminal) {
    const std::string shown =
        onTerminal("{ echo JO20 FN42; sleep 1.3; echo JO20 FN42; sleep 0.3; echo JO20 FN42; } | " +
                   program + " distance >&2");
    const std::size_t progress = shown.find("2 lines, ");
    ASSERT_NE(progress, std::string::npos) << shown;
    const std::size_t result = shown.find("JO20 FN42", progress);
    EXPECT_EQ(shown.substr(result - 4, 4), "\r\x1b[K") << shown;
}

TEST(BatchProgress, KnowsHowMuchThereIsOfFiles) {
    const TemporaryFolder folder;
    const std::string half = folder.make("half", "JO20 FN42\n");
    ASSERT_EQ(::mkfifo(folder.path("slow").c_str(), 0666), 0);
    const std::string command = program + " distance ";
    // A pipe among them does not say how long it is; two files do.
    const std::string slowly =
        "{ sleep 1.2; echo JO20 FN42; sleep 0.3; } >" + folder.path("slow") + " & ";
    const std::string shown =
        onTerminal(slowly + command + half + " " + folder.path("slow") + " >/dev/null");
    EXPECT_NE(shown.find("2 lines, "), std::string::npos) << shown;
    EXPECT_EQ(shown.find('%'), std::string::npos) << shown;
    // More than it can do before it is stopped for a second.
    const std::string many = folder.path("many");
    shell("yes JO20 FN42 | head -n 3000000 > " + many);
    const std::string stopped =
        " >/dev/null & sleep 0.1; kill -STOP $!; sleep 1.2; kill -CONT $!; wait";
    const std::string known = onTerminal(command + many + " " + half + stopped);
    EXPECT_NE(known.find(" %, "), std::string::npos) << known;
    EXPECT_EQ(onTerminal(command + half + " - " + half + " <" + half + " >/dev/null"), "");
    EXPECT_EQ(onTerminal(command + half + " /nowhere >/dev/null").find("No such file"),
              std::string("orbisgrid-batch: /nowhere: ").size());
}

TEST(BatchProgress, IsNeverShownInAPipe) {
    EXPECT_EQ(shell("{ echo JO20 FN42; sleep 1.3; echo JO20 FN42; } | " + program +
                    " distance 2>&1 >/dev/null")
                  .output,
              "");
}

} // namespace

} // namespace orbisgrid
