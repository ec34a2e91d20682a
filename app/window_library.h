#pragma once

#include "panels/message.h"
#include "settings/settings_store.h"

#include <string>
#include <string_view>
#include <vector>

namespace orbisgrid {

/// What needs Qt. It is a file of its own beside the executable, orbisgrid-window.so, as to load Qt
/// would take four fifths of the time of a job on the command line, which has no use for it.
struct WindowLibrary {
    /// The version that it was built as. It and the executable share types: only one of the same
    /// version is used.
    std::u16string_view version;

    /// Runs the main window until it is closed or the session ends. Result: the exit status. There
    /// must be no QApplication and no other thread yet. Without a display, or without what Qt needs
    /// for it, it says so in a line on standard error, status 1.
    int (*runWindow)(SettingsStore& store, const std::string& programFolder, int& argc,
                     char** argv);

    /// Says the messages in another way.
    using Otherwise = void (*)(const std::vector<Message>& messages);

    /// Shows message boxes without a window, one after the other. There must be no QApplication
    /// yet. Where none can be made, it calls `otherwise` and ends the process with status 1.
    void (*showMessages)(const std::vector<Message>& messages, int& argc, char** argv,
                         Otherwise otherwise);
};

/// Loads the library; it stays loaded. Result: nothing where it cannot be loaded, after a line on
/// standard error that says why.
const WindowLibrary* loadWindowLibrary();

} // namespace orbisgrid
