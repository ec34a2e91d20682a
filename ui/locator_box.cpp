#include "ui/locator_box.h"

#include "ui/qt_text.h"

#include <QKeyEvent>

namespace orbisgrid {

LocatorBox::LocatorBox(QWidget* parent)
    : EntryBox(parent) {}

void LocatorBox::upperCaseText() {
    const QString upper = toQString(upperCase(toText(text())));
    if (upper != text())
        amendText(upper);
}

void LocatorBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Down)
        Q_EMIT downPressed();
    else if (event->key() == Qt::Key_Up)
        Q_EMIT upPressed();
    else
        EntryBox::keyPressEvent(event);
}

void LocatorBox::keyReleaseEvent(QKeyEvent* event) {
    const bool isLetter = event->key() >= Qt::Key_A && event->key() <= Qt::Key_Z;
    if (isLetter && !event->isAutoRepeat())
        upperCaseText();
    EntryBox::keyReleaseEvent(event);
}

} // namespace orbisgrid
