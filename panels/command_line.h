#pragma once

#include "panels/locator_converter_form.h"

#include <string_view>
#include <vector>

namespace orbisgrid {

/// What a command line asks for.
struct CommandLine {
    enum class Job {
        none,    ///< open the window
        convert, ///< "-C" and a locator: one position in all notations
        distance ///< two locators with a blank between
    };

    Job job = Job::none;
    Text first;  ///< convert: the locator; distance: Home
    Text second; ///< distance: Target
};

/// What a job leaves.
struct JobResult {
    Text clipboard;       ///< goes to the clipboard, whether refused or not
    Text printed;         ///< goes to standard output unless refused
    bool refused = false; ///< a message was shown on the way
};

/// The arguments behind the program's name as one text, joined by blanks.
[[nodiscard]] Text joinedArguments(const std::vector<std::string_view>& arguments);

/// Which job `arguments` ask for. They are upper-cased; 3 characters or fewer, or a longer text
/// that neither starts with "-C" nor holds a blank, ask for none. The first blank separates Home
/// and Target.
[[nodiscard]] CommandLine readCommandLine(TextView arguments);

/// Runs a job on the panels, as the buttons would: convert presses the locator panel's OK and its
/// copy button and prints what copy-all would give; distance presses Calculate and copies and
/// prints its report. Nothing for Job::none.
[[nodiscard]] JobResult runJob(const CommandLine& commandLine, LocatorConverterForm& form,
                               Messages& messages);

} // namespace orbisgrid
