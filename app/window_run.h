#pragma once

#include "platform/font_configuration.h"
#include "settings/settings_store.h"

#include <QString>

namespace orbisgrid {

/// See WindowLibrary.
int runWindow(SettingsStore& store, const QString& programFolder, FontConfiguration& fonts,
              int& argc, char** argv);

} // namespace orbisgrid
