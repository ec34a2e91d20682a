#pragma once

#include "panels/locator_converter_form.h"
#include "settings/locator_list_ini.h"
#include "settings/settings_store.h"
#include "ui/path_map_window.h"
#include "ui/window_messages.h"

#include <QString>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

class QCheckBox;
class QLayout;
class QPushButton;
class QToolButton;

namespace orbisgrid {

class ConverterPanels;
class HomeTargetPanel;
class ToolRegistry;

/// What the main window needs of the machine. Handed in, so that a test hands in another one.
struct Surroundings {
    SettingsStore& store;
    std::string programFolder; ///< where Orbisgrid.ini and Readme.txt lie; no separator at its end
    std::function<bool()> isOnline;
    ToolRegistry& registry; ///< of the About window
    MapSurroundings map;
};

/// The main window: both panels, the window's own options and buttons, and what happens at start
/// and end.
class LocatorConverter : public QWidget {
    Q_OBJECT

public:
    explicit LocatorConverter(Surroundings surroundings, QWidget* parent = nullptr);

    /// What happens at start, in its order: the INI file, pending events, the use counter, the
    /// online test, which hides the map button or opens the home page. To be called once, before
    /// the window is shown; the settings store has recorded path and version by then. Does not
    /// return without an INI file (see LoadINI).
    void Form_Load();

    /// Stores the next use's number, which belongs to Form_Load. To be called after the window is
    /// shown: the window manager puts it on the screen while the file is written. A second call
    /// changes nothing, no failure is reported.
    void countUse();

    /// Writes the INI file: lists, defaults, options and the window's position. No failure is
    /// reported.
    void SaveINI();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void fitToScreen(QWidget* content);
    QLayout* optionsLine();
    void makeShortcuts();
    void connectParts();

    /// Fills lists, defaults and options from the INI file. Without one it waits until a signal
    /// ends the program: starting with empty lists would write them over the real ones as soon as
    /// the file is back.
    void LoadINI();
    void moveToSavedPosition();
    QPoint visiblePosition(const QPoint& position) const;
    void Form_Unload();

    void chkOnTop_Click(bool isOn);
    void cmdRefresh_Click();
    void cmdExit_Click();
    void cmdHelp_Click();
    void cmdAbout_Click();
    void cmdShowMapURL_Click() const;
    void cmdShowPathMap_Click();
    void showForm();

    void rememberPath();
    void showPathOnMap();
    void pathMap_TargetChosen(const QString& locator);
    void pathMap_HomeChosen(const QString& locator);

    std::string iniPath() const;

    Surroundings m_surroundings;
    LocatorConverterForm m_form;
    LocatorListIni m_ini; ///< what no control holds: the note, the two switches
    std::int32_t m_useCounter = 0;
    std::optional<MapSubject> m_path; ///< of the last Calculate; nothing before it and once cleared
    WindowMessages m_messages;
    QWidget* m_picFocus; ///< takes the focus so that no box keeps a selection
    HomeTargetPanel* m_homeTarget;
    ConverterPanels* m_converter;
    QCheckBox* m_chkOnTop;
    QToolButton* m_cmdRefresh;
    QPushButton* m_cmdHelp;
    QPushButton* m_cmdAbout;
    QPushButton* m_cmdExit;
    PathMap* m_pathMap = nullptr; ///< made when it is first wanted
};

} // namespace orbisgrid
