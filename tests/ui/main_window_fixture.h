#pragma once

#include "platform/per_user_store.h"
#include "tests/support/ini_text.h"
#include "tests/support/sealed_box.h"
#include "tests/ui/opened_controls.h"
#include "ui/desktop_tool_registry.h"
#include "ui/locator_converter.h"

#include <memory>

namespace orbisgrid::test {

/// The main window in a sealed box: own program folder with an INI file, own settings file, no
/// network of the machine's, and a watchdog over message boxes. Nothing is opened until `open`.
class MainWindow : public OpenedControls {
public:
    MainWindow();

    SealedBox& box() { return m_box; }

    void setOnline(bool isOnline) { m_isOnline = isOnline; }

    /// Another file for the land of the map.
    void setOutlinesFile(const std::string& path) { m_outlinesFile = path; }

    /// The map's clock stands still at noon of a summer solstice, unless it is set.
    void setMoment(Moment moment) { m_moment = moment; }

    /// Starts the window as the program does and shows it.
    void open(const IniText& ini = {});
    void open(const QByteArray& ini);

    LocatorConverter& window() override { return *m_window; }

    /// Closes the window as its frame does, and forgets it.
    void close();

    QString iniPath() const;
    QStringList iniLines();

private:
    SealedBox m_box;
    DesktopToolRegistry m_registry;
    bool m_isOnline = true;
    std::string m_outlinesFile = ORBISGRID_SOURCES "/map/data/orbisgrid-map.dat";
    Moment m_moment = parsedMoment("2026-06-21T12:00:00Z").value();
    std::unique_ptr<PerUserStore> m_store;
    std::unique_ptr<LocatorConverter> m_window;
};

} // namespace orbisgrid::test
