#pragma once

#include "ui/edit_history.h"

#include <QClipboard>
#include <QLineEdit>

namespace orbisgrid {

/// A box that positions are pasted into. Whichever way a text comes from outside (a key, the box's
/// own menu, the middle mouse button, a drop), it loses the blanks and line ends around it before
/// the box cuts it.
///
/// Undo and redo go edit by edit. They are the box's own, as QLineEdit forgets its edits with each
/// text that is set, and letters become capitals so; a text that the program sets otherwise starts
/// anew here, too.
class EntryBox : public QLineEdit {
    Q_OBJECT

public:
    explicit EntryBox(QWidget* parent = nullptr);

protected:
    /// Shows the same text in other letters, the caret staying where it is. No edit of its own:
    /// undo does not come back to the text before.
    void amendText(const QString& text);

    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void pasteTrimmed(QClipboard::Mode mode);
    void undoEdit();
    void redoEdit();
    void showState(const EditHistory::State& state);

    EditHistory m_history;
};

} // namespace orbisgrid
