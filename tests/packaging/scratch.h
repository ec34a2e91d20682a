#pragma once

#include "tests/support/child.h"

#include <filesystem>
#include <set>
#include <string>

namespace orbisgrid::test {

/// A folder of the test's own that every user may use; gone with this object.
class Scratch {
public:
    Scratch();
    ~Scratch();
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    Scratch(Scratch&&) = delete;
    Scratch& operator=(Scratch&&) = delete;

    std::filesystem::path path(const std::string& name) const { return m_root / name; }

private:
    std::filesystem::path m_root;
};

/// Packs with cpack into a folder. Result: the package; the test fails where there is none.
std::filesystem::path pack(const std::string& generator, const std::filesystem::path& folder);

/// Every file and link below a folder, by its path from there. Folders are left out.
std::set<std::string> filesBelow(const std::filesystem::path& folder);

/// The bytes of a file; "(no file)" where there is none.
std::string contentOf(const std::filesystem::path& file);

void writeFile(const std::filesystem::path& file, const std::string& content);

/// The start of a command line that runs a program as in a fresh session of a user with this home
/// folder, without a display: nothing of the test's environment but PATH. It is ended after 20
/// seconds: without an INI file it would wait for ever.
std::string freshSession(const std::filesystem::path& home);

/// The same with the test's display.
std::string freshDesktopSession(const std::filesystem::path& home);

/// What the program prints for JO20AW FN42AA begins with this.
extern const std::string reportStart;

} // namespace orbisgrid::test
