#pragma once

#include <QLineEdit>

namespace orbisgrid {

/// A box that a locator is typed into: the release of a letter key puts the whole text into upper
/// case, the caret staying where it is. A pasted text loses the blanks and line ends around it
/// before the box cuts it.
class LocatorBox : public QLineEdit {
    Q_OBJECT

public:
    explicit LocatorBox(QWidget* parent = nullptr);

    /// Puts the text into upper case without moving the caret; a text that is, is not touched, so
    /// that selection and undo survive.
    void upperCaseText();

Q_SIGNALS:
    void upPressed();
    void downPressed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    void pasteTrimmed();
};

} // namespace orbisgrid
