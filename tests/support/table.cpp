#include "tests/support/table.h"

#include <cctype>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>

namespace orbisgrid::test {

namespace {

[[noreturn]] void fail(const std::string& place, const std::string& what) {
    throw std::runtime_error(place + ": " + what);
}

char unescaped(char character, const std::string& place) {
    switch (character) {
    case 't':
        return '\t';
    case 'r':
        return '\r';
    case 'n':
        return '\n';
    case '"':
    case '\\':
        return character;
    default:
        fail(place, std::string("unknown escape \\") + character);
    }
}

std::string field(const std::string& raw, const std::string& place) {
    if (!raw.starts_with('"'))
        return raw;
    std::string value;
    std::size_t i = 1;
    for (; i < raw.size() && raw[i] != '"'; ++i) {
        if (raw[i] != '\\')
            value += raw[i];
        else if (++i < raw.size())
            value += unescaped(raw[i], place);
    }
    if (i + 1 != raw.size())
        fail(place, "bad quotes: " + raw);
    return value;
}

std::vector<std::string> split(const std::string& line) {
    std::vector<std::string> parts(1);
    for (const char character : line) {
        if (character == '\t')
            parts.emplace_back();
        else
            parts.back() += character;
    }
    return parts;
}

} // namespace

Text Row::text(std::size_t column) const {
    return fromUtf8(fields.at(column));
}

double Row::number(std::size_t column) const {
    std::size_t used = 0;
    const double value = std::stod(fields.at(column), &used);
    if (used != fields.at(column).size())
        fail(place, "no number: " + fields.at(column));
    return value;
}

bool Row::flag(std::size_t column) const {
    const std::string& value = fields.at(column);
    if (value != "yes" && value != "no")
        fail(place, "neither yes nor no: " + value);
    return value == "yes";
}

std::ostream& operator<<(std::ostream& stream, const Row& row) {
    return stream << row.place << ": " << row.name;
}

std::vector<Row> readTableText(const std::string& content, const std::string& name,
                               std::size_t columns) {
    std::vector<Row> rows;
    std::set<std::string> names;
    std::istringstream stream(content);
    std::string line;
    for (int number = 1; std::getline(stream, line); ++number) {
        if (line.empty() || line.starts_with('#'))
            continue;
        const std::string place = name + ":" + std::to_string(number);
        std::vector<std::string> parts = split(line);
        if (parts.size() != columns + 1)
            fail(place,
                 std::to_string(parts.size()) + " columns, not " + std::to_string(columns + 1));
        Row row{parts.front(), {}, place};
        if (row.name.empty() || !names.insert(row.name).second)
            fail(place, "empty or repeated name: " + row.name);
        for (std::size_t i = 1; i < parts.size(); ++i)
            row.fields.push_back(field(parts[i], place));
        rows.push_back(std::move(row));
    }
    if (rows.empty())
        fail(name, "no rows");
    return rows;
}

std::vector<Row> readTable(const std::string& fileName, std::size_t columns) {
    std::ifstream file(std::string(ORBISGRID_TEST_DATA) + "/" + fileName, std::ios::binary);
    if (!file)
        fail(fileName, "cannot be read");
    std::ostringstream content;
    content << file.rdbuf();
    return readTableText(content.str(), fileName, columns);
}

std::string testName(const testing::TestParamInfo<Row>& info) {
    std::string name = std::to_string(info.index + 1) + "_";
    for (const char character : info.param.name)
        name += std::isalnum(static_cast<unsigned char>(character)) != 0 ? character : '_';
    return name;
}

} // namespace orbisgrid::test
