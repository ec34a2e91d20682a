#include "ui/icons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>
#include <QPixmapCache>

namespace orbisgrid {

namespace {

/// Glyphs are drawn on a square of this side and scaled.
constexpr qreal side = 16;

QColor inkOf(QIcon::Mode mode) {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    return QGuiApplication::palette().color(group, QPalette::ButtonText);
}

/// The colour of a sheet.
QColor paper() {
    return QGuiApplication::palette().color(QPalette::Base);
}

QPainterPath polyline(std::initializer_list<QPointF> points) {
    QPainterPath path(*points.begin());
    for (const QPointF& point : points)
        path.lineTo(point);
    return path;
}

void drawConvert(QPainter& painter) {
    painter.drawPath(polyline({{3, 8.5}, {6.5, 12}, {13, 4.5}}));
}

/// A sheet with its upper left corner at `corner`; lines of text show which one lies on top.
void drawSheet(QPainter& painter, QPointF corner) {
    painter.setBrush(paper());
    painter.drawRoundedRect(QRectF(corner, QSizeF(8, 9.5)), 1, 1);
    painter.setBrush(Qt::NoBrush);
}

void drawLines(QPainter& painter, QPointF corner, int lines) {
    for (int i = 0; i < lines; ++i) {
        const QPointF start = corner + QPointF(2, 2.75 + 2 * i);
        painter.drawLine(start, start + QPointF(4, 0));
    }
}

void drawCopy(QPainter& painter) {
    drawSheet(painter, {2, 1.75});
    drawSheet(painter, {6, 4.75});
    drawLines(painter, {6, 4.75}, 2);
}

void drawCopyAll(QPainter& painter) {
    drawSheet(painter, {1, 1});
    drawSheet(painter, {3.75, 3});
    drawSheet(painter, {6.5, 5});
    drawLines(painter, {6.5, 5}, 3);
}

void drawMap(QPainter& painter) {
    QPainterPath pin(QPointF(8, 14.5));
    pin.cubicTo(4, 10, 3.25, 8.25, 3.25, 6.25);
    pin.arcTo(QRectF(3.25, 1.5, 9.5, 9.5), 180, -180);
    pin.cubicTo(12.75, 8.25, 12, 10, 8, 14.5);
    painter.drawPath(pin);
    painter.drawEllipse(QPointF(8, 6.25), 1.75, 1.75);
}

/// The disc of a map, and on it the way from its middle to a place.
void drawPathMap(QPainter& painter) {
    painter.drawEllipse(QPointF(8, 8), 6.5, 6.5);
    painter.drawLine(QPointF(8, 8), QPointF(4.5, 5.25));
    painter.setBrush(painter.pen().color());
    painter.drawEllipse(QPointF(8, 8), 0.75, 0.75);
    painter.drawEllipse(QPointF(4.25, 5), 0.75, 0.75);
}

void drawRemoveItem(QPainter& painter) {
    painter.drawLine(QPointF(3.5, 8), QPointF(12.5, 8));
}

void drawEraseList(QPainter& painter) {
    painter.drawLine(QPointF(2.5, 4), QPointF(13.5, 4));
    painter.drawPath(polyline({{6, 4}, {6, 2}, {10, 2}, {10, 4}}));
    painter.drawPath(polyline({{4, 4}, {4.75, 14}, {11.25, 14}, {12, 4}}));
    painter.drawLine(QPointF(6.75, 6.5), QPointF(7, 11.5));
    painter.drawLine(QPointF(9.25, 6.5), QPointF(9, 11.5));
}

void drawRefresh(QPainter& painter) {
    const QRectF circle(3, 3, 10, 10);
    QPainterPath arc;
    arc.arcMoveTo(circle, 60);
    arc.arcTo(circle, 60, 290);
    painter.drawPath(arc);
    painter.drawPath(polyline({{10.75, 0.75}, {10.6, 3.75}, {7.6, 4}}));
}

void drawGlyph(QPainter& painter, Glyph glyph) {
    switch (glyph) {
    case Glyph::convert:
        return drawConvert(painter);
    case Glyph::copy:
        return drawCopy(painter);
    case Glyph::copyAll:
        return drawCopyAll(painter);
    case Glyph::map:
        return drawMap(painter);
    case Glyph::pathMap:
        return drawPathMap(painter);
    case Glyph::removeItem:
        return drawRemoveItem(painter);
    case Glyph::eraseList:
        return drawEraseList(painter);
    case Glyph::refresh:
        return drawRefresh(painter);
    }
}

class GlyphEngine : public QIconEngine {
public:
    explicit GlyphEngine(Glyph glyph)
        : m_glyph(glyph) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const QColor ink = inkOf(mode);
        const qreal scale = qMin(rect.width(), rect.height()) / side;
        const qreal lineWidth = m_glyph == Glyph::convert ? 2 : 1.25;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(QRectF(rect).center());
        painter->scale(scale, scale);
        painter->translate(-side / 2, -side / 2);
        painter->setPen(QPen(ink, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        drawGlyph(*painter, m_glyph);
        painter->restore();
    }

    /// Most glyphs stand on several buttons: they are drawn once.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        const QString key = QStringLiteral("orbisgrid-glyph %1 %2x%3 %4 %5")
                                .arg(static_cast<int>(m_glyph))
                                .arg(size.width())
                                .arg(size.height())
                                .arg(inkOf(mode).rgba())
                                .arg(paper().rgba());
        QPixmap pixmap;
        if (QPixmapCache::find(key, &pixmap))
            return pixmap;
        pixmap = QPixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        painter.end();
        QPixmapCache::insert(key, pixmap);
        return pixmap;
    }

    QIconEngine* clone() const override { return new GlyphEngine(m_glyph); }

private:
    Glyph m_glyph;
};

} // namespace

QIcon glyphIcon(Glyph glyph) {
    return QIcon(new GlyphEngine(glyph));
}

} // namespace orbisgrid
