#include "ui/locator_box.h"

#include "panels/converter.h"
#include "ui/qt_text.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

namespace orbisgrid {

LocatorBox::LocatorBox(QWidget* parent)
    : QLineEdit(parent) {}

void LocatorBox::upperCaseText() {
    const QString upper = toQString(upperCase(toText(text())));
    if (upper == text())
        return;
    const int caret = cursorPosition();
    setText(upper);
    setCursorPosition(caret);
}

void LocatorBox::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Paste) && !isReadOnly()) {
        pasteTrimmed();
        event->accept();
        return;
    }
    if (event->key() == Qt::Key_Down)
        Q_EMIT downPressed();
    else if (event->key() == Qt::Key_Up)
        Q_EMIT upPressed();
    else
        QLineEdit::keyPressEvent(event);
}

void LocatorBox::keyReleaseEvent(QKeyEvent* event) {
    const bool isLetter = event->key() >= Qt::Key_A && event->key() <= Qt::Key_Z;
    if (isLetter && !event->isAutoRepeat())
        upperCaseText();
    QLineEdit::keyReleaseEvent(event);
}

void LocatorBox::pasteTrimmed() {
    const Text clipboardText = toText(QGuiApplication::clipboard()->text());
    insert(toQString(pastedLine(clipboardText)));
}

} // namespace orbisgrid
