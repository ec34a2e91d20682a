#include "tests/packaging/scratch.h"

#include "tests/support/new_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace orbisgrid::test {

namespace fs = std::filesystem;

const std::string reportStart = "Home locator  :JO20AW\n"
                                "Target Locator:FN42AA\n"
                                "Distance:5637 Km\n";

Scratch::Scratch()
    : m_root(newFolder("package")) {
    fs::permissions(m_root, fs::perms::all);
}

Scratch::~Scratch() {
    std::error_code error;
    fs::remove_all(m_root, error);
}

fs::path pack(const std::string& generator, const fs::path& folder) {
    const ShellResult packed =
        shell(ORBISGRID_CPACK " -G " + generator + " -B '" + folder.string() +
              "' --config " ORBISGRID_BUILD "/CPackConfig.cmake 2>&1");
    EXPECT_EQ(packed.status, 0) << packed.output;
    for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string extension = entry.path().extension().string();
        if (extension == ".gz" || extension == ".deb")
            return entry.path();
    }
    throw std::runtime_error("no package: " + packed.output);
}

std::set<std::string> filesBelow(const fs::path& folder) {
    std::set<std::string> found;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_symlink() || !entry.is_directory())
            found.insert(entry.path().lexically_relative(folder).string());
    }
    return found;
}

std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return stream ? std::string(std::istreambuf_iterator<char>(stream), {}) : "(no file)";
}

void writeFile(const fs::path& file, const std::string& content) {
    std::ofstream(file, std::ios::binary) << content;
}

std::string freshSession(const fs::path& home) {
    return "cd / && exec timeout 20 env -i PATH=\"$PATH\" HOME='" + home.string() + "' ";
}

std::string freshDesktopSession(const fs::path& home) {
    return R"(env -i PATH="$PATH" DISPLAY="$DISPLAY" DBUS_SESSION_BUS_ADDRESS=disabled: HOME=')" +
           home.string() + "' ";
}

} // namespace orbisgrid::test
