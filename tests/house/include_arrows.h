#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace orbisgrid::test {

/// Compares every #include of the rooms below `root` with the arrows that are allowed:
/// a room includes itself and the rooms its arrows lead to, always from the root ("core/text.h");
/// nothing but ui/ and app/window/ includes Qt, and nothing but platform/ any other header than
/// ours and the standard library's. What of app/ is the executable's takes nothing from where Qt is
/// but the version. Result: one line for each include that breaks a rule, "file: include: why".
std::vector<std::string> brokenArrows(const std::filesystem::path& root);

} // namespace orbisgrid::test
