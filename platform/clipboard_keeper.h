#pragma once

#include "platform/clipboard_selection.h"
#include "platform/file_descriptor.h"

#include <chrono>
#include <string>

namespace orbisgrid {

/// Hands a text to a process that keeps it on the clipboard after this one has ended.
///
/// For programs without threads, that is before any QApplication: it forks. And for programs that
/// end soon: the keeper is their child until then. It is in a session of its own and holds nothing
/// of the caller's: no terminal, no pipe, no folder. It lives until another owner takes the
/// clipboard or the display ends (with wl-copy that tool does).
class ClipboardHandover {
public:
    /// Starts the keeper and returns at once, so that the caller can print while the keeper takes
    /// the clipboard. `utf8`: the text, kept byte for byte. The route is `clipboardRoute()`.
    static ClipboardHandover start(const std::string& utf8);

    /// To be called once. Waits until the text is on the clipboard. Result: false when it is not
    /// (no display, no server, or `longest` has passed without an answer).
    bool wait(std::chrono::milliseconds longest = std::chrono::seconds(3));

private:
    FileDescriptor m_answer; ///< one byte comes when the clipboard is taken
};

/// The second way in, for a running window: it has threads, so the keeper is the executable started
/// again in this role. The role is named in the environment (ORBISGRID_ROLE=clipboard-keeper), as
/// arguments have their own meaning. main() asks this before anything else.
bool isClipboardKeeperRole();

/// That role: hands the text on standard input over. Result: the exit status, 0 when the text is on
/// the clipboard.
int runClipboardKeeper();

/// Starts `executable` (a path) in the keeper's role with a text in UTF-8; returns once it is on
/// the clipboard. Result: whether it is.
bool startClipboardKeeper(const std::string& executable, const std::string& utf8);

} // namespace orbisgrid
