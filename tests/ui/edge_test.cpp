#include "ui/edge.h"

#include <QImage>
#include <QPainter>
#include <QtTest>

#include <cmath>

using namespace orbisgrid;

/// An edge at scales that are no whole numbers, drawn where a widget may draw: in the pixels whose
/// middles are its own.
class EdgeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void isWholeOnEverySide_data() {
        QTest::addColumn<double>("scale");
        for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0})
            QTest::addRow("%g", scale) << scale;
    }

    void isWholeOnEverySide() {
        QFETCH(const double, scale);
        for (int offset = 0; offset < 8; ++offset) {
            for (int size = 20; size < 28; ++size)
                checkEdge(scale, QRect(offset, offset + 3, size, size + 5));
        }
    }

private:
    static void checkEdge(double scale, const QRect& rect) {
        QImage image(160, 160, QImage::Format_RGB32);
        image.fill(Qt::white);
        const auto pixel = [scale](int at) { return int(std::ceil(at * scale - 0.5)); };
        const QRect own(QPoint(pixel(rect.left()), pixel(rect.top())),
                        QPoint(pixel(rect.right() + 1) - 1, pixel(rect.bottom() + 1) - 1));
        QPainter painter(&image);
        painter.setClipRect(own);
        painter.scale(scale, scale);
        drawEdge(painter, rect, Qt::black);
        painter.end();

        // Each side is a line without a gap in the outermost point of the rectangle.
        const int depth = int(std::ceil(scale));
        const auto isDrawn = [&](const QRect& strip, bool isAcross) {
            const int length = isAcross ? strip.width() : strip.height();
            for (int along = depth; along < length - depth; ++along) {
                bool isHit = false;
                for (int in = 0; in < depth; ++in) {
                    const QPoint at = isAcross ? QPoint(along, in) : QPoint(in, along);
                    isHit = isHit || image.pixelColor(strip.topLeft() + at) == QColor(Qt::black);
                }
                if (!isHit)
                    return false;
            }
            return true;
        };
        const QByteArray where =
            QByteArray::number(rect.x()) + " wide " + QByteArray::number(rect.width());
        const QRect above(own.left(), own.top(), own.width(), depth);
        const QRect beside(own.left(), own.top(), depth, own.height());
        QVERIFY2(isDrawn(above, true), ("top " + where).constData());
        QVERIFY2(isDrawn(above.translated(0, own.height() - depth), true),
                 ("bottom " + where).constData());
        QVERIFY2(isDrawn(beside, false), ("left " + where).constData());
        QVERIFY2(isDrawn(beside.translated(own.width() - depth, 0), false),
                 ("right " + where).constData());
        QVERIFY2(image.pixelColor(own.center()) == QColor(Qt::white), "it is an edge, not filled");
    }
};

QTEST_MAIN(EdgeTest)
#include "edge_test.moc"
