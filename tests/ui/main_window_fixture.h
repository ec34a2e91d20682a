#pragma once

#include "platform/per_user_store.h"
#include "tests/support/dialog_watchdog.h"
#include "tests/support/ini_text.h"
#include "tests/support/sealed_box.h"
#include "ui/desktop_tool_registry.h"
#include "ui/locator_converter.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <memory>

namespace orbisgrid::test {

/// The main window in a sealed box: own program folder with an INI file, own settings file, no
/// network of the machine's, and a watchdog over message boxes. Nothing is opened until `open`.
class MainWindow {
public:
    MainWindow();

    SealedBox& box() { return m_box; }

    DialogWatchdog& watchdog() { return m_watchdog; }

    void setOnline(bool isOnline) { m_isOnline = isOnline; }

    /// Starts the window as the program does and shows it.
    void open(const IniText& ini = {});
    void open(const QByteArray& ini);

    LocatorConverter& window() { return *m_window; }

    /// Closes the window as its frame does, and forgets it.
    void close();

    template <typename Widget>
    Widget& child(const QString& name) {
        auto* found = m_window->findChild<Widget*>(name);
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

    /// Replaces what a box holds by typing.
    void type(const char* name, const QString& text);

    void click(const char* name);

    void pressEnter(const char* name, Qt::Key key = Qt::Key_Return);

    /// The objectName of the control that has the focus.
    QString focus() const;

    QString iniPath() const;
    QStringList iniLines();

private:
    SealedBox m_box;
    DialogWatchdog m_watchdog;
    DesktopToolRegistry m_registry;
    bool m_isOnline = true;
    std::unique_ptr<PerUserStore> m_store;
    std::unique_ptr<LocatorConverter> m_window;
};

} // namespace orbisgrid::test
