#pragma once

#include "panels/text_box.h"
#include "ui/icons.h"

class QComboBox;
class QFrame;
class QLabel;
class QLayout;
class QLineEdit;
class QString;
class QToolButton;
class QWidget;

/// What both panels build their controls with.
namespace orbisgrid {

/// A quiet frame with a caption above `content`. No QGroupBox: its style reads a picture at start.
QFrame* captionedFrame(const QString& caption, QLayout* content);

/// A label whose text is a caption.
QLabel* captionLabel(const QString& text, QWidget* buddy = nullptr);

/// A label that shows a result, at first `text`; see ResultLabel. `meaning` is what a screen reader
/// adds to the text, which is its name: "5637 Km, Distance in kilometres".
QLabel* resultLabel(const QString& objectName, TextView text, const QString& meaning);

/// A button with a picture. `tip` is its tool tip and, as there is no caption, its name for screen
/// readers unless `accessibleName` says more.
QToolButton* glyphButton(const QString& objectName, Glyph glyph, const QString& tip,
                         const QString& accessibleName = {});

/// What a box is called and how wide it is.
struct BoxLook {
    QString objectName;
    QString widest; ///< the text that it is to show whole
};

/// Names a box, gives it the maximum length of its value and its width, and keeps the value at what
/// the box holds. Line ends never get in: a box has one line.
void bindBox(QLineEdit& edit, TextBox& value, const BoxLook& look);

/// Makes a list wide enough for `count` letters whatever it holds; more room is used where there
/// is.
void setLeastLetters(QComboBox& list, int count);

/// Leaves a list alone when the mouse wheel passes over it on its way: what was typed into the box
/// beside it would be lost. With the focus it follows the wheel.
void ignoreWheelWithoutFocus(QComboBox& list);

/// Shows a text, touching the widget only where it changes: selection, caret and undo survive.
void showText(QLineEdit& edit, TextView text);
void showText(QLabel& label, TextView text);

/// Puts a text on the clipboard.
void copyToClipboard(const Text& text);

} // namespace orbisgrid
