#pragma once

#include "settings/settings_store.h"

#include <string>

namespace orbisgrid {

/// See WindowLibrary.
int runWindow(SettingsStore& store, const std::string& programFolder, int& argc, char** argv);

} // namespace orbisgrid
