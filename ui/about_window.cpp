#include "ui/about_window.h"

#include "panels/system_info.h"
#include "platform/programs.h"
#include "ui/about_pictures.h"
#include "ui/addresses.h"
#include "ui/link_label.h"
#include "ui/module1.h"
#include "ui/qt_text.h"
#include "ui/version.h"
#include "ui/window_messages.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace orbisgrid {

namespace {

/// Left and right of everything, in pixels.
constexpr int sideMargin = 20;

/// Captions as designed; those that are set when the window loads start empty.
const char* const description =
    "This program calculates the distance, azimuth, longitude and latitude between two Maidenhead "
    "locators. It also allows you to convert between all types of locator systems!";
const char* const donationTip =
    "Make a donation to support this and future project. Keep free HAM-soft alive please!";

/// True of the file LICENSE, which is the MIT License.
const char* const terms =
    "Orbisgrid is free software under the MIT License: you may use, change and pass it on, with or "
    "without a fee, as long as its copyright and permission notice stays with it, and it comes "
    "without any warranty.";

QLabel* wrappedLabel(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QLabel* plainLabel(const char* text, QWidget* parent) {
    auto* label = new QLabel(QString::fromLatin1(text), parent);
    label->setTextFormat(Qt::PlainText);
    return label;
}

void setFontScaled(QWidget& widget, double factor, bool isBold) {
    QFont font = widget.font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(isBold);
    widget.setFont(font);
}

} // namespace

frmAbout::frmAbout(std::int32_t useCounter, ToolRegistry& registry, QWidget* parent)
    : QDialog(parent)
    , m_registry(registry)
    , m_image1(new GlobePicture(this))
    , m_image2(new DonationPicture(this))
    , m_image3(new MastPicture(this))
    , m_line1(new LinePicture(this))
    , m_lblTitle(plainLabel("", this))
    , m_lblVersion(plainLabel("", this))
    , m_lblDescription(wrappedLabel(QString::fromLatin1(description), this))
    , m_label6(plainLabel("You have used this program ", this))
    , m_label5(plainLabel("Keep HAM-Software FREE!!!", this))
    , m_label1(plainLabel("For more HAM-software or updates please visit:", this))
    , m_label2(new LinkLabel(homePageAddress(), this))
    , m_label4(new LinkLabel(QStringLiteral("Mail author..."), this))
    , m_lblDisclaimer(wrappedLabel({}, this))
    , m_cmdSysInfo(new QPushButton(QStringLiteral("&System Info..."), this))
    , m_command1(new QPushButton(QStringLiteral("Check for Updates"), this))
    , m_cmdOK(new QPushButton(QStringLiteral("OK"), this)) {
    nameControls();
    buildControls();
    buildLayout();
    connectControls();
    load(useCounter);
    fixSize();
}

void frmAbout::nameControls() {
    setObjectName(QStringLiteral("frmAbout"));
    m_image1->setObjectName(QStringLiteral("Image1"));
    m_image2->setObjectName(QStringLiteral("Image2"));
    m_image3->setObjectName(QStringLiteral("Image3"));
    m_line1->setObjectName(QStringLiteral("Line1"));
    m_lblTitle->setObjectName(QStringLiteral("lblTitle"));
    m_lblVersion->setObjectName(QStringLiteral("lblVersion"));
    m_lblDescription->setObjectName(QStringLiteral("lblDescription"));
    m_label6->setObjectName(QStringLiteral("Label6"));
    m_label5->setObjectName(QStringLiteral("Label5"));
    m_label1->setObjectName(QStringLiteral("Label1"));
    m_label2->setObjectName(QStringLiteral("Label2"));
    m_label4->setObjectName(QStringLiteral("Label4"));
    m_lblDisclaimer->setObjectName(QStringLiteral("lblDisclaimer"));
    m_cmdSysInfo->setObjectName(QStringLiteral("cmdSysInfo"));
    m_command1->setObjectName(QStringLiteral("Command1"));
    m_cmdOK->setObjectName(QStringLiteral("cmdOK"));
}

void frmAbout::buildControls() {
    setFontScaled(*m_lblTitle, 1.8, true);
    setFontScaled(*m_label5, 1.0, true);
    m_image2->setToolTip(QString::fromLatin1(donationTip));
    m_cmdOK->setDefault(true);
    m_cmdOK->setFocus();
    m_cmdSysInfo->setAutoDefault(false);
    m_command1->setAutoDefault(false);
}

void frmAbout::buildLayout() {
    m_content = new QWidget;
    auto* rows = new QVBoxLayout(m_content);
    rows->setContentsMargins(sideMargin, 18, sideMargin, 0);
    rows->setSpacing(12);
    rows->addLayout(header());
    rows->addWidget(m_lblDescription);
    rows->addLayout(pages());
    rows->addWidget(m_line1);
    rows->addLayout(donation());
    rows->addWidget(m_lblDisclaimer);

    // Scrolls where large fonts meet a small screen; the buttons stay in sight.
    auto* area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(m_content);
    m_buttons = buttons();
    auto* window = new QVBoxLayout(this);
    window->setContentsMargins(0, 0, 0, 0);
    window->setSpacing(0);
    window->addWidget(area, 1);
    window->addLayout(m_buttons);
    setReadingOrder();
}

void frmAbout::setReadingOrder() {
    const std::initializer_list<QWidget*> order{m_label2,     m_label4,   m_image2,
                                                m_cmdSysInfo, m_command1, m_cmdOK};
    for (const auto* next = order.begin() + 1; next != order.end(); ++next)
        setTabOrder(*(next - 1), *next);
}

void frmAbout::fixSize() {
    // The height that the wrapped texts need: on its own a dialog opens at two thirds of the screen
    // at most, which cuts lines at large fonts.
    ensurePolished();
    const QSize room = screen()->availableSize() * 0.9;
    constexpr int charactersAcross = 84; // few lines to each paragraph, and none too long to read
    const int width = std::min(fontMetrics().averageCharWidth() * charactersAcross, room.width());
    const auto textHeight = [this](int across) {
        return m_content->layout()->totalHeightForWidth(across);
    };
    const int below = m_buttons->sizeHint().height();
    const bool scrolls = textHeight(width) + below > room.height();
    const int bar = scrolls ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
    m_content->setMinimumHeight(textHeight(width - bar));
    setFixedSize(width, scrolls ? room.height() : textHeight(width) + below);
}

QLayout* frmAbout::header() {
    auto* titles = new QVBoxLayout;
    titles->setSpacing(2);
    titles->addStretch();
    titles->addWidget(m_lblTitle);
    titles->addWidget(m_lblVersion);
    titles->addStretch();
    auto* row = new QHBoxLayout;
    row->setSpacing(16);
    row->addWidget(m_image1);
    row->addLayout(titles, 1);
    row->addWidget(m_image3);
    return row;
}

QLayout* frmAbout::pages() {
    auto* column = new QVBoxLayout;
    column->setSpacing(2);
    column->addWidget(m_label6);
    column->addSpacing(8);
    column->addWidget(m_label1);
    column->addWidget(m_label2);
    column->addWidget(m_label4);
    return column;
}

QLayout* frmAbout::donation() {
    auto* row = new QHBoxLayout;
    row->addWidget(m_label5, 1);
    row->addWidget(m_image2);
    return row;
}

QLayout* frmAbout::buttons() {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(sideMargin, 16, sideMargin, 16);
    row->setSpacing(10);
    row->addWidget(m_cmdSysInfo);
    row->addWidget(m_command1);
    row->addStretch();
    row->addWidget(m_cmdOK);
    return row;
}

void frmAbout::load(std::int32_t useCounter) {
    setWindowTitle(QStringLiteral("About ") + applicationTitle());
    m_lblVersion->setText(QStringLiteral("Version %1.%2.%3")
                              .arg(versionMajor)
                              .arg(versionMinor)
                              .arg(versionRevision));
    m_lblTitle->setText(applicationTitle());
    m_label6->setText(m_label6->text() + QString::number(useCounter) + QStringLiteral(" times."));
    m_lblDisclaimer->setText(QString::fromLatin1(terms) +
                             QStringLiteral("\r\nPlease consider a small donation. Thank you!"
                                            "\r\n73'' de ZZ9QX"));
}

void frmAbout::connectControls() {
    connect(m_cmdOK, &QPushButton::clicked, this, &frmAbout::cmdOK_Click);
    connect(m_cmdSysInfo, &QPushButton::clicked, this, &frmAbout::cmdSysInfo_Click);
    connect(m_command1, &QPushButton::clicked, this, &frmAbout::Command1_Click);
    connect(m_image2, &DonationPicture::clicked, this, &frmAbout::Image2_Click);
    connect(m_label2, &LinkLabel::clicked, this, &frmAbout::Label2_Click);
    connect(m_label4, &LinkLabel::clicked, this, &frmAbout::Label4_Click);
}

void frmAbout::cmdOK_Click() {
    accept();
}

void frmAbout::cmdSysInfo_Click() {
    StartSysInfo();
}

void frmAbout::Command1_Click() {
    QString address = updatePageAddress();
    OpenWebPage(address);
}

void frmAbout::Image2_Click() {
    QString address = donationAddress();
    OpenWebPage(address);
}

void frmAbout::Label2_Click() {
    QString address;
    OpenWebPage(address);
}

void frmAbout::Label4_Click() {
    MailAuthor();
}

void frmAbout::StartSysInfo() {
    const auto fileExists = [](const Text& path) { return QFileInfo(toQString(path)).isFile(); };
    const std::optional<Text> path = systemInformationPath(m_registry, fileExists);
    if (path && startProgram(toUtf8(*path)))
        return;
    showMessageBox(this,
                   {u"System Information Is Unavailable At This Time", {}, MessageIcon::none});
}

} // namespace orbisgrid
