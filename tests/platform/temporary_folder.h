#pragma once

#include "tests/support/new_folder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace orbisgrid::test {

/// A folder of the test's own that the user "nobody" can use too; gone with this object.
class TemporaryFolder {
public:
    TemporaryFolder() {
        ::chmod(path("").c_str(), 0777); // whatever the test's user: children lose their rights
    }

    ~TemporaryFolder() {
        ::chmod(path("").c_str(), 0777);
        std::error_code error;
        std::filesystem::remove_all(m_folder, error);
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    TemporaryFolder(TemporaryFolder&&) = delete;
    TemporaryFolder& operator=(TemporaryFolder&&) = delete;

    std::string path(const std::string& name) const { return (m_folder / name).string(); }

    /// Makes a file with this content and mode.
    std::string make(const std::string& name, const std::string& content,
                     mode_t mode = 0666) const {
        std::ofstream(path(name), std::ios::binary) << content;
        ::chmod(path(name).c_str(), mode);
        return path(name);
    }

    std::string content(const std::string& name) const {
        std::ifstream file(path(name), std::ios::binary);
        return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "(no file)";
    }

    mode_t modeOf(const std::string& name) const {
        struct stat status = {};

        ::stat(path(name).c_str(), &status);
        return status.st_mode & 07777U;
    }

    /// The names of everything in the folder.
    std::set<std::string> names() const {
        std::set<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(path("")))
            found.insert(entry.path().filename().string());
        return found;
    }

    void setMode(mode_t mode) const { ::chmod(path("").c_str(), mode); }

private:
    std::filesystem::path m_folder = newFolder("platform");
};

} // namespace orbisgrid::test
