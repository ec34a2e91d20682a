#include "batch/options.h"

#include "batch/box_text.h"
#include "batch/message_text.h"
#include "core/number_text.h"
#include "records/format.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <getopt.h>
#include <optional>
#include <utility>

namespace orbisgrid {

namespace {

constexpr std::string_view programName = "orbisgrid-batch";

constexpr std::array table{
    OptionRow{"home", 0, "LOCATOR", "dm", "Home of every line that names none"},
    OptionRow{"from", 0, "NOTATION", "c", "auto (if not given), locator, decimal, dms or uiview"},
    OptionRow{"characters", 0, "NUMBER", "c", "length of the locator written: 6, 8 or 10"},
    OptionRow{"radius", 0, "KM", "m", "how far the map reaches: 100 to 20003, the world"},
    OptionRow{"at", 0, "UTC", "m", "day and night at a moment: 2026-06-21T12:00:00Z"},
    OptionRow{"input", 0, "FORMAT", "dcm", "lines, csv, tsv or adif; guessed if not given"},
    OptionRow{"output", 0, "FORMAT", "dc", "the same as the input, or json (one object a line)"},
    OptionRow{"home-column", 0, "NAME", "dm", "column of Home (my_gridsquare, home)"},
    OptionRow{"target-column", 0, "NAME", "dcm",
              "column of the Target (gridsquare, target, locator)"},
    OptionRow{"header", 0, {}, "dcm", "the first of the lines is a header"},
    OptionRow{"long-path", 0, {}, "d", "the way round the other side as well"},
    OptionRow{"ellipsoid", 0, {}, "d", "the distance on WGS-84 as well"},
    OptionRow{"replace", 0, {}, "dc", "write results anew that are there already"},
    OptionRow{{}, 'o', "FILE", "dcm", "write to FILE, which is replaced when all is done"},
    OptionRow{"strict", 0, {}, "dcm", "stop at the first line that is refused"},
    OptionRow{"quiet", 0, {}, "dcm", "say nothing about lines that are refused"},
    OptionRow{"help", 0, {}, "dcm", "show this text"},
    OptionRow{"version", 0, {}, "dcm", "show the version"},
};

std::string_view nameOf(Command command) {
    if (command == Command::map)
        return "map";
    return command == Command::distance ? "distance" : "convert";
}

/// What a command is for, in a line of its help.
std::string_view purposeOf(Command command) {
    if (command == Command::map)
        return "A map (SVG) around Home with the Target of each line, row or contact.";
    return command == Command::distance
               ? "Distance, azimuth and both positions for each line, row or contact."
               : "One position in all notations for each line, row or contact.";
}

std::string_view exampleOf(Command command) {
    return command == Command::convert
               ? "LINE: JO20AW, \"50.9375 4.041667\", \"50°56'15\"N 4°2'30\"E\" ..."
               : "LINE: \"JO20AW FN42AA\", or one locator and --home.";
}

std::string versionLine() {
    return "orbisgrid-batch " ORBISGRID_VERSION "\n";
}

/// Takes the options one by one into an invocation.
class InvocationReader {
public:
    explicit InvocationReader(Command command) { m_call.command = command; }

    Invocation read(std::span<char* const> arguments);

private:
    void take(const OptionRow& option, const std::string& value);
    void takeFormat(std::optional<Format>& format, bool isInput, const std::string& value);
    void takeOutputFile(const std::string& name);
    void refuse(const std::string& why);
    void finish();

