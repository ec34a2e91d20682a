#pragma once

#include "ui/entry_box.h"

namespace orbisgrid {

/// A box that a locator is typed into: the release of a letter key puts the whole text into upper
/// case, the caret staying where it is.
class LocatorBox : public EntryBox {
    Q_OBJECT

public:
    explicit LocatorBox(QWidget* parent = nullptr);

    /// Puts the text into upper case without moving the caret; a text that is, is not touched, so
    /// that the selection survives.
    void upperCaseText();

Q_SIGNALS:
    void upPressed();
    void downPressed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
};

} // namespace orbisgrid
