#pragma once

#include "tests/support/dialog_watchdog.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTest>

#include <functional>

namespace orbisgrid::test {

/// The controls of an opened window, used as a person uses them, with a watchdog over its message
/// boxes. A control that is not there ends the test program.
class OpenedControls {
public:
    OpenedControls() = default;
    OpenedControls(const OpenedControls&) = delete;
    OpenedControls& operator=(const OpenedControls&) = delete;
    OpenedControls(OpenedControls&&) = delete;
    OpenedControls& operator=(OpenedControls&&) = delete;
    virtual ~OpenedControls() = default;

    virtual QWidget& window() = 0;

    DialogWatchdog& watchdog() { return m_watchdog; }

    template <typename Widget>
    Widget& child(const QString& name) {
        auto* found = window().findChild<Widget*>(name);
        if (found == nullptr)
            qFatal("no control %s", qPrintable(name));
        return *found;
    }

    QLineEdit& edit(const char* name) { return child<QLineEdit>(QString::fromLatin1(name)); }

    QComboBox& list(const char* name) { return child<QComboBox>(QString::fromLatin1(name)); }

    QAbstractButton& button(const char* name) {
        return child<QAbstractButton>(QString::fromLatin1(name));
    }

    /// What a label, a box or a button shows.
    QString text(const char* name);

    /// What the items of a list show.
    QStringList items(const char* name);

    /// What all labels show.
    QStringList labelTexts();

    /// Replaces what a box holds by typing.
    void type(const char* name, const QString& text);

    void click(const char* name);

    void pressEnter(const char* name, Qt::Key key = Qt::Key_Return);

    /// Opens a box's menu with the right mouse button, hands it to `use` and closes it. Result:
    /// whether a menu came.
    [[nodiscard]] bool withMenuOf(QLineEdit& box, const std::function<void(QMenu&)>& use);

    /// The objectName of the control that has the focus.
    QString focus();

protected:
    /// Shows the window and waits until it is active.
    void showActive();

private:
    DialogWatchdog m_watchdog;
};

} // namespace orbisgrid::test
