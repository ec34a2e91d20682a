#include "ui/picture_painter.h"

#include "ui/qt_text.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <numbers>

namespace orbisgrid {

namespace {

QColor colorOf(std::uint32_t color) {
    return QColor::fromRgba(color);
}

int pointCount(const Picture::Area& area) {
    std::size_t count = 0;
    for (const Picture::Polyline& ring : area.rings)
        count += ring.size();
    return static_cast<int>(count);
}

class Painting {
public:
    Painting(QPainter& painter, const PictureLook& look)
        : m_painter(painter)
        , m_look(look) {}

    void paint(const Picture::Area& area) {
        const RoleStyle& style = m_look.styles.of(area.role);
        QPainterPath path;
        path.reserve(pointCount(area));
        for (const Picture::Polyline& ring : area.rings)
            path.addPolygon(polygonOf(ring));
        path.setFillRule(Qt::OddEvenFill);
        m_painter.setRenderHint(QPainter::Antialiasing, !m_look.isForScreen);
        m_painter.fillPath(path, colorOf(style.fill));
        m_painter.setRenderHint(QPainter::Antialiasing);
        if (!setPen(style))
            return;
        for (const Picture::Polyline& ring : area.rings)
            m_painter.drawPolygon(polygonOf(ring));
    }

    void paint(const Picture::Lines& lines) {
        if (!setPen(m_look.styles.of(lines.role)))
            return;
        for (const Picture::Polyline& line : lines.lines)
            m_painter.drawPolyline(polygonOf(line));
    }

    void paint(const Picture::Circle& circle) {
        paintRound(m_look.styles.of(circle.role), circle.centre, circle.radius);
    }

    void paint(const Picture::Dot& dot) {
        paintRound(m_look.styles.of(dot.role), dot.place, dot.radius);
    }

    void paint(const Picture::Label& label) {
        const RoleStyle& style = m_look.styles.of(label.role);
        QFont font = m_look.font;
        font.setPixelSize(std::max(1, qRound(label.size * m_look.scale)));
        font.setBold(style.isBold);
        const QString text = toQString(label.text);
        const double width = QFontMetricsF(font, m_painter.device()).horizontalAdvance(text);
        QPointF place = pointOf(label.place);
        if (label.anchor == Picture::Anchor::middle)
            place.rx() -= width / 2;
        else if (label.anchor == Picture::Anchor::end)
            place.rx() -= width;
        if (m_look.isForScreen)
            paintQuickly({text, font, place}, style);
        else
            paintText({text, font, place}, style);
    }

private:
    struct PlacedText {
        QString text;
        QFont font;
        QPointF place;
    };

    /// Letters with a light seam: they are read on coasts and lines, too.
    void paintText(const PlacedText& text, const RoleStyle& style) {
        QPainterPath letters;
        letters.addText(text.place, text.font, text.text);
        const double seam = style.width * text.font.pixelSize();
        m_painter.strokePath(
            letters, QPen(colorOf(style.stroke), seam, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
        m_painter.fillPath(letters, colorOf(style.fill));
    }

    void paintQuickly(const PlacedText& text, const RoleStyle& style) {
        const double away = style.width * text.font.pixelSize() / 2 * std::numbers::sqrt2 / 2;
        m_painter.setFont(text.font);
        m_painter.setPen(colorOf(style.stroke));
        for (const QPointF& corner :
             {QPointF(1, 1), QPointF(1, -1), QPointF(-1, 1), QPointF(-1, -1)})
            m_painter.drawText(text.place + corner * away, text.text);
        m_painter.setPen(colorOf(style.fill));
        m_painter.drawText(text.place, text.text);
    }

    void paintRound(const RoleStyle& style, Picture::Point centre, double radius) {
        setPen(style);
        m_painter.setBrush(style.fill == 0 ? QBrush(Qt::NoBrush) : QBrush(colorOf(style.fill)));
        m_painter.drawEllipse(pointOf(centre), radius * m_look.scale, radius * m_look.scale);
        m_painter.setBrush(Qt::NoBrush);
    }

    /// Result: whether there is anything to draw with it.
    bool setPen(const RoleStyle& style) {
        const double width = style.width * m_look.scale;
        QColor color = colorOf(style.stroke);
        if (width <= 0 || color.alpha() == 0) {
            m_painter.setPen(Qt::NoPen);
            return false;
        }
        if (width < 1)
            color.setAlphaF(static_cast<float>(color.alphaF() * width));
        QPen pen(color, std::max(width, 1.0), Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
        if (style.dash > 0) {
            const double dash = m_look.scale / pen.widthF(); // a pen counts them by its width
            pen.setDashPattern({style.dash * dash, style.gap * dash});
        }
        m_painter.setPen(pen);
        return true;
    }

    QPointF pointOf(Picture::Point point) const {
        return m_look.corner + QPointF(point.x, point.y) * m_look.scale;
    }

    QPolygonF polygonOf(const Picture::Polyline& line) const {
        QPolygonF polygon;
        polygon.reserve(static_cast<qsizetype>(line.size()));
        for (const Picture::Point& point : line)
            polygon.append(pointOf(point));
        return polygon;
    }

    QPainter& m_painter;
    const PictureLook& m_look;
};

} // namespace

void paintPicture(QPainter& painter, const Picture& picture, const PictureLook& look) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    Painting painting(painter, look);
    for (const Picture::Shape& shape : picture.shapes)
        std::visit([&painting](const auto& each) { painting.paint(each); }, shape);
    painter.restore();
}

QImage paintedImage(const Picture& picture, int pixels, PictureLook look) {
    look.scale = pixels / Picture::side;
    QImage image(pixels, pixels, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    paintPicture(painter, picture, look);
    return image;
}

} // namespace orbisgrid
