#include "ui/home_target_panel.h"

#include "ui/addresses.h"
#include "ui/locator_box.h"
#include "ui/panel_parts.h"
#include "ui/qt_text.h"
#include "ui/window_messages.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QToolButton>

namespace orbisgrid {

namespace {

/// Selects from the start on, as many characters as a locator box can ever hold.
constexpr int selectionLength = 10;

/// "_0" for Home's control of a pair, "_1" for Target's.
QString indexed(const char* name, Side side) {
    return QString::fromLatin1(name) + u'_' + QString::number(static_cast<int>(side));
}

bool isHome(Side side) {
    return side == Side::Home;
}

QLabel* result(const char* objectName, TextView text, const char* meaning) {
    return resultLabel(QString::fromLatin1(objectName), text, QString::fromLatin1(meaning));
}

/// By size alone: to load a bold font takes a millisecond of every start.
QLabel* emphasised(QLabel* label) {
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    label->setFont(font);
    return label;
}

} // namespace

HomeTargetPanel::HomeTargetPanel(LocatorConverterForm& form, Messages& messages, QWidget& picFocus,
                                 QWidget* parent)
    : QWidget(parent)
    , m_form(form)
    , m_messages(messages)
    , m_picFocus(picFocus)
    , m_cmdCalculateDistDir(new QPushButton(QStringLiteral("Calculate")))
    , m_command1(glyphButton(QStringLiteral("Command1"), Glyph::copy,
                             QStringLiteral("copy to clipboard"),
                             QStringLiteral("Copy the report to the clipboard")))
    , m_cmdShowPathMap(glyphButton(QStringLiteral("cmdShowPathMap"), Glyph::pathMap,
                                   QStringLiteral("Show the path on a map")))
    , m_cmdShowMapURL(glyphButton(QStringLiteral("cmdShowMapURL"), Glyph::map,
                                  QStringLiteral("Show location on ") + mapName())) {
    for (const Side side : bothSides)
        makeRow(side);
    makeResults();

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(placeInputs());
    layout->addLayout(placeResults());

    orderTabs();
    for (const Side side : bothSides)
        connectRow(side);
    connect(m_cmdCalculateDistDir, &QPushButton::clicked, this,
            &HomeTargetPanel::cmdCalculateDistDir_Click);
    connect(m_command1, &QToolButton::clicked, this, &HomeTargetPanel::Command1_Click);
    connect(m_cmdShowPathMap, &QToolButton::clicked, this, &HomeTargetPanel::pathMapWanted);
    connect(m_cmdShowMapURL, &QToolButton::clicked, this, &HomeTargetPanel::mapWanted);
    showForm();
}

// Building --------------------------------------------------------------------------------------

void HomeTargetPanel::makeRow(Side side) {
    Row& controls = row(side);
    const QString name = isHome(side) ? QStringLiteral("Home") : QStringLiteral("Target");
    controls.box = new LocatorBox;
    bindBox(*controls.box, m_form.homeTarget.box(side),
            {QStringLiteral("txt") + name, QStringLiteral("WM00WWM")});
    controls.list = new QComboBox;
    controls.list->setObjectName(QStringLiteral("cmb") + name);
    controls.list->setToolTip(name + QStringLiteral(" locator"));
    controls.list->setAccessibleName(name + QStringLiteral(" list"));
    setLeastLetters(*controls.list, 7);
    ignoreWheelWithoutFocus(*controls.list);
    controls.list->setPlaceholderText(QStringLiteral("saved"));
    controls.cmdClear1Item = glyphButton(indexed("cmdClear1Item", side), Glyph::removeItem,
                                         QStringLiteral("remove selected locator from list"),
                                         QStringLiteral("Remove selected locator from the ") +
                                             name + QStringLiteral(" list"));
    controls.cmdClear = glyphButton(
        indexed("cmdClear", side), Glyph::eraseList, QStringLiteral("Erase the entire list"),
        QStringLiteral("Erase the entire ") + name + QStringLiteral(" list"));
    controls.cmdDefault = new QPushButton(QStringLiteral("Default"));
    controls.cmdDefault->setObjectName(indexed("cmdDefault", side));
    controls.cmdDefault->setToolTip(QStringLiteral("Make ") + name.toLower() +
                                    QStringLiteral(" locator default at startup"));
}

void HomeTargetPanel::makeResults() {
    m_cmdCalculateDistDir->setObjectName(QStringLiteral("cmdCalculateDistDir"));
    m_cmdCalculateDistDir->setToolTip(QStringLiteral("Calculate distance, azimuth..."));
    m_cmdCalculateDistDir->setDefault(true);
    const HomeTarget& panel = m_form.homeTarget;
    m_lblDistKm = emphasised(result("lblDistKm", panel.lblDistKm, "Distance in kilometres"));
    m_lblDistMile = result("lblDistMile", panel.lblDistMile, "Distance in miles");
    m_lblAzimuth =
        emphasised(result("lblAzimuth", panel.lblAzimuth, "Azimuth from Home to Target"));
    m_lblHomeLat = result("lblHomeLat", panel.lblHomeLat, "Home latitude");
    m_lblHomeLong = result("lblHomeLong", panel.lblHomeLong, "Home longitude");
    m_lblTargetLat = result("lblTargetLat", panel.lblTargetLat, "Target latitude");
    m_lblTargetLong = result("lblTargetLong", panel.lblTargetLong, "Target longitude");
}

void HomeTargetPanel::placeRow(QGridLayout& grid, Side side) {
    Row& controls = row(side);
    const int line = static_cast<int>(side);
    const QString caption = isHome(side) ? QStringLiteral("Home: ") : QStringLiteral("Target: ");
    const QString listCaption = isHome(side) ? QStringLiteral("Home>") : QStringLiteral("Target>");
    grid.addWidget(captionLabel(caption, controls.box), line, 0);
    grid.addWidget(controls.box, line, 1);
    grid.addWidget(captionLabel(listCaption, controls.list), line, 4);
    grid.addWidget(controls.list, line, 5);
    grid.addWidget(controls.cmdClear1Item, line, 6);
    grid.addWidget(controls.cmdClear, line, 7);
    grid.addWidget(controls.cmdDefault, line, 8);
}

QLayout* HomeTargetPanel::placeInputs() {
    auto* grid = new QGridLayout;
    for (const Side side : bothSides)
        placeRow(*grid, side);
    // The way of the eye: the boxes, the button beside both of them, the result below.
    m_cmdCalculateDistDir->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    grid->addWidget(m_cmdCalculateDistDir, 0, 2, 2, 1);
    grid->setColumnMinimumWidth(3, 12); // apart from what is used now and then
    grid->setColumnStretch(2, 3);
    grid->setColumnStretch(3, 1);
    grid->setColumnStretch(5, 4);
    return grid;
}

QLayout* HomeTargetPanel::placeResults() {
    auto* distance = new QHBoxLayout;
    distance->setSpacing(12);
    distance->addWidget(m_lblDistKm, 0, Qt::AlignBaseline);
    distance->addWidget(m_lblDistMile, 0, Qt::AlignBaseline);
    distance->addSpacing(12);
    distance->addStretch();
    auto* grid = new QGridLayout;
    grid->addWidget(captionLabel(QStringLiteral("Distance:")), 0, 0, Qt::AlignBaseline);
    grid->addLayout(distance, 0, 1);
    grid->addWidget(captionLabel(QStringLiteral("Azimuth:")), 0, 2, Qt::AlignBaseline);
    grid->addWidget(m_lblAzimuth, 0, 3, Qt::AlignBaseline);
    const auto addPosition = [&](int line, const QString& caption, QLabel* lat, QLabel* lon) {
        grid->addWidget(captionLabel(caption), line, 0);
        grid->addWidget(lat, line, 1);
        grid->addWidget(captionLabel(QStringLiteral("Longitude:")), line, 2);
        grid->addWidget(lon, line, 3);
    };
    addPosition(1, QStringLiteral("Home>  Latitude:"), m_lblHomeLat, m_lblHomeLong);
    addPosition(2, QStringLiteral("Target> Latitude:"), m_lblTargetLat, m_lblTargetLong);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_command1);
    buttons->addWidget(m_cmdShowPathMap);
    buttons->addWidget(m_cmdShowMapURL);
    grid->addLayout(buttons, 1, 4, 2, 1, Qt::AlignRight | Qt::AlignBottom);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    return grid;
}

