#pragma once

#include "panels/manual_display.h"
#include "panels/manual_search.h"

#include <QDialog>

#include <string>

class QLabel;
class QPlainTextEdit;

namespace orbisgrid {

class LinkLabel;

/// The Help window: the manual, which is the file Readme.txt in the program folder, and its find.
///
/// Keys: Ctrl+F finds, F3 repeats the find without asking, Escape closes. Where the file cannot be
/// read, the window says in its place where the manual should be; no message is shown.
class Help : public QDialog {
    Q_OBJECT

public:
    /// `programFolder` is an absolute path without a separator at its end.
    explicit Help(const std::string& programFolder, QWidget* parent = nullptr);

private:
    void buildControls();
    void buildKeys();
    void load(const std::string& programFolder);

    void Label2_Click();
    void DoTheSearch();
    void repeatSearch();

    QString askForText();
    void find(const QString& answer);
    void select(const ManualFind& match);
    void clearSelection();

    QLabel* m_label1;
    LinkLabel* m_label2;
    QPlainTextEdit* m_text1;
    ManualDisplay m_display;
    ManualSearch m_search;
};

} // namespace orbisgrid
