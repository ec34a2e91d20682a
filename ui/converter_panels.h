#pragma once

#include "panels/locator_converter_form.h"
#include "ui/dms_row.h"
#include "ui/options_menu.h"

#include <QWidget>

#include <initializer_list>
#include <vector>

class QKeyEvent;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace orbisgrid {

class LocatorBox;

/// The lower half of the window: four framed panels that hold the converter's five notations. It
/// shows what the form's Converter holds and hands it what is done; it converts nothing.
class ConverterPanels : public QWidget {
    Q_OBJECT

public:
    /// `form` and `messages` must outlive the panels. `picFocus` takes the focus after an action.
    ConverterPanels(LocatorConverterForm& form, Messages& messages, QWidget& picFocus,
                    QWidget* parent = nullptr);

    /// Brings every widget up to what the form holds.
    void showForm();

    /// The same after a conversion from the locator box, which leaves the whole locator selected.
    void showConversion();

    /// The first box of each panel, for the keys that lead there.
    QLineEdit* locatorBox() const;
    QLineEdit* decimalBox() const;
    QLineEdit* dmsBox() const;
    QLineEdit* uiViewBox() const;

Q_SIGNALS:
    /// The pop-up menu has put a locator into the Home or the Target box.
    void homeTargetChanged();

private:
    void makeBoxes();
    void makeLabels();
    void makeButtons();
    QLayout* locatorPanel();
    QLayout* decimalPanel();
    QLayout* dmsPanel();
    QLayout* uiViewPanel();
    void alignCaptions(std::initializer_list<const char*> names);
    void alignLists();
    void connectButtons();
    void connectEnterChain();
    void connectLocatorBox();

    void cmdOKLocator_Click();
    void cmdOKDecimal_Click();
    void cmdOkDMS_Click();
    void cmdOkUIView_Click();
    void Command2_Click();
    void copy(const Text& text);

    void txtLocator_LostFocus();
    void txtLocator_MouseDown(const QPoint& globalPosition);
    void mnuPasted_Click();
    std::vector<MenuEntry> mnuPaste();
    void pasteInto(Side side);

    bool locatorBox_Event(QEvent* event);
    bool hemisphere_KeyPress(const QObject* list, const QKeyEvent& event);
    bool eventFilter(QObject* watched, QEvent* event) override;

    LocatorConverterForm& m_form;
    Messages& m_messages;
    QWidget& m_picFocus;
    LocatorBox* m_txtLocator = nullptr;
    QLineEdit* m_txtDecLat = nullptr;
    QLineEdit* m_txtDecLong = nullptr;
    DmsRow m_lat, m_lon;
    QLineEdit* m_txtUIView = nullptr;
    QLabel* m_label1 = nullptr;
    QLabel* m_lblDecNS = nullptr;
    QLabel* m_lblDecEW = nullptr;
    QLabel* m_lblCompressed = nullptr;
    QToolButton* m_cmdOKLocator = nullptr;
    QToolButton* m_cmdOKDecimal = nullptr;
    QToolButton* m_cmdOkDMS = nullptr;
    QToolButton* m_cmdOkUIView = nullptr;
    QToolButton* m_command9 = nullptr;
    QToolButton* m_command10 = nullptr;
    QToolButton* m_command11 = nullptr;
    QToolButton* m_command13 = nullptr;
    QToolButton* m_command15 = nullptr;
    QPushButton* m_command2 = nullptr;
    bool m_pasted = false; ///< set by the menu's paste, cleared over the box; nothing reads it
};

} // namespace orbisgrid
