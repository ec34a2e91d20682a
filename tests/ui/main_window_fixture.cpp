#include "tests/ui/main_window_fixture.h"

#include "ui/version.h"

#include <QSignalBlocker>

namespace orbisgrid::test {

MainWindow::MainWindow() = default;

void MainWindow::open(const IniText& ini) {
    open(QByteArray::fromStdString(ini.bytes()));
}

void MainWindow::open(const QByteArray& ini) {
    m_box.writeProgramFile(QStringLiteral("Orbisgrid.ini"), ini);
    m_store = std::make_unique<PerUserStore>(m_box.configFolder().toStdString() + "/ZZ9QX.ini");
    m_window = std::make_unique<LocatorConverter>(
        Surroundings{*m_store,
                     m_box.programFolder().toStdString(),
                     [this] { return m_isOnline; },
                     m_registry,
                     {m_outlinesFile, [this] { return m_moment; }}});
    m_window->Form_Load();
    m_window->show();
    m_window->countUse();
    showActive();
}

void MainWindow::close() {
    m_window->close();
    m_window.reset();
}

QString MainWindow::iniPath() const {
    return m_box.programFolder() + QStringLiteral("/Orbisgrid.ini");
}

QStringList MainWindow::iniLines() {
    const auto bytes = m_box.programFile(QStringLiteral("Orbisgrid.ini"));
    return QString::fromUtf8(bytes.value_or(QByteArray())).split(QStringLiteral("\r\n"));
}

} // namespace orbisgrid::test
