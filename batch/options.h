#pragma once

#include "batch/batch_run.h"
#include "batch/convert.h"
#include "batch/distance.h"
#include "batch/map_task.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orbisgrid {

/// What the program is asked for.
enum class Command { none, distance, convert, map };

/// One option of the program. The help is made of it; tests hold the manual page and the completion
/// against it.
struct OptionRow {
    std::string_view name;     ///< behind "--"; empty where it has a letter alone
    char letter{};             ///< behind "-"; 0: none
    std::string_view argument; ///< what it takes, for people; empty: nothing
    std::string_view commands; ///< the first letters of those that know it
    std::string_view meaning;
};

[[nodiscard]] std::span<const OptionRow> optionTable();

/// Whether a command knows an option.
[[nodiscard]] bool isOptionOf(const OptionRow& option, Command command);

/// How an option is written: "--home LOCATOR", "-o FILE".
[[nodiscard]] std::string syntaxOf(const OptionRow& option);

/// What a command line says.
struct Invocation {
    Command command = Command::none;
    std::string shown; ///< help or version, to be printed instead of doing anything
    std::string wrong; ///< why the command line is none, in one line; empty if it is one
    RunOptions run;
    DistanceOptions distance;
    ConvertOptions convert;
    MapOptions map;                 ///< without outlines, which are not said there
    std::string outputFile;         ///< empty: standard output
    std::vector<std::string> files; ///< "-": standard input; one at least
};

/// Reads the arguments of main(). What is wrong with them stands in the result.
[[nodiscard]] Invocation readInvocation(std::span<char* const> arguments);

/// The text of --help.
[[nodiscard]] std::string helpText(Command command);

} // namespace orbisgrid