/// Both boxes and the button, as one uses them, before the lists beside them.
void HomeTargetPanel::orderTabs() {
    const Row& home = row(Side::Home);
    const Row& target = row(Side::Target);
    const std::initializer_list<QWidget*> order{
        home.box,        target.box,         m_cmdCalculateDistDir,
        home.list,       home.cmdClear1Item, home.cmdClear,
        home.cmdDefault, target.list,        target.cmdClear1Item,
        target.cmdClear, target.cmdDefault,  m_lblDistKm,
        m_lblDistMile,   m_lblAzimuth,       m_lblHomeLat,
        m_lblHomeLong,   m_lblTargetLat,     m_lblTargetLong,
        m_command1,      m_cmdShowPathMap,   m_cmdShowMapURL};
    for (const auto* widget = order.begin(); widget + 1 != order.end(); ++widget)
        setTabOrder(widget[0], widget[1]);
}

void HomeTargetPanel::connectRow(Side side) {
    Row& controls = row(side);
    connect(controls.box, &QLineEdit::returnPressed, this,
            isHome(side) ? &HomeTargetPanel::txtHome_KeyPress
                         : &HomeTargetPanel::txtTarget_KeyPress);
    if (isHome(side))
        connect(controls.box, &LocatorBox::downPressed, this, [this] { enterBox(Side::Target); });
    else
        connect(controls.box, &LocatorBox::upPressed, this, [this] { enterBox(Side::Home); });
    connect(controls.list, &QComboBox::activated, this,
            [this, side](int index) { list_Click(side, index); });
    connect(controls.cmdClear, &QToolButton::clicked, this, [this, side] { cmdClear_Click(side); });
    connect(controls.cmdClear1Item, &QToolButton::clicked, this,
            [this, side] { cmdClear1Item_Click(side); });
    connect(controls.cmdDefault, &QPushButton::clicked, this,
            [this, side] { cmdDefault_Click(side); });
    controls.box->installEventFilter(this);
}

