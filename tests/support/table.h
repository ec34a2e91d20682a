#pragma once

#include "core/text.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace orbisgrid::test {

/// One named row of a data file. Its fields are reached by the names of their columns; an unknown
/// name throws std::runtime_error.
class Row {
public:
    std::string name;  ///< first column: the case in words
    std::string place; ///< file and line, for failure messages

    const std::string& operator[](std::string_view column) const; ///< UTF-8

    Text text(std::string_view column) const;     ///< a field as the program's text
    double number(std::string_view column) const; ///< a field as a double; throws if it is none
    bool flag(std::string_view column) const;     ///< "yes" or "no"; throws otherwise

private:
    friend class TableReader;
    std::map<std::string, std::string, std::less<>> m_fields;
};

std::ostream& operator<<(std::ostream& stream, const Row& row);

/// The rows of tests/data/<fileName>.
///
/// Format: UTF-8; lines that begin with "#" are comments (units, and where the expected values come
/// from), empty lines are skipped. The first other line is the header: the names of the columns,
/// "name" first. Columns are separated by single tabs. A field in double quotes shows its blanks;
/// inside it \" \\ \t \r \n are escapes.
///
/// Throws std::runtime_error for a missing or empty file, a header without "name" in front or with
/// a column twice, a row with more or fewer columns than it, a bad quote, an empty or repeated
/// name, two rows with the same fields.
std::vector<Row> readTable(const std::string& fileName);

/// The same, of rows given as text (for tests of the reader).
std::vector<Row> readTableText(const std::string& content, const std::string& name);

/// Turns a row's name into the name of a value-parameterised test.
std::string testName(const testing::TestParamInfo<Row>& info);

} // namespace orbisgrid::test
