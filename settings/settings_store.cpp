#include "settings/settings_store.h"

namespace orbisgrid {

bool RegistryStuff(SettingsStore& store, TextView programFolder, TextView version) {
    return store.write({{u"Path", Text(programFolder)},
                        {u"Version", Text(trimmed(version))},
                        {u"EXE", u"Orbisgrid.exe"}});
}

} // namespace orbisgrid
