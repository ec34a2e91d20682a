// Writes the corpus of every target from the rows of tests/data: one file for each row, named like
// it, in <folder>/<target>. A row that is added is therefore an input from the next build on.

#include "tests/support/hexadecimal.h"
#include "tests/support/ini_text.h"
#include "tests/support/table.h"

#include <cctype>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <stdexcept>
#include <string_view>

namespace {

using orbisgrid::test::IniText;
using orbisgrid::test::Row;

/// What a target reads of the rows of a table.
struct Source {
    std::string target;
    std::string table;
    std::function<std::string(const Row&)> content;
};

std::function<std::string(const Row&)> column(const std::string& name) {
    return [name](const Row& row) { return row[name]; };
}

std::string linesOfActions(const Row& row) {
    const std::string& actions = row["actions"];
    const std::string_view separator = " | ";
    std::string lines;
    for (std::size_t start = 0, end = 0; end != std::string::npos; start = end + separator.size()) {
        end = actions.find(separator, start);
        lines.append(actions, start, end == std::string::npos ? end : end - start).push_back('\n');
    }
    return lines;
}

std::string calculation(const Row& row) {
    return std::string("C ").append(row["home"]).append(";").append(row["target"]);
}

IniText filledIni() {
    IniText ini;
    ini.defaultHome = "JO20AW";
    ini.defaultTarget = "FN42AA";
    ini.homeLines = "JO20\r\n";
    ini.remember = " 1 ";
    ini.left = " 1440 ";
    return ini;
}

std::string iniOfList(const Row& row) {
    IniText ini = filledIni();
    ini.homeLines = row["lines"];
    return ini.bytes();
}

std::string iniOfNote(const Row& row) {
    IniText ini = filledIni();
    ini.titleNote = row["line 2"];
    return ini.bytes();
}

std::string iniOfNumber(const Row& row) {
    IniText ini = filledIni();
    ini.left = row["line"];
    return ini.bytes();
}

/// A map of 20,000 km around 0 north 0 east with day and night and a home, and a target.
std::string mapWithHome(const Row& row) {
    const std::string options("\x0C\0\0\0\0\xE8\x03\x10\x20\x04", 10);
    return options + row["text"] + "\n" + std::string("\x20\x01\x20\0", 4) + row["text"];
}

std::vector<Source> sources() {
    return {{"number_text", "number_leading", column("text")},
            {"number_text", "number_text", column("double")},
            {"maidenhead", "maidenhead_decode", column("locator")},
            {"maidenhead", "locator_check", column("locator")},
            {"long_maidenhead", "long_maidenhead_decode", column("locator")},
            {"uiview", "uiview_read", column("text")},
            {"uiview", "uiview_write", column("text")},
            {"angles", "angles_convert_decimal", column("text")},
            {"angles", "angles_convert_degree", column("text")},
            {"locator_list_ini", "ini_list_lines", iniOfList},
            {"locator_list_ini", "ini_title_note", iniOfNote},
            {"locator_list_ini", "ini_number_fields", iniOfNumber},
            {"manual_search", "manual_text",
             [](const Row& row) {
                 return std::string("one\nONE\nline\n\n").append(row["bytes of the file"]);
             }},
            {"command_line", "command_line", column("arguments")},
            {"records_lines", "records_lines", column("bytes")},
            {"records_csv", "records_csv", column("bytes")},
            {"records_adif", "records_adif", column("bytes")},
            {"position_text", "position_text", column("text")},
            {"map", "map_caption",
             [](const Row& row) { return row["home"] + "\n" + row["target"] + "\n"; }},
            {"map", "map_svg_text", mapWithHome},
            {"map_outlines", "map_outlines",
             [](const Row& row) { return orbisgrid::test::bytesOfHexadecimal(row["bytes"]); }},
            {"converter", "converter_chains", linesOfActions},
            {"converter", "calculate", calculation},
            {"converter", "converter_paste",
             [](const Row& row) { return std::string("P ").append(row["clipboard"]); }},
            {"window", "converter_chains", linesOfActions},
            {"window", "calculate", calculation}};
}

std::string fileName(const std::string& table, const std::string& row) {
    std::string name = table + "-";
    for (const char character : row)
        name += std::isalnum(static_cast<unsigned char>(character)) != 0 ? character : '-';
    return name;
}

void write(const std::filesystem::path& folder) {
    std::filesystem::remove_all(folder);
    for (const Source& source : sources()) {
        std::filesystem::create_directories(folder / source.target);
        for (const Row& row : orbisgrid::test::readTable(source.table + ".tsv")) {
            const auto path = folder / source.target / fileName(source.table, row.name);
            if (std::filesystem::exists(path))
                throw std::runtime_error(row.place + ": another row has its file name");
            std::ofstream(path, std::ios::binary) << source.content(row);
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2)
        return 2;
    try {
        write(argv[1]);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "corpus: " << error.what() << '\n';
        return 1;
    }
}
