#pragma once

#include "core/text.h"

namespace orbisgrid {

enum class MessageIcon { none, information, exclamation, question };

/// A message box: fixed text, title and icon, an OK button. An empty title stands for the
/// application's own.
struct Message {
    Text text;
    Text title;
    MessageIcon icon = MessageIcon::none;
};

/// Where the panels show a message, at once and in the middle of what they do: the window opens a
/// box, the command line turns it into a refusal, a test records it.
class Messages {
public:
    Messages() = default;
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;
    virtual ~Messages() = default;

    /// Returns when the message has been seen.
    virtual void show(const Message& message) = 0;
};

} // namespace orbisgrid
