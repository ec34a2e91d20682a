#pragma once

#include <QString>

class QWidget;

namespace orbisgrid {

/// Whether the machine has a way to the internet.
bool IsOnline();

/// Keeps the main window above all others, or no longer. A window that is on the screen stays
/// there: it is neither hidden nor moved nor made anew; one that is not yet shown comes up in its
/// place in the stack. Where the window system has no such order (Wayland) nothing happens.
void SetTopMost(QWidget& mainWindow, bool onTop);

/// Opens a web page with the desktop's browser. An empty text becomes the author's home page, in
/// the caller's variable too. Whether it opened is not looked at.
void OpenWebPage(QString& text);

/// Opens a mail to the author with the desktop's mail program. The subject names the program and
/// its version's numbers without points between them ("Orbisgrid v311").
void MailAuthor();

} // namespace orbisgrid
