#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

bool isLookedAt(const fs::path& path) {
    const std::string name = path.filename();
    return !name.starts_with("build") && name != ".git" && name != ".cache";
}

/// Files below `root` with a line that a merge leaves where both sides changed the same.
std::vector<std::string> filesWithConflictMarks(const fs::path& root) {
    const std::string ours(7, '<'), theirs(7, '>');
    std::vector<std::string> found;
    for (auto entry = fs::recursive_directory_iterator(root); entry != fs::end(entry); ++entry) {
        if (!isLookedAt(entry->path())) {
            entry.disable_recursion_pending();
            continue;
        }
        std::ifstream file(entry->path(), std::ios::binary);
        for (std::string line; entry->is_regular_file() && std::getline(file, line);) {
            if (line.starts_with(ours + ' ') || line.starts_with(theirs + ' '))
                found.push_back(entry->path());
        }
    }
    return found;
}

TEST(ConflictMarks, AreInNoFile) {
    EXPECT_EQ(filesWithConflictMarks(ORBISGRID_SOURCES), std::vector<std::string>{});
}

TEST(ConflictMarks, AreFound) {
    const fs::path folder = fs::path(testing::TempDir()) / "orbisgrid-conflict-marks";
    fs::create_directories(folder);
    std::ofstream(folder / "page") << "a\n" << std::string(7, '<') << " HEAD\nb\n";
    const std::vector<std::string> found = filesWithConflictMarks(folder);
    fs::remove_all(folder);
    EXPECT_EQ(found.size(), 1U);
}

} // namespace
