#include "tests/ui/made_control.h"
#include "ui/fractional_scale_style.h"

#include <QApplication>
#include <QImage>
#include <QPalette>
#include <QPixmapCache>
#include <QTest>

#include <memory>

using namespace orbisgrid;

/// The program runs at a scale of 1.25 (QT_SCALE_FACTOR in the build files); the controls are drawn
/// at a scale of 1, where every row is to be seen.
class FractionalScaleStyleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void isNeededBetweenWholeScales() {
        QVERIFY(!FractionalScaleStyle::isNeeded(1));
        QVERIFY(FractionalScaleStyle::isNeeded(1.25));
        QVERIFY(FractionalScaleStyle::isNeeded(1.5));
        QVERIFY(!FractionalScaleStyle::isNeeded(2));
    }

    void lowerEdgesMoveIn_data() {
        QTest::addColumn<QString>("kind");
        for (const char* kind : {"box", "list", "button", "tool button"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }

    void lowerEdgesMoveIn() {
        QFETCH(QString, kind);
        QCOMPARE(qApp->devicePixelRatio(), 1.25);
        useContrastStyleWhereNeeded();
        QCOMPARE(lowerEdge(kind), height - 1);
        useFractionalScaleStyleWhereNeeded();
        QCOMPARE(lowerEdge(kind), height - 2);
    }

    void takesThePlaceOfTheOtherStyleAlone() {
        useFractionalScaleStyleWhereNeeded();
        QVERIFY(qobject_cast<FractionalScaleStyle*>(QApplication::style()) == nullptr);
        useContrastStyleWhereNeeded();
        useFractionalScaleStyleWhereNeeded();
        QVERIFY(qobject_cast<FractionalScaleStyle*>(QApplication::style()) != nullptr);
    }

    void init() {
        QApplication::setStyle(QStringLiteral("fusion"));
        QApplication::setPalette(QPalette());
    }

private:
    static constexpr int height = 28;

    /// The lowest row that is drawn as dark as an edge, in the control's middle; -1 without one.
    static int lowerEdge(const QString& kind) {
        QPixmapCache::clear();    // the style keeps what it drew of lists
        constexpr int edge = 200; // of 255; edges have 10 / 14 of the window's value
        const std::unique_ptr<QWidget> control = test::madeControl(kind);
        control->resize(61, height);
        QImage image(control->size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        control->render(&image);
        for (int row = height - 1; row > height / 2; --row) {
            if (image.pixelColor(30, row).value() < edge)
                return row;
        }
        return -1;
    }
};

QTEST_MAIN(FractionalScaleStyleTest)
#include "fractional_scale_style_test.moc"