// Showing ---------------------------------------------------------------------------------------

void HomeTargetPanel::showForm() {
    const HomeTarget& panel = m_form.homeTarget;
    for (const Side side : bothSides) {
        showText(*row(side).box, m_form.homeTarget.box(side).text());
        showList(side);
    }
    showText(*m_lblDistKm, panel.lblDistKm);
    showText(*m_lblDistMile, panel.lblDistMile);
    showText(*m_lblAzimuth, panel.lblAzimuth);
    showText(*m_lblHomeLat, panel.lblHomeLat);
    showText(*m_lblHomeLong, panel.lblHomeLong);
    showText(*m_lblTargetLat, panel.lblTargetLat);
    showText(*m_lblTargetLong, panel.lblTargetLong);
}

void HomeTargetPanel::showList(Side side) {
    const LocatorList& list = m_form.homeTarget.list(side);
    QStringList items;
    for (const Text& item : list.items)
        items.append(toQString(item));
    QComboBox& widget = *row(side).list;
    QStringList shown;
    for (int i = 0; i < widget.count(); ++i)
        shown.append(widget.itemText(i));
    if (items != shown) {
        widget.clear();
        widget.addItems(items);
    }
    // A combo box selects its first item by itself; here nothing is selected unless someone did.
    widget.setCurrentIndex(list.ListIndex);
}

void HomeTargetPanel::fillBox(Side side, TextView locator) {
    m_form.homeTarget.box(side).set(locator);
    showForm();
}

void HomeTargetPanel::hideMapButton() {
    m_cmdShowMapURL->hide();
}

void HomeTargetPanel::enterBox(Side side) {
    row(side).box->setFocus();
    row(side).box->setSelection(0, selectionLength);
}

// Handlers --------------------------------------------------------------------------------------

void HomeTargetPanel::cmdCalculateDistDir_Click() {
    const CalculateEnd end = m_form.calculate(m_messages);
    showForm();
    switch (end) {
    case CalculateEnd::calculated:
        Q_EMIT converterChanged();
        m_picFocus.setFocus(); // as after the converter's own OK, which has just run
        break;
    case CalculateEnd::refusedHome:
        row(Side::Home).list->setFocus();
        break;
    case CalculateEnd::refusedTarget:
        row(Side::Target).list->setFocus();
        break;
    case CalculateEnd::refused:
        break;
    }
}

void HomeTargetPanel::txtHome_KeyPress() {
    LocatorBox& home = *row(Side::Home).box;
    LocatorBox& target = *row(Side::Target).box;
    if (target.text().size() < 3) {
        target.setFocus();
    } else if (home.text().size() > 3) {
        home.upperCaseText();
        cmdCalculateDistDir_Click();
        home.setFocus();
    }
}

void HomeTargetPanel::txtTarget_KeyPress() {
    LocatorBox& target = *row(Side::Target).box;
    if (target.text().size() >= 4) {
        target.upperCaseText();
        cmdCalculateDistDir_Click();
        target.setFocus();
    }
}

void HomeTargetPanel::box_MouseDown(Side side) {
    LocatorBox& box = *row(side).box;
    // The caret is the start of what is selected, so that a chosen locator stays selected for the
    // menu.
    const int caret = box.hasSelectedText() ? box.selectionStart() : box.cursorPosition();
    box.setSelection(caret, static_cast<int>(HomeTarget::locatorLength));
}

void HomeTargetPanel::list_Click(Side side, int index) {
    m_form.homeTarget.choose(side, index);
    showForm();
    enterBox(side);
}

void HomeTargetPanel::cmdClear_Click(Side side) {
    if (!askQuestion(this, clearQuestion(side)))
        return;
    m_form.homeTarget.clear(side);
    showForm();
}

void HomeTargetPanel::cmdClear1Item_Click(Side side) {
    m_form.homeTarget.removeSelected(side);
    showForm();
}

void HomeTargetPanel::cmdDefault_Click(Side side) {
    m_form.homeTarget.makeDefault(side);
    Q_EMIT defaultsChanged();
}

void HomeTargetPanel::Command1_Click() {
    copyToClipboard(m_form.homeTarget.report());
    m_picFocus.setFocus();
}

bool HomeTargetPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent*>(event)->button() == Qt::RightButton) {
        for (const Side side : bothSides) {
            if (watched == row(side).box)
                box_MouseDown(side);
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace orbisgrid
