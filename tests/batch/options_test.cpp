#include "batch/options.h"
#include "core/text.h"
#include "tests/support/in_process.h"
#include "tests/support/table.h"

#include <algorithm>
#include <set>
#include <sstream>

namespace orbisgrid {

namespace {

Invocation invocationOf(std::vector<std::string> words) {
    words.insert(words.begin(), "orbisgrid-batch");
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    return readInvocation(arguments);
}

std::string wrong(const std::vector<std::string>& words) {
    const std::string text = invocationOf(words).wrong;
    return text.substr(0, text.find(" (see"));
}

TEST(Invocation, TakesEveryOptionOfDistance) {
    const Invocation call =
        invocationOf({"distance", "--home",      "jo20",          "--input",   "csv",
                      "--output", "json",        "--home-column", "h",         "--target-column=t",
                      "--header", "--long-path", "--ellipsoid",   "--replace", "-o",
                      "out",      "--strict",    "--quiet",       "a",         "b"});
    EXPECT_EQ(call.wrong, "");
    EXPECT_EQ(call.command, Command::distance);
    EXPECT_EQ(call.distance.home, "jo20");
    EXPECT_TRUE(call.distance.isLongPath && call.distance.isEllipsoid);
    EXPECT_EQ(call.run.input, Format::csv);
    EXPECT_EQ(call.run.output, Format::json);
    EXPECT_EQ(call.run.list.homeColumn, "h");
    EXPECT_EQ(call.run.list.targetColumn, "t");
    EXPECT_TRUE(call.run.list.hasHeader && call.run.list.isReplacing);
    EXPECT_TRUE(call.run.isStrict && call.run.isQuiet);
    EXPECT_EQ(call.outputFile, "out");
    EXPECT_EQ(call.run.outputName, "out");
    EXPECT_EQ(call.files, (std::vector<std::string>{"a", "b"}));
}

TEST(Invocation, AMinusIsTheStandardOutput) {
    EXPECT_EQ(invocationOf({"distance", "-o", "-"}).outputFile, "");
    EXPECT_EQ(invocationOf({"distance", "-o", "-"}).run.outputName, "standard output");
    EXPECT_EQ(invocationOf({"distance", "-o", "/dev/stdout"}).outputFile, "");
}

TEST(Invocation, WhatIsWrongIsOneLineOfWhatCanBeShown) {
    EXPECT_EQ(wrong({"distance", "--f\no\x1ble"}), "orbisgrid-batch: unknown option --f?o?le");
    EXPECT_EQ(invocationOf({"a\nb"}).wrong,
              "orbisgrid-batch: unknown command a?b (see orbisgrid-batch --help)");
}

TEST(Invocation, TakesNothingForGranted) {
    const Invocation call = invocationOf({"distance"});
    EXPECT_EQ(call.distance.home, "");
    EXPECT_FALSE(call.distance.isLongPath || call.distance.isEllipsoid || call.run.isStrict ||
                 call.run.isQuiet || call.run.list.hasHeader || call.run.list.isReplacing);
    EXPECT_EQ(call.run.input, std::nullopt);
    EXPECT_EQ(call.run.output, std::nullopt);
    EXPECT_EQ(call.convert.characters, 6U);
    EXPECT_EQ(call.convert.from, Notation::automatic);
    EXPECT_EQ(call.files, std::vector<std::string>{"-"});
    EXPECT_EQ(call.run.outputName, "standard output");
}

TEST(Invocation, TakesTheOptionsOfConvert) {
    const Invocation call = invocationOf({"convert", "--from", "dms", "--characters", "8", "-"});
    EXPECT_EQ(call.wrong, "");
    EXPECT_EQ(call.convert.from, Notation::dms);
    EXPECT_EQ(call.convert.characters, 8U);
    EXPECT_EQ(invocationOf({"convert", "--characters", "10"}).convert.characters, 10U);
    EXPECT_EQ(invocationOf({"convert", "--characters", "6"}).convert.characters, 6U);
    EXPECT_EQ(call.files, std::vector<std::string>{"-"});
}

TEST(Invocation, TakesTheOptionsOfMap) {
    const Invocation call = invocationOf(
        {"map", "--home", "JO20", "--radius", "100", "--at", "2026-06-21T12:00:00Z", "list"});
    EXPECT_EQ(call.wrong, "");
    EXPECT_EQ(call.command, Command::map);
    EXPECT_EQ(call.map.home, "JO20");
    EXPECT_EQ(call.map.radiusKilometres, 100);
    EXPECT_EQ(call.map.moment, parsedMoment("2026-06-21T12:00:00Z"));
    EXPECT_EQ(invocationOf({"map"}).map.radiusKilometres, halfCircumference);
    EXPECT_EQ(invocationOf({"map", "--radius", "20003"}).map.radiusKilometres, halfCircumference);
    EXPECT_EQ(invocationOf({"map", "--radius", "2500.5"}).map.radiusKilometres, 2500.5);
}

TEST(Invocation, OptionsMayFollowFilesAndBeShortened) {
    const Invocation call = invocationOf({"distance", "a", "--ellip", "--", "--quiet"});
    EXPECT_EQ(call.wrong, "");
    EXPECT_TRUE(call.distance.isEllipsoid);
    EXPECT_EQ(call.files, (std::vector<std::string>{"a", "--quiet"}));
}

TEST(Invocation, SaysWhatIsWrongInOneLine) {
    EXPECT_EQ(wrong({}), "orbisgrid-batch: no command");
    EXPECT_EQ(wrong({"foo"}), "orbisgrid-batch: unknown command foo");
    EXPECT_EQ(wrong({"distance", "--foo"}), "orbisgrid-batch: unknown option --foo");
    EXPECT_EQ(wrong({"distance", "-x"}), "orbisgrid-batch: unknown option -x");
    EXPECT_EQ(wrong({"distance", "--h"}), "orbisgrid-batch: unknown option --h") << "several";
    EXPECT_EQ(wrong({"distance", "--from", "dms"}), "orbisgrid-batch: unknown option --from");
    EXPECT_EQ(wrong({"convert", "--home", "JO20"}), "orbisgrid-batch: unknown option --home");
    EXPECT_EQ(wrong({"distance", "--home"}), "orbisgrid-batch: --home needs an argument");
    EXPECT_EQ(wrong({"distance", "-o"}), "orbisgrid-batch: -o needs an argument");
    EXPECT_EQ(wrong({"distance", "-xy"}), "orbisgrid-batch: unknown option -x");
    EXPECT_EQ(wrong({"distance", "list", "-xy"}), "orbisgrid-batch: unknown option -x");
    EXPECT_EQ(wrong({"distance", "-o", ""}), "orbisgrid-batch: -o needs the name of a file");
    EXPECT_EQ(wrong({"distance", "--quiet=1"}), "orbisgrid-batch: unknown option --quiet=1");
    EXPECT_EQ(wrong({"distance", "--home", "JO2?"}), "orbisgrid-batch: Invalid locator! (JO2?)");
    EXPECT_EQ(wrong({"distance", "--home", ""}), "orbisgrid-batch: Invalid locator! ()");
    EXPECT_EQ(wrong({"distance", "--input", "json"}), "orbisgrid-batch: unknown format json");
    EXPECT_EQ(wrong({"distance", "--input", "x"}), "orbisgrid-batch: unknown format x");
    EXPECT_EQ(wrong({"distance", "--output", "x"}), "orbisgrid-batch: unknown format x");
    EXPECT_EQ(wrong({"convert", "--from", "x"}), "orbisgrid-batch: unknown notation x");
    EXPECT_EQ(wrong({"convert", "--characters", "7"}),
              "orbisgrid-batch: a locator has 6, 8 or 10 characters and not 7");
    for (const char* radius : {"99.9", "20003.1", "x", ""})
        EXPECT_EQ(
            wrong({"map", "--radius", radius}),
            std::string("orbisgrid-batch: a radius is 100 to 20003 km and not ").append(radius));
    EXPECT_EQ(wrong({"map", "--at", "noon"}),
              "orbisgrid-batch: a moment is like 2026-06-21T12:00:00Z and not noon");
    EXPECT_EQ(wrong({"map", "--output", "json"}), "orbisgrid-batch: unknown option --output");
    EXPECT_TRUE(
        invocationOf({"convert", "-x"}).wrong.ends_with(" (see orbisgrid-batch convert --help)"));
}

TEST(Invocation, TheFirstThingDecides) {
    EXPECT_EQ(wrong({"distance", "--foo", "--help"}), "orbisgrid-batch: unknown option --foo");
    EXPECT_NE(invocationOf({"distance", "--help", "--foo"}).shown, "");
}

// What it tells ---------------------------------------------------------------------------------

const std::vector<std::pair<std::string, Command>> helps{{"", Command::none},
                                                         {"distance ", Command::distance},
                                                         {"convert ", Command::convert},
                                                         {"map ", Command::map}};

TEST(Help, FitsAScreen) {
    for (const auto& [words, command] : helps) {
        const std::string text = helpText(command);
        EXPECT_EQ(test::runBatch(words + "--help", "", "").output, text);
        EXPECT_LE(std::count(text.begin(), text.end(), '\n'), 24) << words;
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);)
            EXPECT_LE(fromUtf8(line).size(), 80U) << line;
    }
}

