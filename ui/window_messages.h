#pragma once

#include "panels/message.h"

#include <QString>

#include <functional>

class QWidget;

namespace orbisgrid {

/// The program's title, which a message box without a title of its own carries.
QString applicationTitle();

/// Shows a message as a modal box over `parent` and returns when it has been answered.
void showMessageBox(QWidget* parent, const Message& message);

/// Asks a question with Yes and No, Yes being the default. Result: whether it was Yes.
bool askQuestion(QWidget* parent, const Message& question);

/// The messages of the panels as boxes over a window.
class WindowMessages : public Messages {
public:
    /// `beforeShow` runs before each box: it brings the window up to what the panels hold by then.
    WindowMessages(QWidget& window, std::function<void()> beforeShow);

    void show(const Message& message) override;

private:
    QWidget& m_window;
    std::function<void()> m_beforeShow;
};

} // namespace orbisgrid
