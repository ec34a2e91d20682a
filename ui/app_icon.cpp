#include "ui/app_icon.h"

#include <QIconEngine>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace orbisgrid {

namespace {

/// The picture is drawn on a square of this side and scaled, with the numbers of the SVG file.
constexpr qreal side = 64;

const QColor seaBright(0x3F, 0xA7, 0xEE);
const QColor seaDark(0x0C, 0x47, 0x90);
const QColor outline(0x0A, 0x34, 0x68);
const QColor gridLine(0x8F, 0xC9, 0xF5, 153);
const QColor way(0xFF, 0xC5, 0x3D);
const QColor light(0xFF, 0xF7, 0xE0);

const QPointF centre(32, 32);
const QPointF home(14, 46);
const QPointF target(50, 22);
constexpr qreal radius = 30;

QPen roundPen(const QColor& colour, qreal width) {
    return {colour, width, Qt::SolidLine, Qt::RoundCap};
}

void drawSea(QPainter& painter) {
    QLinearGradient sea(14, 6, 50, 58);
    sea.setColorAt(0, seaBright);
    sea.setColorAt(1, seaDark);
    painter.setPen(Qt::NoPen);
    painter.setBrush(sea);
    painter.drawEllipse(centre, radius, radius);
}

/// One path: where its lines cross they are no brighter than elsewhere.
void drawGrid(QPainter& painter) {
    QPainterPath grid;
    for (const qreal y : {22.0, 42.0}) {
        grid.moveTo(5, y);
        grid.lineTo(59, y);
    }
    grid.addEllipse(centre, 14, radius);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(gridLine, 2.5, Qt::SolidLine, Qt::FlatCap));
    painter.drawPath(grid);
    painter.setPen(QPen(outline, 2));
    painter.drawEllipse(centre, radius, radius);
}

void drawStations(QPainter& painter, const QColor& colour, qreal size) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(home, size, size);
    painter.drawEllipse(target, size, size);
}

void drawWay(QPainter& painter) {
    QPainterPath path(home);
    path.quadTo({24, 10}, target);
    painter.strokePath(path, roundPen(outline, 9));
    drawStations(painter, outline, 8.5);
    painter.strokePath(path, roundPen(way, 5));
    drawStations(painter, way, 6.5);
    drawStations(painter, light, 2.5);
}

class AppIconEngine : public QIconEngine {
public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
        const qreal scale = qMin(rect.width(), rect.height()) / side;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(QRectF(rect).center());
        painter->scale(scale, scale);
        painter->translate(-centre);
        drawSea(*painter);
        drawGrid(*painter);
        drawWay(*painter);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }

    /// What window managers ask for. Each size is painted at every start, so there is no larger
    /// one: a desktop that wants one has the installed files.
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
        return {{16, 16}, {32, 32}, {48, 48}, {64, 64}};
    }

    QIconEngine* clone() const override { return new AppIconEngine; }
};

} // namespace

QIcon appIcon() {
    return QIcon(new AppIconEngine);
}

} // namespace orbisgrid
