#pragma once

#include "settings/settings_store.h"

#include <string>

namespace orbisgrid {

/// The settings store in the file that QSettings has for this user: ZZ9QX.ini in the configuration
/// folder, group [Orbisgrid]. Other groups and keys survive a write. System-wide files of the same
/// name are not looked at.
class PerUserStore : public SettingsStore {
public:
    /// The store in the user's configuration folder, or in a file of its own (tests).
    explicit PerUserStore(std::string filePath = defaultFilePath());

    /// In XDG_CONFIG_HOME where that is an absolute path, else in ~/.config.
    static std::string defaultFilePath();

    /// As SettingsStore. A value that an editor split at a comma is read as one text again.
    std::optional<Text> read(TextView key, TextView defaultValue) const override;

    /// As SettingsStore, with the care of `saveFile`: a full disk or a kill leaves the old file or
    /// the new one. Settings that all hold their values already are not written again, but a store
    /// that may not be written is reported all the same.
    bool write(const std::vector<Setting>& settings) override;

private:
    std::string m_filePath;
};

} // namespace orbisgrid
