#pragma once

#include "tests/support/panel_actions.h"

#include <QMessageBox>
#include <QWidget>

namespace orbisgrid::test {

/// Does an action to the main window: sets the texts of the controls that it names (a box cuts what
/// is longer than it holds), and presses the button. What is to be pasted is typed.
void act(QWidget& window, const PanelAction& action);

/// The icon of a message box that shows a message.
QMessageBox::Icon messageBoxIcon(MessageIcon icon);

} // namespace orbisgrid::test
