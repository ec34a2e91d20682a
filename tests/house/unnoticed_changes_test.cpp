#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace orbisgrid {

namespace {

constexpr std::string_view opening = "⟦", arrow = " → ", closing = "⟧";

/// A change as docs/mutation.md names it: `file: line of it with ⟦old → new⟧`.
struct Change {
    std::string file;
    std::string line; ///< as it stands in the file
};

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<Change> changesIn(const std::string& page) {
    std::vector<Change> changes;
    for (std::size_t mark = page.find(opening); mark != std::string::npos;
         mark = page.find(opening, mark + 1)) {
        const std::size_t begin = page.rfind('`', mark) + 1;
        const std::size_t colon = page.find(": ", begin);
        const std::size_t behindOld = page.find(arrow, mark);
        const std::size_t behindNew = page.find(closing, mark);
        const std::size_t end = page.find('`', mark);
        if (colon > mark || behindOld > behindNew || behindNew > end || end == std::string::npos)
            continue; // the sentence that says how they are marked
        const std::size_t old = mark + opening.size(), rest = behindNew + closing.size();
        changes.push_back({page.substr(begin, colon - begin),
                           page.substr(colon + 2, mark - colon - 2) +
                               page.substr(old, behindOld - old) + page.substr(rest, end - rest)});
    }
    return changes;
}

/// Without blanks in front, and with one for several.
std::string withSingleBlanks(const std::string& line) {
    std::istringstream words(line);
    std::string text, word;
    while (words >> word)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

std::set<std::string> linesOf(const std::filesystem::path& path) {
    std::set<std::string> lines;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);)
        lines.insert(withSingleBlanks(line));
    return lines;
}

TEST(UnnoticedChanges, AreOfLinesThatAreThere) {
    const std::filesystem::path sources(ORBISGRID_SOURCES);
    const auto changes = changesIn(contentOf(sources / "docs/mutation.md"));
    EXPECT_GT(changes.size(), 100U);
    std::map<std::string, std::set<std::string>> lines;
    for (const auto& [file, line] : changes) {
        if (!lines.contains(file))
            lines[file] = linesOf(sources / file);
        EXPECT_TRUE(lines[file].contains(withSingleBlanks(line))) << file << ": " << line;
    }
}

TEST(UnnoticedChanges, AreReadAsTheyAreWritten) {
    const auto changes = changesIn("Marked ⟦old → new⟧.\n- `core/a.cpp: i ⟦< → <=⟧ n;`: why; and\n"
                                   "  `core/b.h: ⟦f → ⟧(x)`.\n");
    ASSERT_EQ(changes.size(), 2U);
    EXPECT_EQ(changes[0].file, "core/a.cpp");
    EXPECT_EQ(changes[0].line, "i < n;");
    EXPECT_EQ(changes[1].line, "f(x)");
}

} // namespace

} // namespace orbisgrid
