#include "ui/converter_panels.h"

#include "ui/entry_box.h"
#include "ui/locator_box.h"
#include "ui/panel_parts.h"
#include "ui/qt_text.h"

#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFrame>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

#include <algorithm>

namespace orbisgrid {

namespace {

DmsRow::Wording latitudeWording() {
    return {QStringLiteral("txtlatdms"),
            QStringLiteral("cmbDmsNS"),
            QStringLiteral("Latitude"),
            QStringLiteral("degrees (0...90)"),
            QStringLiteral("Compass direction: North/South"),
            QStringLiteral("Label3"),
            0};
}

DmsRow::Wording longitudeWording() {
    return {QStringLiteral("txtlondms"),
            QStringLiteral("cmbDmsWE"),
            QStringLiteral("Longitude"),
            QStringLiteral("degrees (0...180)"),
            QStringLiteral("Compass direction: East/West"),
            QStringLiteral("Label4"),
            1};
}

QLabel* namedCaption(const char* objectName, const QString& text, QWidget* buddy) {
    auto* label = captionLabel(text, buddy);
    label->setObjectName(QString::fromLatin1(objectName));
    return label;
}

QToolButton* okButton(const char* objectName, const QString& tip) {
    return glyphButton(QString::fromLatin1(objectName), Glyph::convert, tip);
}

QToolButton* copyButton(const char* objectName, const QString& accessibleName) {
    return glyphButton(QString::fromLatin1(objectName), Glyph::copy,
                       QStringLiteral("copy to clipboard"), accessibleName);
}

/// Buttons at the right end of a panel's bottom.
void addButtons(QGridLayout& grid, int line, std::initializer_list<QWidget*> buttons) {
    auto* box = new QHBoxLayout;
    box->addStretch();
    for (QWidget* button : buttons)
        box->addWidget(button);
    grid.setRowStretch(line, 1);
    grid.addLayout(box, line, 0, 1, grid.columnCount(), Qt::AlignBottom);
}

} // namespace

ConverterPanels::ConverterPanels(LocatorConverterForm& form, Messages& messages, QWidget& picFocus,
                                 QWidget* parent)
    : QWidget(parent)
    , m_form(form)
    , m_messages(messages)
    , m_picFocus(picFocus) {
    makeBoxes();
    makeLabels();
    makeButtons();
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(captionedFrame(QStringLiteral("Maidenhead IARU Locator"), locatorPanel()), 0,
                    0);
    grid->addWidget(captionedFrame(QStringLiteral("Decimal"), decimalPanel()), 0, 1);
    grid->addWidget(captionedFrame(QStringLiteral("Degrees/minutes/seconds"), dmsPanel()), 1, 0);
    grid->addWidget(captionedFrame(QStringLiteral("UI-View format"), uiViewPanel()), 1, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    alignCaptions({"Label1", "Label27", "Label28"});
    alignCaptions({"Label16", "Label17", "Label2", "Label11"});
    alignLists();
    connectButtons();
    connectEnterChain();
    connectLocatorBox();
    showForm();
}

// Building --------------------------------------------------------------------------------------

void ConverterPanels::makeBoxes() {
    Converter& converter = m_form.converter;
    m_txtLocator = new LocatorBox;
    bindBox(*m_txtLocator, converter.txtLocator,
            {QStringLiteral("txtLocator"), QStringLiteral("WM00WW00WW")});
    m_txtLocator->setToolTip(QStringLiteral("Maidenhead locator, Example: JO20AW"));
    m_txtDecLat = new QLineEdit;
    bindBox(*m_txtDecLat, converter.txtDecLat,
            {QStringLiteral("txtDecLat"), QStringLiteral("-00.0000000")});
    m_txtDecLat->setToolTip(QStringLiteral("Latitude decimal (South = negative)"));
    m_txtDecLong = new QLineEdit;
    bindBox(*m_txtDecLong, converter.txtDecLong,
            {QStringLiteral("txtDecLong"), QStringLiteral("-00.0000000")});
    m_txtDecLong->setToolTip(QStringLiteral("Longitude decimal (West = negative)"));
    m_lat = DmsRow::make(latitudeWording(), converter.txtlatdms, converter.cmbDmsNS);
    m_lon = DmsRow::make(longitudeWording(), converter.txtlondms, converter.cmbDmsWE);
    m_txtUIView = new EntryBox;
    bindBox(*m_txtUIView, converter.txtUIView,
            {QStringLiteral("txtUIView"), QStringLiteral("=00000.00N/000000.00W")});
    m_txtUIView->setToolTip(
        QStringLiteral("UI-View uncompressed format (example: =5056.17N/00402.67E)"));
}

void ConverterPanels::makeLabels() {
    m_label1 = namedCaption("Label1", toQString(m_form.converter.Label1), m_txtLocator);
    m_lblDecNS = captionLabel({});
    m_lblDecNS->setObjectName(QStringLiteral("lblDecNS"));
    m_lblDecEW = captionLabel({});
    m_lblDecEW->setObjectName(QStringLiteral("lblDecEW"));
    m_lblCompressed = resultLabel(QStringLiteral("lblCompressed"), m_form.converter.lblCompressed,
                                  QStringLiteral("APRS compressed text"));
}

void ConverterPanels::makeButtons() {
    m_cmdOKLocator = okButton("cmdOKLocator", QStringLiteral("Convert from the locator"));
    m_cmdOKDecimal = okButton("cmdOKDecimal", QStringLiteral("Convert from decimal degrees"));
    m_cmdOkDMS = okButton("cmdOkDMS", QStringLiteral("Convert from degrees/minutes/seconds"));
    m_cmdOkUIView = okButton("cmdOkUIView", QStringLiteral("Convert from the UI-View text"));
    m_command9 = glyphButton(QStringLiteral("Command9"), Glyph::copyAll,
                             QStringLiteral("copy all to clipboard"));
    m_command10 = copyButton("Command10", QStringLiteral("Copy the locator to the clipboard"));
    m_command11 =
        copyButton("Command11", QStringLiteral("Copy the decimal degrees to the clipboard"));
    m_command13 = copyButton("Command13",
                             QStringLiteral("Copy the degrees/minutes/seconds to the clipboard"));
    m_command15 = copyButton("Command15", QStringLiteral("Copy the APRS texts to the clipboard"));
    m_command2 = new QPushButton(QStringLiteral("Command2"), this); // a development aid
    m_command2->setObjectName(QStringLiteral("Command2"));
    m_command2->hide();
}

QLayout* ConverterPanels::locatorPanel() {
    auto* grid = new QGridLayout;
    grid->addWidget(m_label1, 0, 0);
    grid->addWidget(m_txtLocator, 0, 1);
    grid->setColumnStretch(2, 1);
    addButtons(*grid, 1, {m_cmdOKLocator, m_command10, m_command9});
    return grid;
}

QLayout* ConverterPanels::decimalPanel() {
    auto* grid = new QGridLayout;
    grid->addWidget(namedCaption("Label17", QStringLiteral("Latitude:"), m_txtDecLat), 0, 0);
    grid->addWidget(m_txtDecLat, 0, 1);
    grid->addWidget(m_lblDecNS, 0, 2);
    grid->addWidget(namedCaption("Label16", QStringLiteral("Longitude:"), m_txtDecLong), 1, 0);
    grid->addWidget(m_txtDecLong, 1, 1);
    grid->addWidget(m_lblDecEW, 1, 2);
    grid->setColumnStretch(3, 1);
    addButtons(*grid, 2, {m_cmdOKDecimal, m_command11});
    return grid;
}

QLayout* ConverterPanels::dmsPanel() {
    auto* grid = new QGridLayout;
    grid->addWidget(namedCaption("Label27", QStringLiteral("Latitude:"), m_lat.boxes[0]), 0, 0);
    grid->addLayout(m_lat.layout(latitudeWording()), 0, 1);
    grid->addWidget(namedCaption("Label28", QStringLiteral("Longitude:"), m_lon.boxes[0]), 1, 0);
    grid->addLayout(m_lon.layout(longitudeWording()), 1, 1);
    grid->setColumnStretch(2, 1);
    addButtons(*grid, 2, {m_cmdOkDMS, m_command13});
    return grid;
}

QLayout* ConverterPanels::uiViewPanel() {
    auto* grid = new QGridLayout;
    grid->addWidget(namedCaption("Label2", QStringLiteral("APRS-string:"), m_txtUIView), 0, 0);
    grid->addWidget(m_txtUIView, 0, 1);
    grid->addWidget(namedCaption("Label11", QStringLiteral("Compressed:"), nullptr), 1, 0);
    grid->addWidget(m_lblCompressed, 1, 1);
    grid->setColumnStretch(2, 1);
    addButtons(*grid, 2, {m_cmdOkUIView, m_command15});
    return grid;
}

/// Frames that stand below each other get captions of one width, so that their boxes line up.
void ConverterPanels::alignCaptions(std::initializer_list<const char*> names) {
    int width = 0;
    std::vector<QWidget*> captions;
    for (const char* name : names) {
        captions.push_back(findChild<QLabel*>(QString::fromLatin1(name)));
        width = std::max(width, captions.back()->sizeHint().width());
    }
    for (QWidget* caption : captions)
        caption->setMinimumWidth(width);
}

void ConverterPanels::alignLists() {
    const int width =
        std::max(m_lat.hemisphere->sizeHint().width(), m_lon.hemisphere->sizeHint().width());
    for (QComboBox* list : {m_lat.hemisphere, m_lon.hemisphere})
        list->setMinimumWidth(width);
}

void ConverterPanels::connectButtons() {
    const Converter& converter = m_form.converter;
    connect(m_cmdOKLocator, &QToolButton::clicked, this, &ConverterPanels::cmdOKLocator_Click);
    connect(m_cmdOKDecimal, &QToolButton::clicked, this, &ConverterPanels::cmdOKDecimal_Click);
    connect(m_cmdOkDMS, &QToolButton::clicked, this, &ConverterPanels::cmdOkDMS_Click);
    connect(m_cmdOkUIView, &QToolButton::clicked, this, &ConverterPanels::cmdOkUIView_Click);
    connect(m_command2, &QPushButton::clicked, this, &ConverterPanels::Command2_Click);
    connect(m_command9, &QToolButton::clicked, this, [&] { copy(converter.everythingCopy()); });
    connect(m_command10, &QToolButton::clicked, this, [&] { copy(converter.locatorCopy()); });
    connect(m_command11, &QToolButton::clicked, this, [&] { copy(converter.decimalCopy()); });
    connect(m_command13, &QToolButton::clicked, this, [&] { copy(converter.dmsCopy()); });
    connect(m_command15, &QToolButton::clicked, this, [&] { copy(converter.aprsCopy()); });
}

void ConverterPanels::connectEnterChain() {
    const auto enterLeadsTo = [](QLineEdit* box, QWidget* next) {
        connect(box, &QLineEdit::returnPressed, next, [next] { next->setFocus(); });
    };
    connect(m_txtLocator, &QLineEdit::returnPressed, this, &ConverterPanels::cmdOKLocator_Click);
    enterLeadsTo(m_txtDecLat, m_lat.hemisphere);
    enterLeadsTo(m_txtDecLong, m_lon.hemisphere);
    enterLeadsTo(m_lat.boxes[2], m_lon.boxes[0]);
    connect(m_lon.boxes[2], &QLineEdit::returnPressed, this, &ConverterPanels::cmdOkDMS_Click);
    connect(m_txtUIView, &QLineEdit::returnPressed, this, &ConverterPanels::cmdOkUIView_Click);
    m_lat.hemisphere->installEventFilter(this);
    m_lon.hemisphere->installEventFilter(this);
}

void ConverterPanels::connectLocatorBox() {
    m_txtLocator->installEventFilter(this);
    const auto showLetters = [this] {
        showText(*m_lblDecNS, m_form.converter.lblDecNS());
        showText(*m_lblDecEW, m_form.converter.lblDecEW());
    };
    connect(m_txtDecLat, &QLineEdit::textChanged, this, showLetters);
    connect(m_txtDecLong, &QLineEdit::textChanged, this, showLetters);
    showLetters(); // empty boxes read 0, which is north and east
}

// Showing ---------------------------------------------------------------------------------------

void ConverterPanels::showForm() {
    const Converter& converter = m_form.converter;
    showText(*m_label1, converter.Label1);
    showText(*m_txtLocator, converter.txtLocator.text());
    showText(*m_txtDecLat, converter.txtDecLat.text());
    showText(*m_txtDecLong, converter.txtDecLong.text());
    m_lat.show(converter.txtlatdms, converter.cmbDmsNS);
    m_lon.show(converter.txtlondms, converter.cmbDmsWE);
    showText(*m_txtUIView, converter.txtUIView.text());
    showText(*m_lblCompressed, converter.lblCompressed);
}

void ConverterPanels::showConversion() {
    showForm();
    m_txtLocator->setSelection(0, static_cast<int>(m_txtLocator->text().size()));
}

QLineEdit* ConverterPanels::locatorBox() const {
    return m_txtLocator;
}

QLineEdit* ConverterPanels::decimalBox() const {
    return m_txtDecLat;
}

QLineEdit* ConverterPanels::dmsBox() const {
    return m_lat.boxes[0];
}

QLineEdit* ConverterPanels::uiViewBox() const {
    return m_txtUIView;
}

// Handlers --------------------------------------------------------------------------------------

void ConverterPanels::cmdOKLocator_Click() {
    m_picFocus.setFocus();
    if (m_form.convertLocator(m_messages))
        showConversion();
    else
        m_txtLocator->setFocus();
}

void ConverterPanels::cmdOKDecimal_Click() {
    m_picFocus.setFocus();
    m_form.converter.cmdOKDecimal_Click(m_messages);
    showForm();
}

void ConverterPanels::cmdOkDMS_Click() {
    const bool isConverted = m_form.converter.cmdOkDMS_Click(m_messages);
    showForm();
    if (isConverted)
        m_picFocus.setFocus();
}

void ConverterPanels::cmdOkUIView_Click() {
    m_picFocus.setFocus();
    m_form.converter.cmdOkUIView_Click(m_messages);
    showForm();
}

void ConverterPanels::Command2_Click() {
    m_form.converter.Command2_Click(m_messages);
    showForm();
}

void ConverterPanels::copy(const Text& text) {
    copyToClipboard(text);
    m_picFocus.setFocus();
}

// The locator box -------------------------------------------------------------------------------

void ConverterPanels::txtLocator_LostFocus() {
    m_txtLocator->upperCaseText();
    m_txtLocator->deselect();
}

void ConverterPanels::txtLocator_MouseDown(const QPoint& globalPosition) {
    // The box shows what it showed while it is disabled, which keeps its own menu away.
    m_txtLocator->setUpdatesEnabled(false);
    m_txtLocator->setEnabled(false);
    const auto pasted = [this] { mnuPasted_Click(); };
    showOptionsMenu(*window(), globalPosition, pasted, mnuPaste());
    m_txtLocator->setEnabled(true);
    m_txtLocator->setUpdatesEnabled(true);
    m_txtLocator->setFocus(); // disabling it has moved the focus on
}

void ConverterPanels::mnuPasted_Click() {
    m_form.converter.paste(toText(QGuiApplication::clipboard()->text()));
    m_pasted = true;
    showForm();
}

std::vector<MenuEntry> ConverterPanels::mnuPaste() {
    const MenuEntry separator;
    return {{QStringLiteral("Paste into Home:"), [this] { pasteInto(Side::Home); }},
            {QStringLiteral("Paste into Target:"), [this] { pasteInto(Side::Target); }},
            separator,
            {QStringLiteral("Paste here"), [this] { mnuPasted_Click(); }},
            separator,
            {QStringLiteral("Copy"), [this] { copyToClipboard(m_form.converter.menuLocator()); }}};
}

void ConverterPanels::pasteInto(Side side) {
    m_form.homeTarget.box(side).set(m_form.converter.menuLocator());
    Q_EMIT homeTargetChanged();
}

// Events of the boxes ---------------------------------------------------------------------------

bool ConverterPanels::locatorBox_Event(QEvent* event) {
    switch (event->type()) {
    case QEvent::FocusOut:
        // When a menu opens or another program comes to the front, the focus returns to this box.
        if (const auto reason = static_cast<QFocusEvent*>(event)->reason();
            reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason)
            txtLocator_LostFocus();
        return false;
    case QEvent::ContextMenu:
        if (m_txtLocator->text().size() < 4)
            return false; // the box's own menu
        txtLocator_MouseDown(static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    case QEvent::MouseButtonRelease:
        m_pasted = false;
        return false;
    default:
        return false;
    }
}

bool ConverterPanels::hemisphere_KeyPress(const QObject* list, const QKeyEvent& event) {
    if (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter)
        return false;
    if (list == m_lat.hemisphere)
        m_lon.boxes[0]->setFocus();
    else
        cmdOkDMS_Click();
    return true;
}

bool ConverterPanels::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_txtLocator)
        return locatorBox_Event(event);
    return event->type() == QEvent::KeyPress &&
           hemisphere_KeyPress(watched, *static_cast<QKeyEvent*>(event));
}

} // namespace orbisgrid
