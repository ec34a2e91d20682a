#pragma once

#include "settings/settings_store.h"

#include <QString>

namespace orbisgrid {

/// Runs the main window until it is closed or the session ends. Result: the exit status. There must
/// be no QApplication yet. Without a display it says so in a line on standard error, status 1.
int runWindow(SettingsStore& store, const QString& programFolder, int& argc, char** argv);

} // namespace orbisgrid
