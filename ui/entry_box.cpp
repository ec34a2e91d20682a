#include "ui/entry_box.h"

#include "panels/converter.h"
#include "ui/qt_text.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>

namespace orbisgrid {

namespace {

QString trimmed(const QString& outside) {
    return toQString(pastedLine(toText(outside)));
}

} // namespace

EntryBox::EntryBox(QWidget* parent)
    : QLineEdit(parent) {
    // An edit says so before it says that the text has changed.
    const auto remember = [this](const QString& text) { m_history.add({text, cursorPosition()}); };
    connect(this, &QLineEdit::textEdited, this, remember);
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (text != m_history.current().text)
            m_history.restart({text, cursorPosition()});
    });
}

void EntryBox::amendText(const QString& text) {
    const int caret = cursorPosition();
    m_history.amend(text);
    setText(text);
    setCursorPosition(caret);
}

void EntryBox::showState(const EditHistory::State& state) {
    setText(state.text);
    setCursorPosition(state.caret);
}

void EntryBox::undoEdit() {
    showState(m_history.undo());
}

void EntryBox::redoEdit() {
    showState(m_history.redo());
}

void EntryBox::pasteTrimmed(QClipboard::Mode mode) {
    insert(trimmed(QGuiApplication::clipboard()->text(mode)));
}

void EntryBox::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Paste))
        pasteTrimmed(QClipboard::Clipboard);
    else if (event->matches(QKeySequence::Undo))
        undoEdit();
    else if (event->matches(QKeySequence::Redo))
        redoEdit();
    else
        QLineEdit::keyPressEvent(event);
}

/// QLineEdit's menu; the entries that this box answers itself lead here. They have no names: what
/// they are called in the person's language tells them apart.
void EntryBox::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto leadsTo = [&](const QString& caption, bool isPossible, const auto& action) {
        for (QAction* entry : menu->actions()) {
            if (!entry->text().startsWith(caption)) // keys stand behind it
                continue;
            entry->disconnect();
            entry->setEnabled(isPossible);
            connect(entry, &QAction::triggered, this, action);
        }
    };
    const bool hasText = !QGuiApplication::clipboard()->text().isEmpty();
    leadsTo(QLineEdit::tr("&Paste"), hasText, [this] { pasteTrimmed(QClipboard::Clipboard); });
    leadsTo(QLineEdit::tr("&Undo"), m_history.canUndo(), [this] { undoEdit(); });
    leadsTo(QLineEdit::tr("&Redo"), m_history.canRedo(), [this] { redoEdit(); });
    menu->popup(event->globalPos());
}

void EntryBox::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::MiddleButton)
        return QLineEdit::mouseReleaseEvent(event);
    if (!QGuiApplication::clipboard()->supportsSelection())
        return;
    deselect(); // the caret is where the button was pressed
    pasteTrimmed(QClipboard::Selection);
}

void EntryBox::dropEvent(QDropEvent* event) {
    QMimeData line;
    line.setText(trimmed(event->mimeData()->text()));
    QDropEvent drop(event->position(), event->possibleActions(), &line, event->buttons(),
                    event->modifiers());
    drop.setDropAction(event->dropAction());
    QLineEdit::dropEvent(&drop);
    event->setDropAction(drop.dropAction());
    event->setAccepted(drop.isAccepted());
}

} // namespace orbisgrid
