#include "ui/about_pictures.h"

#include "ui/link_label.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

namespace orbisgrid {

namespace {

/// The pictures are drawn on a square of 72 units and scaled to their widget.
constexpr int side = 72;

/// Amber and a dark brown on it: readable on light and dark windows alike (contrast 8 to 1).
const QColor donationGround(0xF6, 0xBE, 0x4F);
const QColor donationGroundDown(0xE0, 0xA2, 0x2B);
const QColor donationInk(0x3B, 0x25, 0x00);
const QColor donationHeart(0xB3, 0x1B, 0x1B);

/// Sizes of the donation picture, in pixels.
constexpr int heartSize = 18;
constexpr int paddingAcross = 14;
constexpr int paddingDown = 9;
constexpr int gap = 8;

QString donationWord() {
    return QStringLiteral("Donate");
}

void preparePicture(QPainter& painter, const QWidget& widget) {
    painter.setRenderHint(QPainter::Antialiasing);
    const double scale = std::min(widget.width(), widget.height()) / double{side};
    painter.scale(scale, scale);
}

/// Halfway between two colours: lines that stay behind the main ones on any palette.
QColor mixed(const QColor& one, const QColor& other) {
    return {(one.red() + other.red()) / 2, (one.green() + other.green()) / 2,
            (one.blue() + other.blue()) / 2};
}

QColor quietLine(const QPalette& palette) {
    return mixed(palette.color(QPalette::Window), palette.color(QPalette::WindowText));
}

void drawGrid(QPainter& painter, const QPointF& centre, double radius) {
    painter.drawEllipse(centre, radius, radius);
    painter.drawEllipse(centre, radius * 0.45, radius);
    painter.drawLine(centre - QPointF(radius, 0), centre + QPointF(radius, 0));
    painter.drawLine(centre - QPointF(0, radius), centre + QPointF(0, radius));
    // Parallels at 30 degrees: half the radius up and down, as wide as the circle is there.
    const double halfWidth = radius * 0.866;
    for (const double height : {-radius / 2, radius / 2})
        painter.drawLine(centre + QPointF(-halfWidth, height), centre + QPointF(halfWidth, height));
}

void drawStation(QPainter& painter, const QPointF& place, const QColor& colour) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(place, 4, 4);
}

/// A heart that fills `box`.
QPainterPath heart(const QRectF& box) {
    const auto at = [&](double x, double y) {
        return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
    };
    QPainterPath path(at(0.5, 0.95));
    path.cubicTo(at(-0.35, 0.4), at(0.1, -0.15), at(0.5, 0.22));
    path.cubicTo(at(0.9, -0.15), at(1.35, 0.4), at(0.5, 0.95));
    return path;
}

} // namespace

GlobePicture::GlobePicture(QWidget* parent)
    : QWidget(parent) {
    setFixedSize(side, side);
}

void GlobePicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    preparePicture(painter, *this);
    painter.setPen(QPen(quietLine(palette()), 1.4));
    drawGrid(painter, QPointF(side, side) / 2, 31);

    const QColor accent = palette().color(QPalette::Highlight);
    const QPointF home(18, 43);
    const QPointF target(53, 25);
    QPainterPath route(home);
    route.quadTo(QPointF(29, 16), target);
    painter.setPen(QPen(accent, 3, Qt::SolidLine, Qt::RoundCap));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(route);
    drawStation(painter, home, accent);
    drawStation(painter, target, accent);
}

MastPicture::MastPicture(QWidget* parent)
    : QWidget(parent) {
    setFixedSize(side, side);
}

void MastPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    preparePicture(painter, *this);
    painter.setPen(QPen(quietLine(palette()), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF top(36, 24);
    const QPolygonF legs{QPointF(22, 66), top, QPointF(50, 66)};
    painter.drawPolyline(legs);
    // The lattice: each brace joins the two legs a step further down.
    painter.drawLine(QPointF(32, 36), QPointF(43.3, 46));
    painter.drawLine(QPointF(40, 36), QPointF(28.7, 46));
    painter.drawLine(QPointF(28.7, 46), QPointF(47.3, 58));
    painter.drawLine(QPointF(43.3, 46), QPointF(24.7, 58));

    const QColor accent = palette().color(QPalette::Highlight);
    painter.setPen(QPen(accent, 2.6, Qt::SolidLine, Qt::RoundCap));
    painter.setBrush(Qt::NoBrush);
    constexpr int degree = 16; // QPainter counts sixteenths
    for (const double radius : {11.0, 19.0}) {
        const QRectF circle(top.x() - radius, top.y() - radius, 2 * radius, 2 * radius);
        painter.drawArc(circle, -40 * degree, 80 * degree);
        painter.drawArc(circle, 140 * degree, 80 * degree);
    }
    drawStation(painter, top, accent);
}

LinePicture::LinePicture(QWidget* parent)
    : QWidget(parent) {
    setFixedHeight(1);
}

void LinePicture::paintEvent(QPaintEvent*) {
    // Twice towards the window's colour: a divider stands behind what it divides.
    QPainter(this).fillRect(rect(), mixed(palette().color(QPalette::Window), quietLine(palette())));
}

DonationPicture::DonationPicture(QWidget* parent)
    : QAbstractButton(parent) {
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    // A picture has no text of its own for a screen reader.
    setAccessibleName(donationWord());
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
}

int DonationPicture::wordWidth() const {
    return fontMetrics().horizontalAdvance(donationWord());
}

QSize DonationPicture::sizeHint() const {
    return {2 * paddingAcross + heartSize + gap + wordWidth(),
            2 * paddingDown + std::max(heartSize, fontMetrics().height())};
}

void DonationPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF ground(rect());
    painter.setPen(Qt::NoPen);
    painter.setBrush(isDown() ? donationGroundDown : donationGround);
    painter.drawRoundedRect(ground, ground.height() / 2, ground.height() / 2);
    painter.setBrush(donationHeart);
    painter.drawPath(
        heart(QRectF(paddingAcross, (height() - heartSize) / 2.0, heartSize, heartSize)));
    painter.setPen(donationInk);
    painter.drawText(rect().adjusted(paddingAcross + heartSize + gap, 0, 0, 0),
                     Qt::AlignLeft | Qt::AlignVCenter, donationWord());
    painter.end();
    paintFocusFrame(*this);
}

void DonationPicture::keyPressEvent(QKeyEvent* event) {
    if (!clickedByEnter(*this, *event))
        QAbstractButton::keyPressEvent(event);
}

} // namespace orbisgrid
