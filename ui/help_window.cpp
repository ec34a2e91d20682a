#include "ui/help_window.h"

#include "platform/safe_file.h"
#include "ui/link_label.h"
#include "ui/qt_text.h"
#include "ui/window_messages.h"

#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>

#include <algorithm>

namespace orbisgrid {

namespace {

/// The input box stands 2200 twips (1/15 pixel each) right of the window's left edge, so that the
/// window's own left edge and caption stay in sight.
constexpr int inputBoxOffset = 147;

/// Wide enough to see a few words of what one types, in pixels.
constexpr int inputBoxWidth = 340;

/// The manual is written for 72 columns; the window opens a little wider, and this many lines high.
constexpr int columns = 74;
constexpr int lines = 34;

QFont manualFont(const QFont& base) {
    QFont font(QStringLiteral("Courier New"));
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    font.setPointSizeF(std::max(base.pointSizeF(), 10.0));
    return font;
}

/// What stands in the window where there is no manual to show.
std::string missingManual(const std::string& path) {
    return "The manual cannot be shown.\n"
           "\n"
           "It is a plain text file that belongs beside the program:\n"
           "\n"
           "    " +
           path +
           "\n"
           "\n"
           "The file is missing, or you have no right to read it. Put it\n"
           "back from the package that the program came in, and open this\n"
           "window again. Everything else in the program works without it.\n";
}

} // namespace

Help::Help(const std::string& programFolder, QWidget* parent)
    : QDialog(parent)
    , m_label1(new QLabel(QStringLiteral("Manual"), this))
    , m_label2(new LinkLabel(QStringLiteral("Find..."), this))
    , m_text1(new QPlainTextEdit(this))
    , m_display({})
    , m_search({}) {
    setObjectName(QStringLiteral("Help"));
    buildControls();
    buildKeys();
    load(programFolder);
}

void Help::buildControls() {
    m_label1->setObjectName(QStringLiteral("Label1"));
    QFont heading = m_label1->font();
    heading.setBold(true);
    m_label1->setFont(heading);
    m_label1->setBuddy(m_text1);

    m_label2->setObjectName(QStringLiteral("Label2"));
    m_label2->setToolTip(QStringLiteral("Find a text in the manual (Ctrl+F)"));
    connect(m_label2, &LinkLabel::clicked, this, &Help::Label2_Click);

    m_text1->setObjectName(QStringLiteral("Text1"));
    m_text1->setFont(manualFont(font()));
    m_text1->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text1->setUndoRedoEnabled(false);
    // Read-only, but with a caret: it is what a screen reader reads along.
    m_text1->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_text1->setTabChangesFocus(true);

    auto* layout = new QGridLayout(this);
    layout->addWidget(m_label1, 0, 0);
    layout->addWidget(m_label2, 0, 1, Qt::AlignRight);
    layout->addWidget(m_text1, 1, 0, 1, 2);

    const QFontMetrics metrics(m_text1->font());
    const QSize wanted(metrics.horizontalAdvance(u'0') * columns +
                           m_text1->verticalScrollBar()->sizeHint().width() + 40,
                       metrics.lineSpacing() * lines + 60);
    resize(wanted.boundedTo(screen()->availableSize() * 0.9));
}

void Help::buildKeys() {
    auto* ask = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_F), this);
    connect(ask, &QShortcut::activated, this, &Help::DoTheSearch);
    auto* repeat = new QShortcut(QKeySequence(Qt::Key_F3), this);
    connect(repeat, &QShortcut::activated, this, &Help::repeatSearch);
    m_text1->setFocus();
}

void Help::load(const std::string& programFolder) {
    setWindowTitle(QStringLiteral("Help: Manual Orbisgrid"));
    const std::string path = programFolder + "/Readme.txt";
    const std::optional<std::string> bytes = readFile(path);
    const Text manual = manualText(bytes ? *bytes : missingManual(path));
    m_display = ManualDisplay(manual);
    m_text1->setPlainText(toQString(m_display.text()));
    m_search = ManualSearch(manual);
}

void Help::Label2_Click() {
    DoTheSearch();
}

void Help::DoTheSearch() {
    find(askForText());
}

void Help::repeatSearch() {
    // Nothing to repeat yet: ask, as the key does in other programs.
    if (m_search.SearchString().empty())
        DoTheSearch();
    else
        find(toQString(m_search.SearchString()));
}

QString Help::askForText() {
    QInputDialog box(this);
    box.setWindowTitle(QStringLiteral("Find"));
    box.setLabelText(QStringLiteral("Type the text to find:"));
    box.setTextValue(toQString(m_search.SearchString()));
    // Size and place before it is shown, or the window system chooses both.
    box.setFixedSize(box.sizeHint().expandedTo(QSize(inputBoxWidth, 0)));
    box.move(pos() + QPoint(inputBoxOffset, 0));
    return box.exec() == QDialog::Accepted ? box.textValue() : QString();
}

void Help::find(const QString& answer) {
    const ManualFind match = m_search.DoTheSearch(toText(answer));
    switch (match.outcome) {
    case ManualFind::Outcome::cancelled:
        break;
    case ManualFind::Outcome::found:
        select(match);
        break;
    case ManualFind::Outcome::nothingFound:
        showMessageBox(this, {u"Nothing found", {}, MessageIcon::none});
        clearSelection();
        break;
    }
}

void Help::select(const ManualFind& match) {
    const std::size_t last = match.position + match.length - 1;
    QTextCursor cursor = m_text1->textCursor();
    cursor.setPosition(static_cast<int>(m_display.place(match.position)));
    cursor.setPosition(static_cast<int>(m_display.place(last) + 1), QTextCursor::KeepAnchor);
    m_text1->setFocus();
    m_text1->setTextCursor(cursor);
}

void Help::clearSelection() {
    QTextCursor cursor = m_text1->textCursor();
    cursor.setPosition(cursor.selectionStart());
    m_text1->setTextCursor(cursor);
}

} // namespace orbisgrid