TEST(Help, NamesTheArgumentOfAnOptionThatHasOne) {
    std::set<std::string> written;
    for (const OptionRow& option : optionTable())
        written.insert(syntaxOf(option));
    for (const char* syntax : {"--home LOCATOR", "-o FILE", "--quiet"})
        EXPECT_TRUE(written.contains(syntax)) << syntax;
    EXPECT_NE(helpText(Command::distance).find("\n      --home LOCATOR  "), std::string::npos);
}

TEST(Help, SaysWhatACommandIsForAndWhatItReads) {
    const auto says = [](Command command, const std::string& purpose, const std::string& example) {
        const std::string text = helpText(command);
        EXPECT_NE(text.find(" [OPTION]... [FILE]...\n" + purpose + "\n"), std::string::npos)
            << text;
        EXPECT_NE(text.find("\n\n" + example), std::string::npos) << text;
    };
    const std::string pairs = "LINE: \"JO20AW FN42AA\", or one locator and --home.\n";
    says(Command::distance, "Distance, azimuth and both positions for each line, row or contact.",
         pairs);
    says(Command::convert, "One position in all notations for each line, row or contact.",
         "LINE: JO20AW, \"50.9375 4.041667\", ");
    says(Command::map, "A map (SVG) around Home with the Target of each line, row or contact.",
         pairs);
}

TEST(Help, HasEachOptionOfItsCommandAndNoOther) {
    for (const Command command : {Command::distance, Command::convert, Command::map}) {
        const std::string text = helpText(command);
        for (const OptionRow& option : optionTable()) {
            const std::string name =
                option.name.empty() ? "\n  -o" : "\n      --" + std::string(option.name);
            const bool isThere = text.find(name + " ") != std::string::npos;
            EXPECT_EQ(isThere, isOptionOf(option, command)) << name;
            EXPECT_EQ(text.find(option.meaning) != std::string::npos, isOptionOf(option, command))
                << name;
        }
    }
}

TEST(Version, IsTheProjects) {
    for (const char* words :
         {"--version", "distance --version", "convert --version", "map --version"})
        EXPECT_EQ(test::runBatch(words, "", "").output, "orbisgrid-batch 3.1.1\n");
}

} // namespace

} // namespace orbisgrid
