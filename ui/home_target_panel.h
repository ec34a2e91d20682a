#pragma once

#include "panels/locator_converter_form.h"

#include <QWidget>

#include <array>

class QComboBox;
class QGridLayout;
class QLabel;
class QPushButton;
class QToolButton;

namespace orbisgrid {

class LocatorBox;

/// The upper half of the window: Home and Target, their lists, and the result. It shows what the
/// form's HomeTarget holds and hands it what is done; it calculates nothing.
class HomeTargetPanel : public QWidget {
    Q_OBJECT

public:
    /// `form` and `messages` must outlive the panel. `picFocus` takes the focus after an action.
    HomeTargetPanel(LocatorConverterForm& form, Messages& messages, QWidget& picFocus,
                    QWidget* parent = nullptr);

    /// Brings every widget up to what the form holds.
    void showForm();

    /// The map button is of no use without a connection.
    void hideMapButton();

    /// Puts the focus into the Home (Target) box with its text selected.
    void enterBox(Side side);

    void cmdCalculateDistDir_Click();

    /// A locator was chosen elsewhere: it goes into a box as if it were typed.
    void fillBox(Side side, TextView locator);

Q_SIGNALS:
    /// Calculate has put the Target into the converter.
    void converterChanged();
    /// A default locator was set: the INI file is to be written.
    void defaultsChanged();
    void mapWanted();
    void pathMapWanted();

private:
    /// The controls that Home and Target each have.
    struct Row {
        LocatorBox* box = nullptr;
        QComboBox* list = nullptr;
        QToolButton* cmdClear1Item = nullptr;
        QToolButton* cmdClear = nullptr;
        QPushButton* cmdDefault = nullptr;
    };

    Row& row(Side side) { return m_rows.at(static_cast<std::size_t>(side)); }

    void makeRow(Side side);
    void makeResults();
    void placeRow(QGridLayout& grid, Side side);
    QLayout* placeInputs();
    QLayout* placeResults();
    void orderTabs();
    void connectRow(Side side);
    void showList(Side side);

    void txtHome_KeyPress();
    void txtTarget_KeyPress();
    void box_MouseDown(Side side);
    void list_Click(Side side, int index);
    void cmdClear_Click(Side side);
    void cmdClear1Item_Click(Side side);
    void cmdDefault_Click(Side side);
    void Command1_Click();

    bool eventFilter(QObject* watched, QEvent* event) override;

    LocatorConverterForm& m_form;
    Messages& m_messages;
    QWidget& m_picFocus;
    std::array<Row, 2> m_rows;
    QPushButton* m_cmdCalculateDistDir;
    QToolButton* m_command1;
    QToolButton* m_cmdShowPathMap;
    QToolButton* m_cmdShowMapURL;
    QLabel* m_lblDistKm;
    QLabel* m_lblDistMile;
    QLabel* m_lblAzimuth;
    QLabel* m_lblHomeLat;
    QLabel* m_lblHomeLong;
    QLabel* m_lblTargetLat;
    QLabel* m_lblTargetLong;
};

} // namespace orbisgrid
