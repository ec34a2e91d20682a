#include "ui/module1.h"

#include "platform/online.h"
#include "platform/opener.h"
#include "ui/addresses.h"
#include "ui/version.h"

#include <QWidget>
#include <QWindow>

#include <string>

namespace orbisgrid {

bool IsOnline() {
    return isOnline();
}

void SetTopMost(QWidget& mainWindow, bool onTop) {
    mainWindow.winId(); // makes the window that is to be put on top, if there is none yet
    // Not QWidget::setWindowFlag, which would hide the window and show another one in its place.
    mainWindow.windowHandle()->setFlag(Qt::WindowStaysOnTopHint, onTop);
}

void OpenWebPage(QString& text) {
    if (text.isEmpty())
        text = homePageAddress();
    openAddress(text.toStdString());
}

void MailAuthor() {
    openAddress("mailto:" + mailAddress().toStdString() + "?subject=Orbisgrid v" +
                std::to_string(versionMajor) + std::to_string(versionMinor) +
                std::to_string(versionRevision));
}

} // namespace orbisgrid
