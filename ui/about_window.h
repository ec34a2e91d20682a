#pragma once

#include <QDialog>

#include <cstdint>

class QLabel;
class QLayout;
class QPushButton;

namespace orbisgrid {

class DonationPicture;
class LinkLabel;
class ToolRegistry;

/// The About window: what the program is, how often it was used, on what terms it is passed on, and
/// the ways to its pages, its author and the machine's own information. Escape closes it.
class frmAbout : public QDialog {
    Q_OBJECT

public:
    /// `useCounter`: the number of runs that is shown. `registry` is asked when the system
    /// information is wanted; it must outlive the window.
    frmAbout(std::int32_t useCounter, ToolRegistry& registry, QWidget* parent = nullptr);

private:
    void buildControls();
    void nameControls();
    void buildLayout();
    void setReadingOrder();
    void fixSize();
    QLayout* header();
    QLayout* pages();
    QLayout* donation();
    QLayout* buttons();
    void load(std::int32_t useCounter);
    void connectControls();

    void cmdOK_Click();
    void cmdSysInfo_Click();
    void Command1_Click();
    void Image2_Click();
    void Label2_Click();
    void Label4_Click();

    void StartSysInfo();

    ToolRegistry& m_registry;
    QWidget* m_content = nullptr; ///< everything but the buttons
    QLayout* m_buttons = nullptr;
    QWidget* m_image1;
    DonationPicture* m_image2;
    QWidget* m_image3;
    QWidget* m_line1;
    QLabel* m_lblTitle;
    QLabel* m_lblVersion;
    QLabel* m_lblDescription;
    QLabel* m_label6;
    QLabel* m_label5;
    QLabel* m_label1;
    LinkLabel* m_label2;
    LinkLabel* m_label4;
    QLabel* m_lblDisclaimer;
    QPushButton* m_cmdSysInfo;
    QPushButton* m_command1;
    QPushButton* m_cmdOK;
};

} // namespace orbisgrid
