#pragma once

#include "core/text.h"

#include <optional>
#include <vector>

namespace orbisgrid {

/// The application and the section under which every key of the per-user store lives.
inline constexpr TextView settingsApplication = u"ZZ9QX";
inline constexpr TextView settingsSection = u"Orbisgrid";

/// One key of the store and its text.
struct Setting {
    Text key;
    Text value;
};

/// The per-user settings store, seen from the program: texts under keys of its one section.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    /// The text under `key`; `defaultValue` where the key, the section or the whole store does not
    /// exist yet. Nothing when there is a store but it cannot be read.
    [[nodiscard]] virtual std::optional<Text> read(TextView key, TextView defaultValue) const = 0;

    /// Writes the settings in their order, all or none; keys that are not named stay as they are.
    /// Result: false when the store cannot be written; it then holds what it held before.
    [[nodiscard]] virtual bool write(const std::vector<Setting>& settings) = 0;

protected:
    SettingsStore() = default;
    SettingsStore(const SettingsStore&) = default;
    SettingsStore& operator=(const SettingsStore&) = default;
    SettingsStore(SettingsStore&&) = default;
    SettingsStore& operator=(SettingsStore&&) = default;
};

/// Records where and in which version the program runs: "Path", "Version" (trimmed) and "EXE", in
/// this order. EXE is the fixed text "Orbisgrid.exe", however the executable is
/// called. Result: false when the store cannot be written, which ends the start of the program.
[[nodiscard]] bool RegistryStuff(SettingsStore& store, TextView programFolder, TextView version);

} // namespace orbisgrid
