#pragma once

#include "settings/settings_store.h"

#include <QString>

namespace orbisgrid {

/// Runs the main window until it is closed or the session ends. Result: the exit status. A display
/// must be there, and no QApplication.
int runWindow(SettingsStore& store, const QString& programFolder, int& argc, char** argv);

} // namespace orbisgrid
