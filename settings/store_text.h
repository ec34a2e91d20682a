#pragma once

#include "core/text.h"
#include "settings/settings_store.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orbisgrid {

/// The text of the per-user store: the INI format of QSettings (UTF-8, `[group]`, `key=value`,
/// values with backslash escapes, in double quotes where a sign would mislead). Written here
/// because the program's start reads and changes it twice: QSettings takes milliseconds for that,
/// and on a full disk it replaces a good file by an empty one.

/// The value of `key` in the program's section, escapes and quotes resolved; the last one where it
/// stands more than once. Nothing when the section or the key is not there.
[[nodiscard]] std::optional<Text> storedValue(std::string_view content, TextView key);

/// `content` with these settings in the program's section. Lines of other keys and sections stay
/// byte for byte; a key that is there keeps its place, a new one comes to the end of the section, a
/// missing section to the end of the file. Keys are plain words.
[[nodiscard]] std::string withStoredValues(std::string_view content,
                                           const std::vector<Setting>& settings);

} // namespace orbisgrid
