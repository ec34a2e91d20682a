#pragma once

#include "settings/settings_store.h"

#include <QString>

namespace orbisgrid {

/// See WindowLibrary.
int runWindow(SettingsStore& store, const QString& programFolder, int& argc, char** argv);

} // namespace orbisgrid
