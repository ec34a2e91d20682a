#include "ui/locator_converter.h"

#include "platform/endless_wait.h"
#include "platform/safe_file.h"
#include "settings/use_counter.h"
#include "ui/about_window.h"
#include "ui/addresses.h"
#include "ui/converter_panels.h"
#include "ui/help_window.h"
#include "ui/home_target_panel.h"
#include "ui/module1.h"
#include "ui/panel_parts.h"
#include "ui/qt_text.h"
#include "ui/version.h"
#include "ui/visible_place.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

#include <utility>

namespace orbisgrid {

namespace {

/// A twip is 1/1440 inch and a logical inch has 96 pixels.
constexpr int twipsPerPixel = 1440 / 96;

/// A text as part of a window's title. Qt takes "[*]" there for the place of a mark that says that
/// something is not saved; twice, it stands for itself.
QString titlePart(QString text) {
    return text.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

QPushButton* captionedButton(const char* objectName, const QString& caption) {
    auto* button = new QPushButton(caption);
    button->setObjectName(QString::fromLatin1(objectName));
    return button;
}

/// A widget without extent that can hold the focus but is never reached with Tab.
QWidget* focusSink(QWidget* parent) {
    auto* sink = new QWidget(parent);
    sink->setObjectName(QStringLiteral("picFocus"));
    sink->setGeometry(0, 0, 0, 0);
    sink->setFocusPolicy(Qt::NoFocus);
    return sink;
}

} // namespace

LocatorConverter::LocatorConverter(Surroundings surroundings, QWidget* parent)
    : QWidget(parent)
    , m_surroundings(std::move(surroundings))
    , m_messages(*this, [this] { showForm(); })
    , m_picFocus(focusSink(this))
    , m_homeTarget(new HomeTargetPanel(m_form, m_messages, *m_picFocus))
    , m_converter(new ConverterPanels(m_form, m_messages, *m_picFocus))
    , m_chkOnTop(new QCheckBox(QStringLiteral("Stay on top")))
    , m_cmdRefresh(glyphButton(QStringLiteral("cmdRefresh"), Glyph::refresh,
                               QStringLiteral("New entry refresh: Clear all fields")))
    , m_cmdHelp(captionedButton("cmdHelp", QStringLiteral("Help")))
    , m_cmdAbout(captionedButton("cmdAbout", QStringLiteral("About")))
    , m_cmdExit(captionedButton("cmdExit", QStringLiteral("Exit"))) {
    setObjectName(QStringLiteral("LocatorConverter"));
    setWindowTitle(applicationTitle());
    m_chkOnTop->setObjectName(QStringLiteral("chkOnTop"));
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->addWidget(m_homeTarget);
    layout->addWidget(m_converter, 1);
    layout->addLayout(optionsLine());
    fitToScreen(content);
    connectParts();
    makeShortcuts();
}

/// Large fonts on a small screen: what does not fit is scrolled to. Elsewhere the window is as
/// small as its contents allow. In a larger window they keep together in the middle.
void LocatorConverter::fitToScreen(QWidget* content) {
    const QSize wanted = content->sizeHint();
    const QSize available = screen()->availableSize() - windowFrame;
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    if (wanted.width() <= available.width() && wanted.height() <= available.height()) {
        whole->addWidget(content, 0, Qt::AlignCenter);
        return;
    }
    auto* area = new QScrollArea;
    area->setFrameStyle(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    auto* middle = new QWidget;
    auto* room = new QVBoxLayout(middle);
    room->setContentsMargins(0, 0, 0, 0);
    room->addWidget(content, 0, Qt::AlignCenter);
    area->setWidget(middle);
    whole->addWidget(area);
    resize(wanted.boundedTo(available));
}

QLayout* LocatorConverter::optionsLine() {
    auto* line = new QHBoxLayout;
    line->addWidget(m_chkOnTop);
    line->addWidget(m_cmdRefresh);
    line->addStretch();
    line->addWidget(m_cmdHelp);
    line->addWidget(m_cmdAbout);
    line->addWidget(m_cmdExit);
    return line;
}

void LocatorConverter::connectParts() {
    connect(m_homeTarget, &HomeTargetPanel::converterChanged, m_converter,
            &ConverterPanels::showConversion);
    connect(m_homeTarget, &HomeTargetPanel::converterChanged, this,
            &LocatorConverter::rememberPath);
    connect(m_homeTarget, &HomeTargetPanel::pathMapWanted, this,
            &LocatorConverter::cmdShowPathMap_Click);
    connect(m_homeTarget, &HomeTargetPanel::defaultsChanged, this, &LocatorConverter::SaveINI);
    connect(m_homeTarget, &HomeTargetPanel::mapWanted, this,
            &LocatorConverter::cmdShowMapURL_Click);
    connect(m_converter, &ConverterPanels::homeTargetChanged, m_homeTarget,
            &HomeTargetPanel::showForm);
    connect(m_chkOnTop, &QCheckBox::toggled, this, &LocatorConverter::chkOnTop_Click);
    connect(m_cmdRefresh, &QToolButton::clicked, this, &LocatorConverter::cmdRefresh_Click);
    connect(m_cmdHelp, &QPushButton::clicked, this, &LocatorConverter::cmdHelp_Click);
    connect(m_cmdAbout, &QPushButton::clicked, this, &LocatorConverter::cmdAbout_Click);
    connect(m_cmdExit, &QPushButton::clicked, this, &LocatorConverter::cmdExit_Click);
}

/// The captions are as they are and carry no mnemonics: these keys lead to the same places.
void LocatorConverter::makeShortcuts() {
    const auto leadsTo = [this](const QKeySequence& keys, const std::function<void()>& action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    const auto enters = [&](const QKeySequence& keys, QLineEdit* box) {
        leadsTo(keys, [box] {
            box->setFocus();
            box->selectAll();
        });
    };
    // Not QAbstractButton::setShortcut, which waits until it has drawn the button pressed.
    const auto clicks = [&](const QKeySequence& keys, QAbstractButton* button) {
        leadsTo(keys, [button] { button->click(); });
    };
    leadsTo(Qt::ALT | Qt::Key_H, [this] { m_homeTarget->enterBox(Side::Home); });
    leadsTo(Qt::ALT | Qt::Key_T, [this] { m_homeTarget->enterBox(Side::Target); });
    leadsTo(Qt::ALT | Qt::Key_C, [this] { m_homeTarget->cmdCalculateDistDir_Click(); });
    enters(Qt::ALT | Qt::Key_L, m_converter->locatorBox());
    enters(Qt::ALT | Qt::Key_D, m_converter->decimalBox());
    enters(Qt::ALT | Qt::Key_M, m_converter->dmsBox());
    enters(Qt::ALT | Qt::Key_U, m_converter->uiViewBox());
    clicks(Qt::ALT | Qt::Key_S, m_chkOnTop);
    clicks(Qt::Key_F5, m_cmdRefresh);
    clicks(Qt::Key_F1, m_cmdHelp);
    leadsTo(Qt::Key_F2, [this] { cmdShowPathMap_Click(); });
    clicks(Qt::CTRL | Qt::Key_Q, m_cmdExit);
}

// Start and end ---------------------------------------------------------------------------------

void LocatorConverter::Form_Load() {
    LoadINI();
    QCoreApplication::processEvents();
    m_useCounter = readUseCounter(m_surroundings.store);
    if (m_ini.NoCheckWebUpdates != 0)
        return;
    if (!m_surroundings.isOnline()) {
        m_homeTarget->hideMapButton();
    } else if (opensHomePage(m_useCounter)) {
        countUse(); // should this start end now, the next one is not to open the page again
        QString homePage;
        OpenWebPage(homePage);
    }
}

void LocatorConverter::countUse() {
    advanceUseCounter(m_surroundings.store, m_useCounter);
}

void LocatorConverter::LoadINI() {
    const auto bytes = readFile(iniPath());
    if (!bytes)
        waitEndlessly();
    m_ini = readLocatorListIni(*bytes);
    moveToSavedPosition();
    if (const auto note = captionNote(m_ini.TitleNote))
        setWindowTitle(windowTitle() + QStringLiteral(" - ") + titlePart(toQString(*note)));
    HomeTarget& panel = m_form.homeTarget;
    panel.cmbHome.items = m_ini.homeList;
    panel.cmbTarget.items = m_ini.targetList;
    panel.DefaultHome = m_ini.DefaultHome;
    panel.DefaultTarget = m_ini.DefaultTarget;
    panel.txtHome.set(panel.DefaultHome);
    panel.txtTarget.set(panel.DefaultTarget);
    m_homeTarget->showForm();
    if (opensOnTop(m_ini))
        m_chkOnTop->setChecked(true);
}

void LocatorConverter::moveToSavedPosition() {
    const RestoredPosition saved = restoredPosition(m_ini);
    if (!saved.left && !saved.top)
        return;
    // The size first: a window that is resized after it was moved does not stay where it was put.
    if (!testAttribute(Qt::WA_Resized))
        resize(sizeHint());
    QPoint position = screen()->availableGeometry().center() - rect().center();
    if (saved.left)
        position.setX(*saved.left / twipsPerPixel);
    if (saved.top)
        position.setY(*saved.top / twipsPerPixel);
    move(visiblePosition(position));
}

/// The screen that the position was saved on may be gone.
QPoint LocatorConverter::visiblePosition(const QPoint& position) const {
    QList<ScreenArea> areas;
    for (const QScreen* one : QGuiApplication::screens())
        areas.append({one->geometry(), one->availableGeometry()});
    return visiblePlace(QRect(position, size() + windowFrame), areas);
}

void LocatorConverter::SaveINI() {
    HomeTarget& panel = m_form.homeTarget;
    m_ini.TitleNote = savedTitleNote(m_ini.TitleNote);
    m_ini.DefaultHome = panel.DefaultHome;
    m_ini.DefaultTarget = panel.DefaultTarget;
    m_ini.homeList = panel.cmbHome.items;
    m_ini.targetList = panel.cmbTarget.items;
    IniWindowState window;
    window.version = versionText;
    window.chkOnTop = m_chkOnTop->isChecked() ? 1 : 0;
    window.left = pos().x() * twipsPerPixel;
    window.top = pos().y() * twipsPerPixel;
    // Failing is passed over in silence: the lists are in the window as they were.
    (void)saveFile(iniPath(), writeLocatorListIni(m_ini, window));
}

void LocatorConverter::Form_Unload() {
    SaveINI();
}

void LocatorConverter::closeEvent(QCloseEvent* event) {
    Form_Unload();
    if (m_pathMap != nullptr)
        m_pathMap->close();
    event->accept();
}

std::string LocatorConverter::iniPath() const {
    return m_surroundings.programFolder + "/Orbisgrid.ini";
}

// Handlers --------------------------------------------------------------------------------------

void LocatorConverter::showForm() {
    m_homeTarget->showForm();
    m_converter->showForm();
}

void LocatorConverter::chkOnTop_Click(bool isOn) {
    SetTopMost(*this, isOn);
    if (m_pathMap != nullptr)
        SetTopMost(*m_pathMap, isOn);
    if (isVisible()) // at the start it is not, and the focus belongs to Home then
        m_picFocus->setFocus();
}

void LocatorConverter::cmdRefresh_Click() {
    m_form.refresh();
    showForm();
    m_path.reset();
    showPathOnMap();
}

void LocatorConverter::cmdExit_Click() {
    close();
}

void LocatorConverter::cmdHelp_Click() {
    Help help(m_surroundings.programFolder, this);
    help.exec();
}

void LocatorConverter::cmdAbout_Click() {
    frmAbout about(m_useCounter, m_surroundings.registry, this);
    about.exec();
}

void LocatorConverter::cmdShowMapURL_Click() const {
    const MapQuery query = mapQuery(m_form.converter);
    QString address = mapAddress(toQString(query.latitude), toQString(query.longitude));
    OpenWebPage(address);
}

// Map -------------------------------------------------------------------------------------------

void LocatorConverter::cmdShowPathMap_Click() {
    if (m_pathMap == nullptr) {
        m_pathMap = new PathMap(m_surroundings.map, this);
        connect(m_pathMap, &PathMap::targetChosen, this, &LocatorConverter::pathMap_TargetChosen);
        connect(m_pathMap, &PathMap::homeChosen, this, &LocatorConverter::pathMap_HomeChosen);
        if (m_chkOnTop->isChecked())
            SetTopMost(*m_pathMap, true);
    }
    if (!m_pathMap->isVisible() || !m_path) // the Home box may hold something else by now
        showPathOnMap();
    m_pathMap->setWindowState(m_pathMap->windowState() & ~Qt::WindowMinimized);
    m_pathMap->show();
    m_pathMap->raise();
    m_pathMap->activateWindow();
}

/// Calculate has completed both boxes: they hold what was calculated.
void LocatorConverter::rememberPath() {
    const HomeTarget& panel = m_form.homeTarget;
    m_path = subjectOfPath({panel.txtHome.text(), panel.txtTarget.text()});
    showPathOnMap();
}

void LocatorConverter::showPathOnMap() {
    if (m_pathMap != nullptr)
        m_pathMap->showSubject(m_path ? *m_path
                                      : subjectBeforePath(m_form.homeTarget.txtHome.text()));
}

void LocatorConverter::pathMap_TargetChosen(const QString& locator) {
    m_homeTarget->fillBox(Side::Target, toText(locator));
    m_homeTarget->cmdCalculateDistDir_Click();
}

/// Without a Target there is nothing to calculate yet, and the map turns to its new middle.
void LocatorConverter::pathMap_HomeChosen(const QString& locator) {
    m_homeTarget->fillBox(Side::Home, toText(locator));
    if (m_form.homeTarget.txtTarget.text().empty()) {
        m_path.reset();
        showPathOnMap();
    } else {
        m_homeTarget->cmdCalculateDistDir_Click();
    }
}

/// Enter presses the button that has the focus, as Space does; a check box is for Space alone.
void LocatorConverter::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* button = qobject_cast<QAbstractButton*>(focusWidget());
    if (isEnter && button != nullptr && !button->isCheckable() && !event->isAutoRepeat())
        button->click();
    else
        QWidget::keyPressEvent(event);
}

} // namespace orbisgrid
