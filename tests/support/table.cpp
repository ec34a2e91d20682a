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

/// Reads a table line by line and refuses what a hand that edits it may get wrong.
class TableReader {
public:
    explicit TableReader(std::string name)
        : m_name(std::move(name)) {}

    std::vector<Row> rows(const std::string& content) {
        std::istringstream stream(content);
        std::string line;
        for (int number = 1; std::getline(stream, line); ++number) {
            if (line.empty() || line.starts_with('#'))
                continue;
            const std::string place = m_name + ":" + std::to_string(number);
            if (m_columns.empty())
                readHeader(split(line), place);
            else
                readRow(split(line), place);
        }
        if (m_rows.empty())
            fail(m_name, "no rows");
        return std::move(m_rows);
    }

private:
    void readHeader(std::vector<std::string> columns, const std::string& place) {
        if (columns.front() != "name" || columns.size() < 2)
            fail(place, "a header begins with the column \"name\"");
        const std::set<std::string> different(columns.begin(), columns.end());
        if (different.size() != columns.size() || different.contains(""))
            fail(place, "an empty or repeated column");
        m_columns = std::move(columns);
    }

    void readRow(const std::vector<std::string>& parts, const std::string& place) {
        if (parts.size() != m_columns.size())
            fail(place, std::to_string(parts.size()) + " columns, not " +
                            std::to_string(m_columns.size()));
        Row row;
        row.name = parts.front();
        row.place = place;
        if (row.name.empty() || !m_names.insert(row.name).second)
            fail(place, "empty or repeated name: " + row.name);
        for (std::size_t i = 1; i < parts.size(); ++i)
            row.m_fields.emplace(m_columns[i], field(parts[i], place));
        if (const auto [same, isNew] = m_contents.emplace(row.m_fields, row.name); !isNew)
            fail(place, "the same row as: " + same->second);
        m_rows.push_back(std::move(row));
    }

    std::string m_name;
    std::vector<std::string> m_columns; ///< empty until the header has been read
    std::set<std::string> m_names;
    std::map<std::map<std::string, std::string, std::less<>>, std::string> m_contents;
    std::vector<Row> m_rows;
};

const std::string& Row::operator[](std::string_view column) const {
    const auto found = m_fields.find(column);
    if (found == m_fields.end())
        fail(place, "no such column: " + std::string(column));
    return found->second;
}

Text Row::text(std::string_view column) const {
    return fromUtf8((*this)[column]);
}

double Row::number(std::string_view column) const {
    const std::string& value = (*this)[column];
    std::size_t used = 0;
    const double number = std::stod(value, &used);
    if (used != value.size())
        fail(place, "no number: " + value);
    return number;
}

bool Row::flag(std::string_view column) const {
    const std::string& value = (*this)[column];
    if (value != "yes" && value != "no")
        fail(place, "neither yes nor no: " + value);
    return value == "yes";
}

std::ostream& operator<<(std::ostream& stream, const Row& row) {
    return stream << row.place << ": " << row.name;
}

std::vector<Row> readTableText(const std::string& content, const std::string& name) {
    return TableReader(name).rows(content);
}

std::vector<Row> readTable(const std::string& fileName) {
    std::ifstream file(std::string(ORBISGRID_TEST_DATA) + "/" + fileName, std::ios::binary);
    if (!file)
        fail(fileName, "cannot be read");
    std::ostringstream content;
    content << file.rdbuf();
    return readTableText(content.str(), fileName);
}

std::string testName(const testing::TestParamInfo<Row>& info) {
    std::string name = std::to_string(info.index + 1) + "_";
    for (const char character : info.param.name)
        name += std::isalnum(static_cast<unsigned char>(character)) != 0 ? character : '_';
    return name;
}

} // namespace orbisgrid::test
