#pragma once

#include "core/text.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

namespace orbisgrid::test {

/// One named row of a data file.
struct Row {
    std::string name;                ///< first column: the case in words
    std::vector<std::string> fields; ///< the other columns, UTF-8
    std::string place;               ///< file and line, for failure messages

    Text text(std::size_t column) const;     ///< a field as the program's text
    double number(std::size_t column) const; ///< a field as a double; throws if it is none
    bool flag(std::size_t column) const;     ///< "yes" or "no"; throws otherwise
};

std::ostream& operator<<(std::ostream& stream, const Row& row);

/// The rows of tests/data/<fileName>.
///
/// Format: UTF-8; lines that begin with "#" are comments (they name columns and units), empty lines
/// are skipped. Columns are separated by single tabs, the first one names the row. A field in
/// double quotes shows its blanks; inside it \" \\ \t \r \n are escapes.
///
/// Throws std::runtime_error for a missing or empty file, a row whose number of columns behind the
/// name is not `columns`, a bad quote, an empty or repeated name.
std::vector<Row> readTable(const std::string& fileName, std::size_t columns);

/// The same, of rows given as text (for tests of the reader).
std::vector<Row> readTableText(const std::string& content, const std::string& name,
                               std::size_t columns);

/// Turns a row's name into the name of a value-parameterised test.
std::string testName(const testing::TestParamInfo<Row>& info);

} // namespace orbisgrid::test