    Invocation m_call;
};

/// What getopt_long is told: numbers of rows above those of characters.
constexpr int firstRow = 256;

std::vector<option> longOptions(Command command) {
    std::vector<option> options;
    for (std::size_t i = 0; i < table.size(); ++i) {
        const OptionRow& row = table.at(i);
        if (!row.name.empty() && isOptionOf(row, command))
            options.push_back({row.name.data(),
                               row.argument.empty() ? no_argument : required_argument, nullptr,
                               firstRow + static_cast<int>(i)});
    }
    options.emplace_back(); // where they end
    return options;
}

const OptionRow* rowOf(int found) {
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (found == firstRow + static_cast<int>(i) || found == table.at(i).letter)
            return &table.at(i);
    }
    return nullptr;
}

/// The option that getopt has not understood. A letter may be one of several in a word, which is
/// then not behind it yet.
std::string wordAbout(const std::vector<char*>& words) {
    if (optopt != 0 && optopt < firstRow)
        return std::string("-") + static_cast<char>(optopt);
    return words[static_cast<std::size_t>(optind - 1)];
}

Invocation InvocationReader::read(std::span<char* const> arguments) {
    const std::vector<option> options = longOptions(m_call.command);
    std::vector<char*> words(arguments.begin(), arguments.end());
    words.push_back(nullptr);
    optind = 0; // to begin anew
    while (m_call.wrong.empty() && m_call.shown.empty()) {
        // One thread and one call of the program: its variables are nobody else's.
        const int found = ::getopt_long(static_cast<int>(arguments.size()), words.data(),
                                        // The colon: what is wrong is said here.
                                        ":o:", // NOLINT(concurrency-mt-unsafe)
                                        options.data(), nullptr);
        if (found == -1)
            break;
        const std::string word = wordAbout(words);
        if (const OptionRow* row = rowOf(found))
            take(*row, optarg == nullptr ? std::string() : optarg);
        else if (found == ':')
            refuse(word + " needs an argument");
        else
            refuse("unknown option " + word);
    }
    for (auto word = static_cast<std::size_t>(optind); word < arguments.size(); ++word)
        m_call.files.emplace_back(words[word]);
    finish();
    return std::move(m_call);
}

void InvocationReader::takeFormat(std::optional<Format>& format, bool isInput,
                                  const std::string& value) {
    format = formatNamed(value);
    if (!format || (isInput && format == Format::json))
        refuse("unknown format " + value);
}

void InvocationReader::take(const OptionRow& option, const std::string& value) {
    const std::string_view name = option.name;
    if (name == "home") {
        m_call.distance.home = value;
        m_call.map.home = value;
        if (!isLocator(value))
            refuse("Invalid locator! (" + value + ")");
    } else if (name == "from") {
        const auto notation = notationNamed(value);
        if (!notation)
            refuse("unknown notation " + value);
        m_call.convert.from = notation.value_or(Notation::automatic);
    } else if (name == "characters") {
        if (value != "6" && value != "8" && value != "10")
            refuse("a locator has 6, 8 or 10 characters and not " + value);
        m_call.convert.characters = value == "6" ? 6 : value == "8" ? 8 : 10;
    } else if (name == "radius") {
        const auto radius = strictNumber(fromUtf8(value));
        if (radius && *radius >= smallestRadius && *radius <= std::ceil(halfCircumference))
            m_call.map.radiusKilometres = std::min(*radius, halfCircumference);
        else
            refuse("a radius is 100 to 20003 km and not " + value);
    } else if (name == "at") {
        m_call.map.moment = parsedMoment(value);
        if (!m_call.map.moment)
            refuse("a moment is like 2026-06-21T12:00:00Z and not " + value);
    } else if (name == "input") {
        takeFormat(m_call.run.input, true, value);
    } else if (name == "output") {
        takeFormat(m_call.run.output, false, value);
    } else if (name == "home-column") {
        m_call.run.list.homeColumn = value;
    } else if (name == "target-column") {
        m_call.run.list.targetColumn = value;
    } else if (name == "header") {
        m_call.run.list.hasHeader = true;
    } else if (name == "long-path") {
        m_call.distance.isLongPath = true;
    } else if (name == "ellipsoid") {
        m_call.distance.isEllipsoid = true;
    } else if (name == "replace") {
        m_call.run.list.isReplacing = true;
    } else if (option.letter == 'o') {
        takeOutputFile(value);
    } else if (name == "strict") {
        m_call.run.isStrict = true;
    } else if (name == "quiet") {
        m_call.run.isQuiet = true;
    } else if (name == "help") {
        m_call.shown = helpText(m_call.command);
    } else {
        m_call.shown = versionLine();
    }
}

void InvocationReader::takeOutputFile(const std::string& name) {
    if (name.empty())
        refuse("-o needs the name of a file");
    // As among the lists no file; by its other name it would be a file that takes its own place.
    const bool isStream = name == "-" || name == "/dev/stdout";
    m_call.outputFile = isStream ? "" : name;
}

void InvocationReader::refuse(const std::string& why) {
    m_call.wrong = std::string(programName) + ": " + printable(why) + " (see " +
                   std::string(programName) + " " + std::string(nameOf(m_call.command)) +
                   " --help)";
}

void InvocationReader::finish() {
    if (m_call.files.empty())
        m_call.files.emplace_back("-");
    if (!m_call.outputFile.empty())
        m_call.run.outputName = m_call.outputFile;
}

std::string generalHelp() {
    return "Usage: orbisgrid-batch COMMAND [OPTION]... [FILE]...\n"
           "Works a whole list or log: each line goes out as it came, with its results.\n"
           "\n"
           "Commands:\n"
           "  distance   distance, azimuth and both positions of two locators\n"
           "  convert    one position in all notations\n"
           "  map        a map around Home with all Targets, as SVG\n"
           "\n"
           "orbisgrid-batch COMMAND --help shows the options of a command.\n"
           "      --help     show this text\n"
           "      --version  show the version\n";
}

} // namespace

std::span<const OptionRow> optionTable() {
    return table;
}

std::string syntaxOf(const OptionRow& option) {
    std::string text = option.letter != 0 ? std::string("-") + option.letter
                                          : std::string("--").append(option.name);
    if (!option.argument.empty())
        text.append(" ").append(option.argument);
    return text;
}

bool isOptionOf(const OptionRow& option, Command command) {
    return option.commands.find(nameOf(command).front()) != std::string_view::npos;
}

Invocation readInvocation(std::span<char* const> arguments) {
    const std::string_view first = arguments.size() > 1 ? arguments[1] : "";
    Invocation call;
    for (const Command command : {Command::distance, Command::convert, Command::map}) {
        if (first == nameOf(command))
            return InvocationReader(command).read(arguments.subspan(1));
    }
    if (first == "--help")
        call.shown = helpText(Command::none);
    else if (first == "--version")
        call.shown = versionLine();
    else if (first.empty())
        call.wrong = "orbisgrid-batch: no command (see orbisgrid-batch --help)";
    else
        call.wrong = std::string("orbisgrid-batch: unknown command ")
                         .append(printable(first))
                         .append(" (see orbisgrid-batch --help)");
    return call;
}

std::string helpText(Command command) {
    if (command == Command::none)
        return generalHelp();
    constexpr std::size_t column = 28;
    std::string text = "Usage: orbisgrid-batch ";
    text.append(nameOf(command)).append(" [OPTION]... [FILE]...\n").append(purposeOf(command));
    text += "\nWithout FILE, or where it is -, reads the standard input.\n\n";
    for (const OptionRow& option : table) {
        if (!isOptionOf(option, command))
            continue;
        std::string line = option.letter != 0 ? "  " : "      ";
        line += syntaxOf(option);
        line.resize(column, ' ');
        text.append(line).append(option.meaning) += '\n';
    }
    text.append("\n").append(exampleOf(command)).append("\n");
    text += "Exit status: 0 all passed, 1 some refused, 2 wrong usage or a file that failed.\n";
    return text;
}

} // namespace orbisgrid
