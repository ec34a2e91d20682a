// What the manual, README, the manual page and the completion say of the program.

#include "batch/options.h"
#include "tests/platform/temporary_folder.h"
#include "tests/support/child.h"
#include "tests/support/made_log.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>

namespace orbisgrid {

namespace {

std::vector<std::string> linesOf(const std::string& fileName) {
    std::ifstream file(ORBISGRID_SOURCES "/" + fileName);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    EXPECT_FALSE(lines.empty()) << fileName;
    return lines;
}

/// A shell command line, with the program under its name and a folder to be in.
std::string inFolder(const test::TemporaryFolder& folder, const std::string& command) {
    std::string line = "cd ";
    line.append(folder.path("")).append(" && PATH=").append(folder.path("bin"));
    return line.append(":$PATH && { ").append(command).append("\n} 2>&1");
}

void putProgram(const test::TemporaryFolder& folder) {
    std::filesystem::create_directory(folder.path("bin"));
    std::filesystem::create_symlink(ORBISGRID_BATCH, folder.path("bin/orbisgrid-batch"));
}

/// Plays the sessions of a text: "cat" says what a file holds, each other command is run and has to
/// print what the text shows. Result: how many commands of the program were run.
int playSessions(const std::string& fileName, const std::string& indent) {
    const test::TemporaryFolder folder;
    putProgram(folder);
    const std::vector<std::string> lines = linesOf(fileName);
    const std::string prompt = indent + "$ ";
    int count = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (!lines[i].starts_with(prompt))
            continue;
        const std::string command = lines[i].substr(prompt.size());
        std::string shown;
        for (std::size_t next = i + 1; next < lines.size() && lines[next].starts_with(indent) &&
                                       !lines[next].starts_with(prompt) && lines[next] != "```";
             ++next)
            shown.append(lines[next], indent.size()).append("\n");
        if (command.starts_with("cat ")) {
            folder.make(command.substr(4), shown);
        } else if (command.starts_with("orbisgrid-batch ")) {
            EXPECT_EQ(test::shell(inFolder(folder, command)).output, shown) << command;
            ++count;
        }
    }
    return count;
}

TEST(BatchDocuments, TheManualsExamplesAreWhatTheProgramPrints) {
    EXPECT_EQ(playSessions("Readme.txt", "    "), 3);
}

TEST(BatchDocuments, TheReadmesExampleIsWhatTheProgramPrints) {
    EXPECT_EQ(playSessions("README.md", ""), 1);
}

/// The lines of the manual page between two others.
std::vector<std::string> pageBetween(const std::string& begin, const std::string& end) {
    std::vector<std::string> found;
    bool isBetween = false;
    for (const std::string& line : linesOf("packaging/orbisgrid-batch.1.in")) {
        isBetween = line == begin || (isBetween && line != end);
        if (isBetween && line != begin)
            found.push_back(line);
    }
    return found;
}

TEST(BatchDocuments, TheManualPageHasEachOption) {
    std::set<std::string> written, known;
    const std::vector<std::string> lines = pageBetween(".SH OPTIONS", ".SH DIAGNOSTICS");
    for (std::size_t i = 1; i < lines.size(); ++i) {
        if (lines[i - 1] != ".TP")
            continue;
        std::string syntax = lines[i].substr(lines[i].find(' ') + 1);
        std::erase_if(syntax, [](char character) { return character == '\\' || character == '"'; });
        if (const std::size_t blanks = syntax.find("  "); blanks != std::string::npos)
            syntax.erase(blanks, 1);
        written.insert(syntax);
    }
    for (const OptionRow& option : optionTable())
        known.insert(syntaxOf(option));
    EXPECT_EQ(written, known);
}

TEST(BatchDocuments, TheManualPageNamesEachResult) {
    std::string page;
    for (const std::string& line : linesOf("packaging/orbisgrid-batch.1.in"))
        page.append(line).append("\n");
    const DistanceTask distance({{}, true, true});
    const ConvertTask convert({});
    for (const Task* task :
         {static_cast<const Task*>(&distance), static_cast<const Task*>(&convert)}) {
        for (const Column& column : task->columns())
            EXPECT_NE(page.find(column.name), std::string::npos) << column.name;
    }
}

TEST(BatchDocuments, AFileOnAllProcessorsGivesTheSame) {
    const test::TemporaryFolder folder;
    putProgram(folder);
    std::string list;
    for (std::size_t i = 0; i < 5000; ++i)
        list.append(test::madeLocator(i * 7919))
            .append(" ")
            .append(test::madeLocator(i * 104729))
            .append("\n");
    folder.make("pairs.txt", list);
    std::string commands;
    for (std::string line : pageBetween(".EX", ".EE")) {
        // As troff reads it: \\e is a backslash, and one in front of anything else is not shown.
        for (std::size_t at = line.find('\\'); at != std::string::npos;
             at = line.find('\\', at + 1))
            line.replace(at, 2, 1, line[at + 1] == 'e' ? '\\' : line[at + 1]);
        commands.append(line).append("\n");
    }
    ASSERT_NE(commands.find("xargs -P 4"), std::string::npos) << commands;
    EXPECT_EQ(test::shell(inFolder(folder, commands)).output, "");
    EXPECT_EQ(test::shell(inFolder(folder, "orbisgrid-batch distance pairs.txt >whole.txt")).status,
              0);
    EXPECT_EQ(folder.content("result.txt"), folder.content("whole.txt"));
    EXPECT_GT(folder.content("result.txt").size(), list.size());
}

// Completion -------------------------------------------------------------------------------------

/// What bash is offered for the last of these words, in a folder that has a file.
std::set<std::string> offered(const std::string& words) {
    const test::ShellResult result =
        test::shell("cd " ORBISGRID_SOURCES "/packaging/debian && bash -c '. " ORBISGRID_SOURCES
                    "/packaging/orbisgrid-batch.bash-completion; compopt() { :; };"
                    " COMP_WORDS=(orbisgrid-batch " +
                    words +
                    "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _orbisgrid_batch;"
                    " printf \"%s\\n\" \"${COMPREPLY[@]}\"'");
    std::set<std::string> found;
    std::istringstream stream(result.output);
    for (std::string line; std::getline(stream, line);)
        found.insert(line);
    found.erase("");
    return found;
}

TEST(BatchCompletion, OffersEachOptionOfACommand) {
    for (const auto& [name, command] : {std::pair{"distance", Command::distance},
                                        {"convert", Command::convert},
                                        {"map", Command::map}}) {
        std::set<std::string> known;
        for (const OptionRow& option : optionTable()) {
            if (isOptionOf(option, command))
                known.insert(syntaxOf(option).substr(0, syntaxOf(option).find(' ')));
        }
        EXPECT_EQ(offered(std::string(name) + " -"), known);
    }
}

TEST(BatchCompletion, OffersCommandsFormatsAndFiles) {
    using Words = std::set<std::string>;
    EXPECT_EQ(offered("\"\""), (Words{"distance", "convert", "map", "--help", "--version"}));
    EXPECT_EQ(offered("distance --input \"\""), (Words{"lines", "csv", "tsv", "adif"}));
    EXPECT_EQ(offered("distance --output j"), Words{"json"});
    EXPECT_EQ(offered("convert --from d"), (Words{"decimal", "dms"}));
    EXPECT_EQ(offered("convert --characters \"\""), (Words{"6", "8", "10"}));
    EXPECT_EQ(offered("distance --home \"\""), Words{});
    EXPECT_EQ(offered("distance -o chang"), Words{"changelog"});
    EXPECT_EQ(offered("distance chang"), Words{"changelog"});
    for (const char* notation : {"auto", "locator", "decimal", "dms", "uiview"})
        EXPECT_TRUE(notationNamed(notation)) << notation;
}

} // namespace

} // namespace orbisgrid
