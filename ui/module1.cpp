#include "ui/module1.h"

#include "platform/online.h"
#include "platform/opener.h"
#include "platform/stacking.h"
#include "ui/addresses.h"
#include "ui/version.h"

#include <QWidget>
#include <QWindow>

namespace orbisgrid {

bool IsOnline() {
    return isOnline();
}

void SetTopMost(QWidget& mainWindow, bool onTop) {
    mainWindow.winId(); // makes the window that is to be put on top, if there is none yet
    setTopMost(*mainWindow.windowHandle(), onTop);
}

void OpenWebPage(QString& text) {
    if (text.isEmpty())
        text = homePageAddress();
    openAddress(text);
}

void MailAuthor() {
    openAddress(QStringLiteral("mailto:") + mailAddress() + QStringLiteral("?subject=Orbisgrid v") +
                QString::number(versionMajor) + QString::number(versionMinor) +
                QString::number(versionRevision));
}

} // namespace orbisgrid
