#pragma once

#include "panels/locator_converter_form.h"
#include "tests/ui/opened_controls.h"
#include "ui/window_messages.h"

#include <QVBoxLayout>
#include <QWidget>

namespace orbisgrid::test {

/// One panel of the main window by itself, in a bare window with the widget that takes the focus
/// after an action. Its form is a value of the test's own; nothing is read or written.
template <typename Panel>
class OpenedPanel : public OpenedControls {
public:
    OpenedPanel() {
        m_picFocus.setObjectName(QStringLiteral("picFocus"));
        (new QVBoxLayout(&m_window))->addWidget(m_panel);
    }

    QWidget& window() override { return m_window; }

    Panel& panel() { return *m_panel; }

    /// What the panel shows, as it was handed to the panel.
    LocatorConverterForm& form() { return m_form; }

    /// Brings the panel up to its form and shows it.
    void open() {
        m_panel->showForm();
        showActive();
    }

private:
    LocatorConverterForm m_form;
    QWidget m_window;
    WindowMessages m_messages{m_window, [this] { m_panel->showForm(); }};
    QWidget m_picFocus{&m_window};
    Panel* m_panel = new Panel(m_form, m_messages, m_picFocus);
};

} // namespace orbisgrid::test
