#include "tests/ui/made_control.h"
#include "ui/contrast_style.h"

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QTest>

using namespace orbisgrid;

namespace {

QPalette blackAndYellow() {
    QPalette palette(Qt::black, Qt::black);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, Qt::yellow);
    palette.setColor(QPalette::Base, Qt::black);
    return palette;
}

/// The brightest pixel of the widget's edge, all around: 255 or so is seen on black.
int brightestOfEdge(QWidget& widget) {
    widget.resize(120, 40);
    const QImage image = widget.grab().toImage();
    int brightest = 0;
    for (int x = 0; x < image.width(); ++x) {
        for (const int y : {0, 1, image.height() - 2, image.height() - 1})
            brightest = std::max(brightest, image.pixelColor(x, y).value());
    }
    return brightest;
}

} // namespace

class ContrastStyleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void isNeededWhereTheWindowIsBlack() {
        QVERIFY(ContrastStyle::isNeeded(blackAndYellow()));
        QVERIFY(!ContrastStyle::isNeeded(QPalette(QColor(53, 53, 53))));
        QVERIFY(!ContrastStyle::isNeeded(QPalette(Qt::white)));
    }

    void edgesAreSeenOnBlack_data() {
        QTest::addColumn<QString>("kind");
        for (const char* kind : {"box", "list", "button", "tool button", "frame"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }

    void edgesAreSeenOnBlack() {
        QFETCH(QString, kind);
        QApplication::setPalette(blackAndYellow());
        QVERIFY2(brightestOfEdge(*test::madeControl(kind)) < 128, "without the style they are not");
        useContrastStyleWhereNeeded();
        QVERIFY(brightestOfEdge(*test::madeControl(kind)) > 200);
    }

    void checkBoxIsSeenOnBlack() {
        QApplication::setPalette(blackAndYellow());
        useContrastStyleWhereNeeded();
        QCheckBox box;
        box.resize(box.sizeHint());
        const QImage image = box.grab().toImage();
        int bright = 0;
        for (int x = 0; x < image.width(); ++x)
            bright += image.pixelColor(x, image.height() / 2).value() > 200 ? 1 : 0;
        QVERIFY2(bright >= 2, "its left and its right edge");
    }

    void init() {
        QApplication::setStyle(QStringLiteral("fusion"));
        QApplication::setPalette(QPalette());
    }
};

QTEST_MAIN(ContrastStyleTest)
#include "contrast_style_test.moc"
