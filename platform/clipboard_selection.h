#pragma once

#include <string>
#include <vector>

#include <xcb/xcb.h>

namespace orbisgrid {

/// The CLIPBOARD selection of the X server that DISPLAY names, owned by this process through a
/// connection of its own: no toolkit, a few hundred kilobytes.
///
/// Gives out UTF8_STRING, text/plain;charset=utf-8, TEXT (as UTF8_STRING), STRING (Latin-1, "?" for
/// other characters), TARGETS, TIMESTAMP and MULTIPLE. A text beyond the server's limit for one
/// request (256 KiB at least, 16 MiB as a rule) is refused to those who ask for it.
class ClipboardSelection {
public:
    /// `utf8`: the text, given out byte for byte. Does not talk to the server yet.
    explicit ClipboardSelection(std::string utf8);
    ~ClipboardSelection();
    ClipboardSelection(const ClipboardSelection&) = delete;
    ClipboardSelection& operator=(const ClipboardSelection&) = delete;
    ClipboardSelection(ClipboardSelection&&) = delete;
    ClipboardSelection& operator=(ClipboardSelection&&) = delete;

    /// Connects and takes the selection. Result: whether it is ours now.
    bool take();

    /// Answers requests until another owner takes the selection or the server ends.
    void serve();

private:
    struct Atoms {
        xcb_atom_t clipboard, utf8String, plainUtf8, text, targets, timestamp, multiple, atomPair;
    };

    void makeWindow();
    void askServerTime();
    bool internAtoms();
    bool awaitServerTime();
    void answer(const xcb_selection_request_event_t& request);
    bool convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property);
    bool convertEach(xcb_window_t requestor, xcb_atom_t property);
    bool giveText(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type,
                  const std::string& bytes);

    std::string m_utf8;
    std::string m_latin1;
    xcb_connection_t* m_connection = nullptr;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    xcb_timestamp_t m_time = XCB_CURRENT_TIME;
    Atoms m_atoms{};
};

/// Whether anybody owns the CLIPBOARD of the X server that DISPLAY names; false without a server.
/// A toolkit's own word is not good enough at a program's end: after another program has cleared
/// the clipboard, QClipboard still says that it is its own.
bool clipboardHasOwner();

} // namespace orbisgrid
