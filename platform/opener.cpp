#include "platform/opener.h"

#include <QProcess>
#include <QStringList>

namespace orbisgrid {

void openAddress(const QString& address) {
    // Not QDesktopServices: a QUrl writes %3a as %3A, %2d as "-" and escapes the blank in a mail's
    // subject, and then it is another address.
    QProcess::startDetached(QStringLiteral("xdg-open"), {address});
}

} // namespace orbisgrid
